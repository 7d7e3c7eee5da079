// A running program of a given name, that does nothing else.
#pragma once

#include "support/scratch_folder.h"

#include <windows.h>

#include <string>

namespace support {

class StandIn {
public:
    enum class Window { none, inFront, inFrame, hiddenInFrame };

    // Starts it; it is in the list of processes when this returns, and its window
    // in front of all others, or in the frame, another program's window. Throws
    // AutomationError.
    StandIn(const ScratchFolder& folder, const std::wstring& fileName, Window window = Window::none,
            HWND frame = nullptr);
    ~StandIn() { end(); }
    StandIn(const StandIn&) = delete;
    StandIn& operator=(const StandIn&) = delete;

    DWORD processId() const noexcept { return processId_; }

    // Ends it and waits until it has gone.
    void end();

private:
    bool isThere(Window window, HWND frame) const;

    HANDLE process_ = nullptr;
    DWORD processId_ = 0;
};

// The folder in which the test programs lie.
std::wstring testProgramFolder();

}
