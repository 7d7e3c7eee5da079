// HublinkCheck.exe: reports what Hublink would find on this computer.
#include "automation/apartment.h"
#include "automation/process_arguments.h"
#include "automation/process_protection.h"
#include "automation/server/registration.h"
#include "automation/system_message.h"
#include "automation/text.h"
#include "check/examination.h"
#include "check/options.h"
#include "check/output.h"
#include "check/own_console.h"

#include <version.h>

namespace {

using namespace hublink::check;

// Exit codes.
constexpr int noProblem = 0;
constexpr int problems = 1;
constexpr int noReport = 2; // a wrong command line, or a report that cannot be made or saved

std::wstring folderOf(const std::wstring& file)
{
    return file.substr(0, file.rfind(L'\\'));
}

// False when it could not be.
bool saveReport(const Options& options, const Report& report, const ReportTexts& texts)
{
    const DWORD result = saveAsNewFile(options.saveTo, textOf(report, options.savedNames, texts));
    if (result == ERROR_SUCCESS) {
        writeOutput(STD_OUTPUT_HANDLE, texts.saved(options.saveTo).full + L"\r\n");
        return true;
    }
    writeOutput(STD_ERROR_HANDLE, texts.notSaved(options.saveTo, automation::systemMessage(result)).full + L"\r\n");
    return false;
}

int report(const Options& options, const Texts& texts)
{
    const Examination examination{folderOf(automation::server::programPath()), automation::toWide(HUBLINK_VERSION),
                                  options.listsMap};
    const Report report = examine(examination, texts);
    writeOutput(STD_OUTPUT_HANDLE, textOf(report, Names::shown, texts.report));
    if (!options.saveTo.empty() && !saveReport(options, report, texts.report)) return noReport;
    return count(report, Mark::problem) == 0 ? noProblem : problems;
}

int refuse(const std::wstring& words, const ReportTexts& texts)
{
    writeOutput(STD_ERROR_HANDLE, texts.notUnderstood(words).full + L"\r\n\r\n" + texts.usage().full);
    return noReport;
}

int help(const ReportTexts& texts)
{
    writeOutput(STD_OUTPUT_HANDLE, texts.usage().full);
    return noProblem;
}

int run(const Options& options, const Texts& texts)
try {
    if (options.notUnderstood) return refuse(*options.notUnderstood, texts.report);
    if (options.asksForHelp) return help(texts.report);
    const automation::Apartment apartment;
    return report(options, texts);
} catch (const std::exception& error) {
    writeOutput(STD_ERROR_HANDLE, texts.report.failed().full + automation::toWide(error.what()) + L"\r\n");
    return noReport;
}

}

int main()
{
    automation::protectProcess();
    const Options options = optionsOf(automation::processArguments());
    const Texts& texts = textsOf(options.language.value_or(GetUserDefaultUILanguage()));
    const int code = run(options, texts);
    if (options.saveTo.empty()) keepOwnConsoleOpen(texts.report);
    return code;
}
