// A program that does nothing: tests give it the name of one that is watched.
// It ends by itself after a while, so that a broken test leaves none behind.
#include <windows.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    Sleep(60'000);
    return 0;
}
