// OUTLOOK.exe: the simulated Outlook as a program, with its windows, its class
// "Outlook.Application" and its control commands.
#include "desk/common/server_program.h"
#include "desk/outlook/outlook.h"
#include "desk/outlook/window_screen.h"

#include <utility>

namespace {

using namespace desk::outlook;

// A class identifier of the desk's own: clients go by the name.
constexpr CLSID classId = {0x6D1C2B7E, 0x54A3, 0x4E0F, {0x9B, 0x61, 0x2F, 0xC8, 0x07, 0xA5, 0xD3, 0x14}};

class OutlookProgram final : public desk::Partner {
public:
    explicit OutlookProgram(desk::Program& program)
        : screen_([&program] { program.close(); }),
          outlook_(program.recorder(), screen_, [&program] { program.changed(); }, [&program] { program.close(); })
    {
        screen_.watch(outlook_);
    }

    automation::ComPtr<IDispatch> object(const CLSID&) override { return outlook_.applicationForClient(); }
    void load(const std::vector<desk::StoreRecord>& records) override { outlook_.load(records); }
    std::vector<desk::StoreRecord> records() const override { return outlook_.records(); }

    std::optional<std::wstring> command(const std::wstring& word, std::wstring_view rest) override
    {
        return outlook_.command(word, rest);
    }

    // Before 2007 its windows close, and it lives on while clients hold references.
    bool endsWhenClosed() override
    {
        if (outlook_.version() != Version::v2003) return true;
        if (!std::exchange(closed_, true)) {
            outlook_.closeWindows();
            screen_.hide();
        }
        return !outlook_.isHeld();
    }

private:
    bool closed_ = false;
    WindowScreen screen_;
    Outlook outlook_;
};

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const desk::ProgramDescription description{
        L"outlook", {{L"Outlook.Application", classId, L"Microsoft Outlook (simulated)"}}, L"outlook.store.txt"};
    return desk::runProgram(description,
                            [](desk::Program& program) { return std::make_unique<OutlookProgram>(program); });
}
