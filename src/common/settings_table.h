// Every setting of the ini file, those of a section in the order in which the program reads
// them. The readers, HublinkCheck and the installer know them from here; the package's
// conditions and the tests of ini file and documentation take them from the lines below.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace hublink {

enum class SettingKind {
    stopRequest,
    toggle,     // on for the exact text "true"
    pause,      // whole number of 16 bits, milliseconds
    number,     // whole number of 16 bits
    groupwares, // list of LOTUS and OUTLOOK
    base,       // five parts
    text,
};

struct Setting {
    const char* section;
    const char* key;
    SettingKind kind;
    const char* fallback;              // what counts when it is missing
    const wchar_t* property = nullptr; // by which an installation may give it: its key in capitals

    // The same in another section: the description of one address book.
    constexpr Setting in(const char* otherSection) const
    {
        Setting other = *this;
        other.section = otherSection;
        return other;
    }
};

inline constexpr const char* bookSection = "lotus base description "; // and the book's number

inline constexpr Setting settingsTable[] = {
    {"Application", "kill", SettingKind::stopRequest, "false"},
    {"Application", "trace", SettingKind::toggle, "false", L"TRACE"},
    {"Application", "type", SettingKind::groupwares, "", L"TYPE"},
    {"Application", "type1", SettingKind::groupwares, "", L"TYPE1"},
    {"Application", "tempo", SettingKind::pause, "200", L"TEMPO"},
    {"Application", "tempo1", SettingKind::pause, "20", L"TEMPO1"},
    {"Application", "TryCnxNumber", SettingKind::number, "10", L"TRYCNXNUMBER"},

    {"AllApplication", "PopUp", SettingKind::toggle, "", L"POPUP"},
    {"AllApplication", "NewContact", SettingKind::toggle, "", L"NEWCONTACT"},
    {"AllApplication", "Histo", SettingKind::toggle, "", L"HISTO"},
    {"AllApplication", "Repertory", SettingKind::toggle, "", L"REPERTORY"},
    {"AllApplication", "CallBackMail", SettingKind::toggle, "", L"CALLBACKMAIL"},

    {"outlook", "CallBackMailSyntaxe", SettingKind::text, "", L"CALLBACKMAILSYNTAXE"},
    {"outlook", "ReplacePhoneNumber", SettingKind::toggle, "true", L"REPLACEPHONENUMBER"},
    {"outlook", "quitoutlook", SettingKind::toggle, "false", L"QUITOUTLOOK"},
    {"outlook", "language", SettingKind::number, "0", L"LANGUAGE"},
    {"outlook", "Extension", SettingKind::toggle, "", L"EXTENSION"},
    {"outlook", "DllExtension", SettingKind::text, "", L"DLLEXTENSION"},
    {"outlook", "DllExtensionName", SettingKind::text, "", L"DLLEXTENSIONNAME"},
    {"outlook", "PathDllExtension", SettingKind::text, "", L"PATHDLLEXTENSION"},
    {"outlook", "RegisteDllExtension", SettingKind::text, "", L"REGISTEDLLEXTENSION"},

    {"lotus", "NbPublicAddressBook", SettingKind::number, "0", L"NBPUBLICADDRESSBOOK"},
    {"lotus", "Order", SettingKind::text, "0", L"ORDER"},
    {"lotus", "ShowGrpwAgenda", SettingKind::toggle, "0", L"SHOWGRPWAGENDA"},
    {"lotus", "AlwaysVerifyPhoneNumber", SettingKind::toggle, "0", L"ALWAYSVERIFYPHONENUMBER"},
    {"lotus", "CallInMail", SettingKind::toggle, "0", L"CALLINMAIL"},
    {"lotus", "PopUpGrpwAgenda", SettingKind::toggle, "0", L"POPUPGRPWAGENDA"},

    {bookSection, "PersonalAddressBook", SettingKind::toggle, ""},
    {bookSection, "base", SettingKind::base, ""},
    {bookSection, "LastName", SettingKind::text, ""},
    {bookSection, "FirstName", SettingKind::text, ""},
    {bookSection, "PhoneNumber", SettingKind::text, ""},
    {bookSection, "FullName", SettingKind::text, ""},
    {bookSection, "MailAddress", SettingKind::text, ""},
    {bookSection, "Form", SettingKind::text, ""},
    {bookSection, "TypeForm", SettingKind::text, ""},

    {"lotus call log description", "base", SettingKind::base, ""},
    {"lotus call log description", "LastName", SettingKind::text, ""},
    {"lotus call log description", "FirstName", SettingKind::text, ""},
    {"lotus call log description", "PhoneNumber", SettingKind::text, ""},
    {"lotus call log description", "State", SettingKind::text, ""},
    {"lotus call log description", "BeginDate", SettingKind::text, ""},
    {"lotus call log description", "EndDate", SettingKind::text, ""},
    {"lotus call log description", "Incoming", SettingKind::text, ""},
    {"lotus call log description", "Extern", SettingKind::text, ""},
    {"lotus call log description", "Form", SettingKind::text, ""},
    {"lotus call log description", "TypeForm", SettingKind::text, ""},
    {"lotus call log description", "Acknowledged", SettingKind::text, ""},
    {"lotus call log description", "TypeCall", SettingKind::text, ""},
    {"lotus call log description", "InfoSupdocNoteId", SettingKind::text, "InfoSupdocNoteId"},
    {"lotus call log description", "InfoSupServer", SettingKind::text, "InfoSupServer"},
    {"lotus call log description", "InfoSupBase", SettingKind::text, "InfoSupBase"},

    {"lotus personnel log description", "base", SettingKind::base, ""},
    {"lotus personnel log description", "Body", SettingKind::text, ""},
    {"lotus personnel log description", "Events", SettingKind::text, ""},
    {"lotus personnel log description", "Form", SettingKind::text, ""},
    {"lotus personnel log description", "TypeForm", SettingKind::text, ""},
    {"lotus personnel log description", "StartTime", SettingKind::text, ""},
    {"lotus personnel log description", "FinishTime", SettingKind::text, ""},
    {"lotus personnel log description", "Server", SettingKind::text, ""},
};

// Ends a compilation that asks for what the table does not name.
void settingIsNotInTheTable();

constexpr bool isOfBook(const Setting& setting)
{
    return std::string_view(setting.section) == bookSection;
}

// The settings of a section, which stand together; none of one that is not known.
constexpr std::span<const Setting> settingsIn(std::string_view section)
{
    const Setting* first = std::begin(settingsTable);
    while (first != std::end(settingsTable) && first->section != section) ++first;
    const Setting* last = first;
    while (last != std::end(settingsTable) && last->section == section) ++last;
    return {first, last};
}

// A setting by its names; one that the table lacks does not compile.
consteval const Setting& setting(std::string_view section, std::string_view key)
{
    for (const Setting& each : settingsIn(section))
        if (each.key == key) return each;
    settingIsNotInTheTable();
    return settingsTable[0];
}

}
