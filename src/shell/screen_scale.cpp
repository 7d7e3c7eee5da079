#include "shell/screen_scale.h"

#include <windows.h>

namespace hublink {

double twipsPerPixelX()
{
    const HDC screen = GetDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return 1440.0 / (dotsPerInch > 0 ? dotsPerInch : 96);
}

double twipsFromPixels(int pixels)
{
    return pixels * twipsPerPixelX();
}

int pixelsFromTwips(double twips)
{
    return pixelsFromTwips(twips, twipsPerPixelX());
}

int pixelsFromTwips(double twips, double twipsPerPixel)
{
    // At scales like 8.57 a whole pixel comes back a hair too small.
    constexpr double tolerance = 1e-9;
    const double pixels = twips / twipsPerPixel;
    return static_cast<int>(pixels < 0 ? pixels - tolerance : pixels + tolerance);
}

}
