// A running program of a given name, that does nothing else.
#pragma once

#include "support/process.h"
#include "support/scratch_folder.h"

#include <windows.h>

#include <optional>
#include <string>

namespace support {

class DummyProgram {
public:
    enum class Window { none, inFront, inFrame, hiddenInFrame };

    // Starts it; it is in the list of processes when this returns, and its window
    // in front of all others, or in the frame, another program's window. Throws
    // AutomationError.
    DummyProgram(const ScratchFolder& folder, const std::wstring& fileName, Window window = Window::none,
                 HWND frame = nullptr);

    DWORD processId() const noexcept { return processId_; }

    // Ends it and waits until it has gone, as its destructor does.
    void end() { process_.reset(); }

private:
    bool isThere(Window window, HWND frame) const;

    std::optional<Process> process_;
    DWORD processId_ = 0;
};

}
