// Pixels in twips and back.
#include "shell/screen_scale.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace hublink {

TEST(ScreenScale, CodeInTwips_ComesBackWholeAtEveryUsualScale)
{
    for (const int dotsPerInch : {72, 96, 107, 110, 120, 125, 144, 168, 192, 216, 240, 288, 384, 480}) {
        const double twipsPerPixel = 1440.0 / dotsPerInch;
        for (int code = 0; code <= 0x500; ++code)
            ASSERT_EQ(pixelsFromTwips(code * twipsPerPixel, twipsPerPixel), code) << dotsPerInch;
    }
}

TEST(ScreenScale, FractionOfAPixel_IsCutOff)
{
    EXPECT_EQ(pixelsFromTwips(516 * 15.0 + 14, 15.0), 516);
    EXPECT_EQ(pixelsFromTwips(516 * 15.0 - 1, 15.0), 515);
    EXPECT_EQ(pixelsFromTwips(-14, 15.0), 0);
    EXPECT_EQ(pixelsFromTwips(-16, 15.0), -1);
}

TEST(ScreenScale, Screen_HasAnInchOf1440Twips)
{
    const HDC screen = GetDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    EXPECT_DOUBLE_EQ(twipsPerPixelX() * dotsPerInch, 1440.0);
    EXPECT_DOUBLE_EQ(twipsFromPixels(dotsPerInch), 1440.0);
    EXPECT_EQ(pixelsFromTwips(1440.0), dotsPerInch);
}

}
