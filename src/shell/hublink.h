// The hidden main form, which lives from start to end of the process. It holds the
// configuration, the rooms below, to which it is the Host, and its own parts, wires
// them together and hands the window's messages to them.
#pragma once

#include "common/configuration.h"
#include "common/dictionary.h"
#include "common/groupware_state.h"
#include "common/host.h"
#include "lotus/lotus_session.h"
#include "outlook/outlook_session.h"
#include "shell/connector_ini_file.h"
#include "shell/desktop.h"
#include "shell/document_watch.h"
#include "shell/form_window.h"
#include "shell/notification_icon.h"
#include "shell/shutdown.h"
#include "shell/stop_question.h"
#include "shell/supervision.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_session.h"

namespace hublink {

class Hublink final : public Host, private FormEvents {
public:
    explicit Hublink(Desktop desktop, CallWatch::Times callTimes = {});
    Hublink(const Hublink&) = delete;
    Hublink& operator=(const Hublink&) = delete;

    void Form_Load();
    void Form_Terminate() override { StopConnector(); }

    // The form's services to the rooms below.
    void WriteLog(const std::wstring& line) noexcept override;
    void StopConnector() noexcept override;
    const Configuration& configuration() const override { return configuration_; }
    void enableSupervision() override { window_.startSupervision(); }
    void showMessage(const std::wstring& text) override { messageBox(text, MB_OK); }
    void pause(std::int32_t milliseconds) override;
    void checkForStopRequest() noexcept override;
    DATE now() const override;
    std::wstring programFolder() const override { return desktop_.programFolder; }
    void defer(std::function<void()> work) override { window_.defer(std::move(work)); }

    FormWindow& window() { return window_; }

    // For who drives the form's parts himself, as its tests do.
    OutlookSession& outlook() { return outlook_; }
    LotusSession& lotus() { return lotus_; }
    SoftphoneSession& softphone() { return softphone_; }
    PavexInterface& link() { return gPavexInterface; }
    NotificationIcon& icon() { return icon_; }
    Shutdown& shutdown() { return shutdown_; }
    StopQuestion& question() { return question_; }
    ConnectorIniFile& ini() { return ini_; }
    Supervision& supervision() { return supervision_; }

private:
    void onSupervisionTick() override { supervision_.SupervisionPavex_Timer(); }
    void onDocumentTick() override { documents_.TimerCallInlotus_Timer(); }
    void Form_MouseMove(int button, int shift, double x, double y) override
    {
        question_.Form_MouseMove(button, shift, x, y);
    }
    void onSessionEnd() override { shutdown_.onSessionEnd(); }
    void onLongCallNoticed() override;
    int messageBox(const std::wstring& text, UINT flags);

    const Desktop desktop_;
    Configuration configuration_;
    GroupwareState groupware_;
    Dictionary dictionary_{desktop_.programFolder};
    FormWindow window_{*this}; // before what defers work to it, so that it outlives that
    OutlookSession outlook_{*this, groupware_, dictionary_};
    LotusSession lotus_{*this, groupware_, dictionary_};
    SoftphoneSession softphone_{*this, groupware_, outlook_, lotus_};
    PavexInterface gPavexInterface{softphone_};
    NotificationIcon icon_{desktop_, window_.handle()};
    Shutdown shutdown_;
    StopQuestion question_{window_, shutdown_, [this](auto& text, UINT flags) { return messageBox(text, flags); }};
    ConnectorIniFile ini_{configuration_, gPavexInterface};
    Supervision supervision_{softphone_, gPavexInterface, ini_, icon_, shutdown_};
    DocumentWatch documents_{lotus_};
};

}
