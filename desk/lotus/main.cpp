// nlnotes.exe: the simulated Notes as a program, with its windows, its classes
// "Notes.NotesSession" and "Notes.NotesUIWorkspace" and its control commands.
#include "desk/common/server_program.h"
#include "desk/lotus/classes.h"
#include "desk/lotus/notes.h"
#include "desk/lotus/window_screen.h"

namespace {

using namespace desk::lotus;

class NotesProgram final : public desk::Partner {
public:
    explicit NotesProgram(desk::Program& program)
        : screen_([&program] { program.close(); }),
          notes_(program.recorder(), screen_, [&program] { program.changed(); })
    {
        screen_.watch(notes_);
    }

    automation::ComPtr<IDispatch> object(const CLSID& classId) override
    {
        return classId == sessionClassId ? notes_.session() : notes_.workspaceObject();
    }

    void load(const std::vector<desk::StoreRecord>& records) override { notes_.load(records); }
    std::vector<desk::StoreRecord> records() const override { return notes_.records(); }

    std::optional<std::wstring> command(const std::wstring& word, std::wstring_view rest) override
    {
        return notes_.command(word, rest);
    }

private:
    WindowScreen screen_;
    Notes notes_;
};

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const desk::ProgramDescription description{L"nlnotes", {classes.begin(), classes.end()}, L"nlnotes.store.txt"};
    return desk::runProgram(description,
                            [](desk::Program& program) { return std::make_unique<NotesProgram>(program); });
}
