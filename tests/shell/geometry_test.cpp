#include "shell/geometry.h"

#include "shell/screen_scale.h"
#include "support/raw_partner.h"

#include <gtest/gtest.h>

namespace hublink {

namespace {

using automation::Object;
using automation::Value;

// A control with a place, in twips.
class Control final : public support::RawPartner {
public:
    Control(int left, int top, int width, int height)
        : RawPartner({{L"Left", 1}, {L"Top", 2}, {L"Width", 3}, {L"Height", 4}})
    {
        const double twips[] = {left * twipsFromPixels(1), top * twipsFromPixels(1), width * twipsFromPixels(1),
                                height * twipsFromPixels(1)};
        for (int index = 0; index < 4; ++index) values_[index] = static_cast<float>(twips[index]);
        onCall = [this](const Call& call) {
            V_VT(call.result) = VT_R4;
            V_R4(call.result) = values_[call.id - 1];
            return S_OK;
        };
    }

private:
    float values_[4];
};

// A window whose client area is not its outer corner.
class Framed : public testing::Test {
protected:
    Framed()
        : window(
              CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW, 100, 80, 400, 300, nullptr, nullptr, nullptr, nullptr))
    {}
    ~Framed() override { DestroyWindow(window); }

    const HWND window;
    float x = -1;
    float y = -1;
    std::int32_t width = -1;
    std::int32_t height = -1;
};

}

TEST_F(Framed, Control_IsMeasuredFromTheWindowsOuterCorner)
{
    POINT client{0, 0};
    RECT outer;
    ClientToScreen(window, &client);
    GetWindowRect(window, &outer);
    ASSERT_GT(client.y, outer.top) << "a title bar is needed here";

    Control control(20, 30, 150, 25);
    GetRelPt(window, Object(&control), x, y, width, height);
    EXPECT_EQ(x, static_cast<float>(20 + client.x - outer.left));
    EXPECT_EQ(y, static_cast<float>(30 + client.y - outer.top));
    EXPECT_EQ(width, 150);
    EXPECT_EQ(height, 25);
}

TEST_F(Framed, ControlWithoutItsMembers_LeavesTheResultsAsTheyAre)
{
    support::RawPartner nothing;
    EXPECT_NO_THROW(GetRelPt(window, Object(&nothing), x, y, width, height));
    EXPECT_NO_THROW(GetRelPt(window, Object(), x, y, width, height));
    EXPECT_EQ(x, -1);
    EXPECT_EQ(y, -1);
    EXPECT_EQ(width, -1);
    EXPECT_EQ(height, -1);
}

TEST_F(Framed, FractionsOfAPixel_AreCutOff)
{
    support::RawPartner control({{L"Left", 1}, {L"Top", 2}, {L"Width", 3}, {L"Height", 4}});
    const double twips = twipsFromPixels(1);
    control.onCall = [twips](const support::RawPartner::Call& call) {
        V_VT(call.result) = VT_R8;
        V_R8(call.result) = twips * (10 * call.id) + twips * 0.9;
        return S_OK;
    };
    POINT client{0, 0};
    RECT outer;
    ClientToScreen(window, &client);
    GetWindowRect(window, &outer);
    GetRelPt(window, Object(&control), x, y, width, height);
    EXPECT_EQ(x, static_cast<float>(10 + client.x - outer.left));
    EXPECT_EQ(y, static_cast<float>(20 + client.y - outer.top));
    EXPECT_EQ(width, 30);
    EXPECT_EQ(height, 40);
}

}
