#include "check/report.h"

#include <algorithm>

namespace hublink::check {

namespace {

constexpr const wchar_t* lineEnd = L"\r\n";
constexpr std::size_t markWidth = 10;

class Writer {
public:
    Writer(Names names, const ReportTexts& texts) : names_(names), texts_(texts) {}

    void line(const Words& words = {}) { text_ += chosen(words) + lineEnd; }

    void finding(const Finding& finding)
    {
        text_ += padded(markOf(finding.mark)) + chosen(finding.what) + lineEnd;
        if (!finding.advice.empty()) text_ += padded(L"") + L"-> " + chosen(finding.advice) + lineEnd;
    }

    void section(const Section& section)
    {
        line();
        line(section.title);
        for (const Finding& each : section.findings) finding(each);
        for (const Words& each : section.lines) line(each);
    }

    std::wstring text() && { return std::move(text_); }

private:
    // A text of a file or the registry may hold what would break the line.
    std::wstring chosen(const Words& words) const
    {
        std::wstring text = names_ == Names::shown ? words.full : words.discreet;
        std::replace_if(text.begin(), text.end(), [](wchar_t c) { return c < L' ' || c == L'\x7F'; }, L'?');
        return text;
    }

    static std::wstring padded(std::wstring text)
    {
        text.resize(std::max(markWidth, text.size() + 1), L' ');
        return text;
    }

    std::wstring markOf(Mark mark) const
    {
        switch (mark) {
        case Mark::ok: return texts_.ok().full;
        case Mark::note: return texts_.note().full;
        case Mark::problem: break;
        }
        return texts_.problem().full;
    }

    const Names names_;
    const ReportTexts& texts_;
    std::wstring text_;
};

}

std::wstring textOf(const Report& report, Names names, const ReportTexts& texts)
{
    Writer writer(names, texts);
    for (const Words& each : report.heading) writer.line(each);
    for (const Section& section : report.sections) writer.section(section);
    const std::size_t problems = count(report, Mark::problem);
    writer.line();
    const std::size_t notes = count(report, Mark::note);
    writer.line(problems == 0 ? texts.nothingWrong(notes) : texts.verdict(problems, notes));
    return std::move(writer).text();
}

std::size_t count(const Report& report, Mark mark)
{
    std::size_t found = 0;
    for (const Section& section : report.sections)
        found += static_cast<std::size_t>(std::count_if(section.findings.begin(), section.findings.end(),
                                                        [&](const Finding& each) { return each.mark == mark; }));
    return found;
}

}
