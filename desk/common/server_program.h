// What every partner program is made of: registration, one running instance,
// the class factories, the message loop, the store file beside the program, and
// the control pipe. A partner adds its objects, its records and its
// own control commands:
//
//     class Outlook : public desk::Partner { ... };
//
//     int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
//     {
//         const desk::ProgramDescription description{L"outlook", {{L"Outlook.Application", classId, L"..."}},
//                                                    L"outlook.store.txt"};
//         return desk::runProgram(description, [](desk::Program& program) {
//             return std::make_unique<Outlook>(program);
//         });
//     }
//
// Command line: /RegServer, /UnregServer, nothing or -Embedding; /After ID waits for
// that process's end first, as the next one of a program that starts anew. Exit code 0;
// 1 for an unknown command line, 2 for a bad store file, 3 for any other fault
// (one line on stderr says which). A second start while one runs ends at once
// with 0. The program ends by itself after three hours.
//
// Control commands of every partner ("ok" when there is nothing to tell,
// "error: ..." in one line when it cannot be done):
//     ping           NAME PROCESSID
//     calls          "COUNT Class.Member kind" a line, sorted by name
//     record         every call in order, "Class.Member kind (arguments)" a line
//     clear          forget recorded calls and planned faults
//     fault ...      see fault_plan.h; "fault off" forgets the planned ones
//     flush          write the store file now
//     load           with store text from the next line on: replaces all records
//     die            the process dies (without saving), after the answer
//     restart        the same, but its next process runs already when it does
//     exit           the user closes the program: saved, ended, after the answer
#pragma once

#include "automation/server/registration.h"
#include "desk/common/recorder.h"
#include "desk/common/store_file.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

// What the running program does for its partner. Main thread only.
class Program {
public:
    virtual Recorder& recorder() noexcept = 0;

    // The records have changed: the store file follows before the next response on
    // the control pipe that is not about calls only, and otherwise within 200 ms
    // (for a big store within a few times what its writing takes).
    virtual void changed() = 0;

    // Ends the program once the call or message in progress has been answered.
    virtual void close() = 0;

protected:
    ~Program() = default;
};

// Lives from before the class factories' registration until after their end, on
// the main thread. Its constructor makes the windows, its destructor ends them.
class Partner {
public:
    virtual ~Partner() = default;

    // What a client gets that creates an object of the class, one of those in
    // the program's description.
    virtual automation::ComPtr<IDispatch> object(const CLSID& classId) = 0;

    // Replaces all records. Throws std::runtime_error (see refuseRecord) and
    // leaves them as they were when one of them makes no sense.
    virtual void load(const std::vector<StoreRecord>& records) = 0;
    virtual std::vector<StoreRecord> records() const = 0;

    // The partner's own control commands: `rest` is what follows the first
    // word and the blanks after it. No value for a word that it does not know;
    // an exception's text becomes "error: ...".
    virtual std::optional<std::wstring> command(const std::wstring& word, std::wstring_view rest) = 0;

    // Whether the program, which its user has closed, ends now. Asked again until it does.
    virtual bool endsWhenClosed() { return true; }
};

struct ProgramDescription {
    const wchar_t* name; // of the control pipe
    std::vector<automation::server::ClassRegistration> classes; // all in one process
    const wchar_t* storeFile; // its name, in the program's folder
};

using PartnerMaker = std::function<std::unique_ptr<Partner>(Program&)>;

// Followed by a process identifier: serves when that process has ended.
inline constexpr const wchar_t* successorArgument = L"/After";

// The program's exit code.
int runProgram(const ProgramDescription& description, const PartnerMaker& makePartner);

}
