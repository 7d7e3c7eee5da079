// A user's desk: softphone, Outlook and Hublink installed as on a user's
// machine, started and ended like programs of a user. What they did is read
// back from the partners, their windows and the files, never from Hublink.
#pragma once

#include "desk/common/store_file.h"
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
    // text of the partner's store.
    void startSoftphone(std::string_view records = {});
    void startOutlook();
    void startOutlook(std::string_view records);
    void reopenSoftphone(); // with what it had
    void startHublink();

    // The same; `beforeItBegins` runs when the process is there and has done nothing yet.
    void startHublink(const std::function<void()>& beforeItBegins);
    void closeOutlook(); // as a user does

    // Softphone and Outlook closed and opened again, with what they had.
    void restartPartners();

    // A request to a partner's control pipe; an "error:" response throws.
    std::wstring softphone(std::wstring_view request);
    std::wstring outlook(std::wstring_view request);

    Process& hublinkProcess() { return hublink_; }
    Process& outlookProcess() { return outlook_; }
    Process& softphoneProcess() { return softphone_; }

    // Outlook's first record of a list ("contacts", "journal", "mails") whose
    // field has that value.
    std::optional<StoreRecord> record(std::wstring_view list, const wchar_t* field, const std::wstring& value);

    // The text of the item "Connector Log", "" without one; and whether it has
    // a line that ends like this after its date and time.
    std::wstring logBody();
    bool logHolds(const std::wstring& line);

    // Waits for an Outlook window with that title; false when none opens.
    bool outlookShows(const std::wstring& title);

    // A supervision tick at once; Windows delivers the regular ones besides.
    void tick();

    // Asks Hublink to end and waits until it has; false when it has not.
    bool stopHublink();

    std::wstring iniFile() const;
    void setIni(const char* section, const char* key, const char* value);

    // The identifier map's file is removed, whatever holds it open.
    static void emptyIdentifierMap();

    static constexpr const wchar_t* softphoneFolder = L"C:\\Pavex";
    static constexpr const wchar_t* programFolder = L"C:\\Hublink";
    static constexpr const wchar_t* partnersFolder = L"C:\\Desk";

private:
    Process startPartner(const wchar_t* file, std::wstring_view name);
    void endPartner(Process& process, std::wstring_view name);

    Process softphone_;
    Process outlook_;
    Process hublink_;
};

}
