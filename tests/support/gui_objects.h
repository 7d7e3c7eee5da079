// Whether GDI objects and windows are left behind. The handle of a fresh GDI
// object stands at the lowest free place, which rises when others are kept;
// counting them directly is not possible on every system.
#pragma once

#include <windows.h>

namespace support {

struct GuiMark {
    DWORD gdi = 0;
    int windows = 0; // top-level ones of this thread

    friend bool operator==(const GuiMark&, const GuiMark&) = default;
};

inline BOOL CALLBACK countWindow(HWND, LPARAM count)
{
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

inline GuiMark guiMark()
{
    GuiMark mark;
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    mark.gdi = LOWORD(reinterpret_cast<ULONG_PTR>(brush));
    DeleteObject(brush);
    EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&mark.windows));
    return mark;
}

}
