// A Host for tests of the rooms below the shell: it keeps what it is told and
// lets a test decide what happens meanwhile.
#pragma once

#include "common/configuration.h"
#include "common/host.h"

#include <deque>
#include <string>
#include <vector>

namespace hublink {

class TestHost : public Host {
public:
    void WriteLog(const std::wstring& line) override
    {
        log.push_back(line);
        if (onLog) onLog(line);
    }

    void StopConnector() override
    {
        ++stops;
        settings.gStop = true;
    }

    const Configuration& configuration() const override { return settings; }
    void enableSupervision() override { supervised = true; }

    void showMessage(const std::wstring& text) override
    {
        messages.push_back(text);
        if (onMessage) onMessage(text);
    }

    void pause(std::int32_t milliseconds) override
    {
        pauses.push_back(milliseconds);
        if (onPause) onPause();
    }

    void checkForStopRequest() override
    {
        ++stopChecks;
        if (onStopCheck) onStopCheck();
    }

    DATE now() const override { return time; }
    std::wstring programFolder() const override { return folder; }
    void defer(std::function<void()> work) override { deferred.push_back(std::move(work)); }

    // What the message loop would do.
    void runDeferred()
    {
        while (!deferred.empty()) {
            const auto work = std::move(deferred.front());
            deferred.pop_front();
            work();
        }
    }

    Configuration settings;
    std::vector<std::wstring> log;
    std::vector<std::wstring> messages;
    std::vector<std::int32_t> pauses;
    std::deque<std::function<void()>> deferred;
    std::function<void(const std::wstring&)> onLog;
    std::function<void(const std::wstring&)> onMessage;
    std::function<void()> onPause;
    std::function<void()> onStopCheck;
    int stops = 0;
    int stopChecks = 0; // how often a user's wish to stop was let through
    bool supervised = false;
    DATE time = 45000.5; // 15 March 2023, 12:00:00
    std::wstring folder = L"C:\\nowhere";
};

}
