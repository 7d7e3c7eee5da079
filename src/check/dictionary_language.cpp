#include "check/dictionary_language.h"

#include "common/dictionary.h"

namespace hublink::check {

namespace {

bool isOfLanguage(const std::wstring& file, std::int32_t language)
{
    return file.ends_with(L"\\" + std::to_wstring(language) + L".ini");
}

}

DictionaryFacts dictionaryFacts(const ProgramSettings& settings, const std::wstring& programFolder)
{
    DictionaryFacts facts;
    facts.isLoaded = settings.general().bgWithOutlook;
    facts.language = settings.outlook().nLanguage;
    facts.usersLanguage = GetUserDefaultUILanguage();
    Dictionary dictionary(programFolder);
    dictionary.LoadDicoSelected(facts.language);
    facts.file = dictionary.file();
    char text[260];
    facts.holdsTexts = dictionary.GetElt("history", "TI_NAMECALL_UNKNOWN", "", text, sizeof text) > 0;
    return facts;
}

Findings dictionaryFindings(const DictionaryFacts& facts, const DictionaryTexts& texts)
{
    if (!facts.isLoaded) return {ok(texts.notLoaded)};
    const std::int32_t language = facts.language == 0 ? facts.usersLanguage : facts.language;
    const Words number = std::to_wstring(language);
    Findings findings{facts.language == 0 ? ok(texts.usersLanguage, number) : ok(texts.chosenLanguage, number)};
    if (facts.file.empty()) findings.push_back(problem(texts.none));
    else if (!facts.holdsTexts) findings.push_back(problem(texts.withoutTexts, path(facts.file)));
    else if (isOfLanguage(facts.file, language)) findings.push_back(ok(texts.file, path(facts.file)));
    else findings.push_back(note(texts.otherLanguage, path(facts.file)));
    return findings;
}

}
