#include "desk/common/fonts.h"

namespace desk {

Font::Font(int percent, bool bold)
{
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    LOGFONTW font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, percent, 100);
    font.lfQuality = CLEARTYPE_QUALITY;
    if (bold) font.lfWeight = FW_BOLD;
    font_ = CreateFontIndirectW(&font);
}

}
