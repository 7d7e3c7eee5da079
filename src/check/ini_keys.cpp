#include "check/ini_keys.h"

#include "automation/text.h"

#include <algorithm>
#include <string_view>

namespace hublink::check {

namespace {

constexpr IniKey application[] = {
    {"kill", "false", Kind::stopRequest}, {"trace", "false", Kind::toggle}, {"type", "", Kind::groupwares},
    {"type1", "", Kind::groupwares},      {"tempo", "200", Kind::pause},    {"tempo1", "20", Kind::pause},
    {"TryCnxNumber", "10", Kind::number},
};

constexpr IniKey features[] = {
    {"PopUp", "", Kind::toggle},     {"NewContact", "", Kind::toggle},   {"Histo", "", Kind::toggle},
    {"Repertory", "", Kind::toggle}, {"CallBackMail", "", Kind::toggle},
};

constexpr IniKey outlook[] = {
    {"CallBackMailSyntaxe", "", Kind::text}, {"ReplacePhoneNumber", "true", Kind::toggle},
    {"quitoutlook", "false", Kind::toggle},  {"language", "0", Kind::number},
    {"Extension", "", Kind::toggle},         {"DllExtension", "", Kind::text},
    {"DllExtensionName", "", Kind::text},    {"PathDllExtension", "", Kind::text},
    {"RegisteDllExtension", "", Kind::text},
};

constexpr IniKey lotus[] = {
    {"NbPublicAddressBook", "0", Kind::number}, {"Order", "0", Kind::text},
    {"ShowGrpwAgenda", "0", Kind::toggle},      {"AlwaysVerifyPhoneNumber", "0", Kind::toggle},
    {"CallInMail", "0", Kind::toggle},          {"PopUpGrpwAgenda", "0", Kind::toggle},
};

constexpr IniKey book[] = {
    {"PersonalAddressBook", "", Kind::toggle},
    {"base", "", Kind::base},
    {"LastName", "", Kind::text},
    {"FirstName", "", Kind::text},
    {"PhoneNumber", "", Kind::text},
    {"FullName", "", Kind::text},
    {"MailAddress", "", Kind::text},
    {"Form", "", Kind::text},
    {"TypeForm", "", Kind::text},
};

constexpr IniKey callLog[] = {
    {"base", "", Kind::base},
    {"LastName", "", Kind::text},
    {"FirstName", "", Kind::text},
    {"PhoneNumber", "", Kind::text},
    {"State", "", Kind::text},
    {"BeginDate", "", Kind::text},
    {"EndDate", "", Kind::text},
    {"Incoming", "", Kind::text},
    {"Extern", "", Kind::text},
    {"Form", "", Kind::text},
    {"TypeForm", "", Kind::text},
    {"Acknowledged", "", Kind::text},
    {"TypeCall", "", Kind::text},
    {"InfoSupdocNoteId", "InfoSupdocNoteId", Kind::text},
    {"InfoSupServer", "InfoSupServer", Kind::text},
    {"InfoSupBase", "InfoSupBase", Kind::text},
};

constexpr IniKey personalLog[] = {
    {"base", "", Kind::base},       {"Body", "", Kind::text},     {"Events", "", Kind::text},
    {"Form", "", Kind::text},       {"TypeForm", "", Kind::text}, {"StartTime", "", Kind::text},
    {"FinishTime", "", Kind::text}, {"Server", "", Kind::text},
};

constexpr IniKeys sections[] = {
    {applicationSection, application}, {featuresSection, features},
    {outlookSection, outlook},         {lotusSection, lotus},
    {callLogSection, callLog},         {personalLogSection, personalLog},
};

bool isBookSection(const std::wstring& section)
{
    const std::size_t length = std::wstring_view(bookSectionBeginning).size();
    const std::wstring number = section.substr(std::min(length, section.size()));
    return automation::equalWithoutCase(section.substr(0, length), bookSectionBeginning) && !number.empty() &&
           number.find_first_not_of(L"0123456789") == std::wstring::npos;
}

}

std::span<const IniKeys> iniSections()
{
    return sections;
}

std::span<const IniKey> bookKeys()
{
    return book;
}

std::span<const IniKey> keysOf(const std::wstring& section)
{
    for (const IniKeys& each : sections)
        if (automation::equalWithoutCase(section, automation::wide(each.section))) return each.keys;
    if (isBookSection(section)) return book;
    return {};
}

}
