// A user's desk: softphone, Outlook and Hublink installed as on a user's
// machine, started and ended like programs of a user. What they did is read
// back from the partners, their windows and the files, never from Hublink.
#pragma once

#include "desk/common/store_file.h"
#include "desk/player/partner_program.h"
#include "desk/player/screen.h"
#include "desk/player/windows_files.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace desk::player {

class Desk {
public:
    // Installs the programs that lie beside the running one, with the default
    // ini file and an empty identifier map; nothing runs yet.
    Desk();

    // Ends what still runs.
    ~Desk();
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    // Each starts the program and waits until it is there. `records` is the
    // text of the partner's store; without it the partner has what it had.
    void startSoftphone(std::string_view records = {}) { softphone_.start(records); }
    void reopenSoftphone() { softphone_.start(); }
    void startOutlook() { outlook_.start(); }
    void startOutlook(std::string_view records) { outlook_.start(records); }
    void startNotes() { notes_.start(); }
    void startNotes(std::string_view records) { notes_.start(records); }
    void startHublink();

    // The same; `beforeItBegins` runs when the process is there and has done nothing yet.
    void startHublink(const std::function<void()>& beforeItBegins);
    void closeOutlook() { outlook_.close(); } // as a user does
    void closeNotes() { notes_.close(); }

    // Ended, and started again before the old process has gone.
    void restartSoftphone() { softphone_.restart(); }
    void restartOutlook() { outlook_.restart(); }
    void restartNotes() { notes_.restart(); }

    // Closed if it runs, and its class registered no more.
    void uninstallSoftphone() { softphone_.uninstall(); }

    // All partners that run closed and opened again, with what they had;
    // `meanwhile` runs when all are closed.
    void restartPartners(const std::function<void()>& meanwhile = [] {});

    // A request to a partner's control pipe; an "error:" response throws.
    std::wstring softphone(std::wstring_view request) { return softphone_.ask(request); }
    std::wstring outlook(std::wstring_view request, DWORD timeout = usualTimeout)
    {
        return outlook_.ask(request, timeout);
    }
    std::wstring notes(std::wstring_view request) { return notes_.ask(request); }

    Process& hublinkProcess() { return hublink_; }
    Process& outlookProcess() { return outlook_.process(); }
    Process& softphoneProcess() { return softphone_.process(); }
    Process& notesProcess() { return notes_.process(); }

    // Outlook's first record of a list ("contacts", "journal", "mails") whose
    // field has that value; and the same of the documents of a Notes database.
    std::optional<StoreRecord> record(std::wstring_view list, const wchar_t* field, const std::wstring& value);
    std::optional<StoreRecord> document(std::wstring_view database, const wchar_t* item, const std::wstring& value);

    // The text of the item "Connector Log", "" without one; and whether it has
    // a line that ends like this after its date and time.
    std::wstring logBody();
    bool logHolds(const std::wstring& line);

    // Waits for a window with that title, or one that begins with it; false when none opens.
    bool outlookShows(const std::wstring& title) { return outlook_.shows(title); }
    bool notesShows(const std::wstring& beginning) { return notes_.shows(beginning, false); }

    // A supervision tick at once; Windows delivers the regular ones besides.
    void tick();

    // Asks Hublink to end and waits until it has; false when it has not.
    bool stopHublink();

    std::wstring iniFile() const;
    void setIni(const char* section, const char* key, const char* value);

    // The same in the file that Hublink installs at its first start.
    void setDefault(const char* section, const char* key, const char* value);

    static std::wstring identifierMapFile();

    // The identifier map's file is removed, whatever holds it open.
    static void emptyIdentifierMap();

    static constexpr const wchar_t* softphoneFolder = L"C:\\Pavex";
    static constexpr const wchar_t* programFolder = L"C:\\Hublink";

private:
    PartnerProgram softphone_{L"pavex.exe", L"pavex"};
    PartnerProgram outlook_{L"OUTLOOK.exe", L"outlook"};
    PartnerProgram notes_{L"nlnotes.exe", L"nlnotes"};
    Process hublink_;
};

}
