// A real partner program of the desk, copied to a folder of the test's own,
// registered there and ended with this object. One at a time of each on the
// machine; one that was registered before is registered again at the end.
#pragma once

#include "support/process.h"
#include "support/scratch_folder.h"

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

namespace support {

struct PartnerClass {
    const wchar_t* file;     // "OUTLOOK.exe", beside the test
    const wchar_t* pipe;     // "outlook"; its store is outlook.store.txt
    const wchar_t* progId;   // of one of its classes
};

class RunningPartner {
public:
    // Starts it with that store file.
    explicit RunningPartner(const PartnerClass& partner, std::string_view store = {});
    ~RunningPartner();
    RunningPartner(const RunningPartner&) = delete;
    RunningPartner& operator=(const RunningPartner&) = delete;

    std::wstring ask(std::wstring_view request) const;
    std::wstring program() const { return folder_.file(partner_.file); }
    std::wstring storeFile() const { return folder_.file(partner_.pipe + std::wstring(L".store.txt")); }
    const Process& process() const { return *process_; }

    // After it has ended: once more.
    void start();

private:
    const PartnerClass partner_;
    const automation::Handle oneAtATime_;
    std::wstring registeredBefore_; // its command line
    ScratchFolder folder_;
    std::unique_ptr<Process> process_;
};

}
