#include "form_fixture.h"

#include "automation/text.h"
#include "common/ini_file.h"
#include "shell/file_time.h"
#include "shell/tray_icon_data.h"

#include <shellapi.h>

namespace hublink::shell_tests {

FormFixture::FormFixture()
{
    SetCurrentDirectoryW(L"C:\\");
    folder.folder(L"pavex");
    folder.folder(L"pavex\\Connector");
    pavexPath.setText(folder.file(L"pavex"));
    server.setText(L"zrb.example");
    user.setText(L"john");
    outlook.onCall = [this](const support::RawPartner::Call& call) {
        if (call.id != 2) return S_OK;
        V_VT(call.result) = VT_DISPATCH;
        V_DISPATCH(call.result) = &logItem;
        logItem.AddRef();
        return S_OK;
    };
}

FormFixture::~FormFixture()
{
    onBox = nullptr;
    form_.reset();
    pump();
}

Hublink& FormFixture::form()
{
    if (!form_) {
        form_ = std::make_unique<Hublink>(Desktop{
                                              programFolder,
                                              [this](const std::wstring& text, UINT flags) {
                                                  boxes.push_back({text, flags});
                                                  return onBox ? onBox(text) : IDOK;
                                              },
                                              [this] {
                                                  ++ended;
                                                  if (onEnd) onEnd();
                                              },
                                              [this](DWORD message, TrayIconData& data) {
                                                  return onIcon ? onIcon(message) : notifyShell(message, data);
                                              },
                                          },
                                          callTimes);
    }
    return *form_;
}

Hublink& FormFixture::load()
{
    form().Form_Load();
    return form();
}

Hublink& FormFixture::startAgain()
{
    form_.reset();
    return load();
}

std::wstring FormFixture::iniValue(const char* section, const char* key) const
{
    return IniFile(iniPath()).read(section, key, "(none)");
}

void FormFixture::touchIni() const
{
    const auto before = modificationTime(iniPath());
    ASSERT_TRUE(before);
    ULARGE_INTEGER time{{before->dwLowDateTime, before->dwHighDateTime}};
    time.QuadPart += 20'000'000; // two seconds
    const FILETIME later{time.LowPart, time.HighPart};
    const HANDLE file = CreateFileW(iniPath().c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(SetFileTime(file, nullptr, nullptr, &later));
    CloseHandle(file);
}

void FormFixture::pump()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

bool FormFixture::iconIsShown()
{
    TrayIconData data =
        FillTrayIconData(form().window().handle(), 1, NIF_TIP, 0, nullptr, std::string("Orvel - Hublink\0", 16));
    return Shell_NotifyIconA(NIM_MODIFY, reinterpret_cast<NOTIFYICONDATAA*>(&data)) != FALSE;
}

std::vector<std::wstring> FormFixture::boxTexts() const
{
    std::vector<std::wstring> texts;
    for (const Box& box : boxes) texts.push_back(box.text);
    return texts;
}

bool FormFixture::wasShown(const std::wstring& text) const
{
    for (const Box& box : boxes)
        if (box.text == text) return true;
    return false;
}

void FormFixture::openOutlook()
{
    form().outlook().OutlookApp = automation::Object(&outlook);
    form().outlook().bOutlookInit = true;
}

std::string iniText(const std::string& application, const std::string& features, const std::string& type)
{
    return "[Application]\r\n" + type + application + "[AllApplication]\r\n" + features;
}

}
