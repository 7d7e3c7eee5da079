// The player keeps hold of the partner that serves, however it was started.
#include "desk_fixture.h"

#include "automation/object.h"

namespace {

using automation::Object;

class Player : public DeskFixture {};

}

TEST_F(Player, PartnerThatAClientHasStartedMeanwhile_IsTheOneWatched)
{
    const Object client = Object::create(L"Outlook.Application");
    desk.startOutlook();
    const DWORD watched = desk.outlookProcess().id();
    EXPECT_EQ(desk.outlook(L"ping"), L"outlook " + std::to_wstring(watched));
    EXPECT_TRUE(desk.outlookProcess().running());
    desk.closeOutlook();
    EXPECT_FALSE(desk.outlookProcess().running());
}

TEST_F(Player, PartnerThatIsRestarted_HasItsNextProcessAtOnce)
{
    desk.startOutlook("[contact]\nFullName=Ann Abel\n");
    const DWORD first = desk.outlookProcess().id();
    desk.restartOutlook();
    EXPECT_NE(desk.outlookProcess().id(), first);
    EXPECT_TRUE(desk.outlookProcess().running());
    EXPECT_TRUE(desk.record(L"contacts", L"FullName", L"Ann Abel"));
}
