#include "shell/geometry.h"

#include "common/error_trap.h"
#include "shell/screen_scale.h"

namespace hublink {

namespace {

int pixels(const automation::Object& control, const wchar_t* member)
{
    return pixelsFromTwips(control.get(member).number());
}

}

void GetRelPt(HWND form, const automation::Object& control, float& x, float& y, std::int32_t& width,
              std::int32_t& height)
{
    trapErrors([&] {
        POINT corner{pixels(control, L"Left"), pixels(control, L"Top")};
        const int controlWidth = pixels(control, L"Width");
        const int controlHeight = pixels(control, L"Height");
        RECT outer{};
        ClientToScreen(form, &corner);
        GetWindowRect(form, &outer);
        x = static_cast<float>(corner.x - outer.left);
        y = static_cast<float>(corner.y - outer.top);
        width = controlWidth;
        height = controlHeight;
    });
}

}
