// What the tests of the softphone link share: a simulated softphone and
// Outlook and the real identifier map, all in this process behind real class
// factories, and the link between them.
#pragma once

#include "automation/server/class_factory.h"
#include "automation/server/registration.h"
#include "common/dictionary.h"
#include "convid/class_identity.h"
#include "convid/map_object.h"
#include "desk/common/text.h"
#include "desk/outlook/outlook.h"
#include "desk/softphone/guids.h"
#include "desk/softphone/softphone.h"
#include "fallible_map.h"
#include "outlook/initialisation.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_session.h"
#include "support/outlook_records.h"
#include "support/scratch_folder.h"
#include "support/test_host.h"

#include <gtest/gtest.h>

#include <optional>

namespace hublink {

using Lines = std::vector<std::wstring>;

class LinkFixture : public testing::Test {
protected:
    LinkFixture()
    {
        namespace server = automation::server;
        server::registerClass(pavexClass, server::programPath());
        server::registerClass(convid::classRegistration, server::programPath());
        pavexFactory.emplace(pavexClass.classId, [this] { return pavex.application(); });
        offerMap();
        host.settings.bgWithOutlook = true;
        host.settings.szFileConnectorIni = L"C:\\no such folder\\pavexconnector.ini";
        pavex.phone().contents.user = {L"Anna", L"Keller", L"4700"};
        outlookSession.OutlookApp = automation::Object(outlook.application().get());
    }

    ~LinkFixture() override
    {
        namespace server = automation::server;
        server::unregisterClass(pavexClass);
        server::unregisterClass(convid::classRegistration);
    }

    void offerMap()
    {
        mapFactory.emplace(convid::classRegistration.classId, [this] {
            const automation::ComPtr<IDispatch> map = automation::server::make<convid::MapObject>(store);
            return automation::ComPtr<IDispatch>(automation::server::make<FallibleMap>(map, mapCalls));
        });
    }

    // Records of Outlook in the store's text form, then the link's own start.
    void start(const std::wstring& contacts = L"")
    {
        outlook.load(desk::parseStore(contacts));
        link.Class_Initialize();
        outlookCalls.clear();
        softphoneCalls.clear();
    }

    void ring(desk::softphone::CallRecord call)
    {
        pavex.ring(std::move(call));
        host.runDeferred();
    }

    // Titles of the open item windows, a line each.
    std::wstring windows()
    {
        std::vector<std::wstring> titles;
        for (const std::wstring& line : desk::linesOf(*outlook.command(L"windows", L"")))
            titles.push_back(line.substr(0, line.find(L'\t')));
        return desk::joined(titles);
    }

    std::wstring field(const wchar_t* kind, std::size_t index, const wchar_t* name)
    {
        return support::savedField(outlook, kind, index, name);
    }

    std::size_t count(const wchar_t* kind) { return support::savedCount(outlook, kind); }

    // The log without the two lines of the initialisation itself.
    std::vector<std::wstring> synchronisationLines() const
    {
        std::vector<std::wstring> found;
        for (const std::wstring& line : host.log)
            if (line.find(L"Connector Initialization") == std::wstring::npos) found.push_back(line);
        return found;
    }

    std::wstring mapped(const wchar_t* id, std::int32_t application = 0)
    {
        const auto record = store->find(id, application);
        return record ? record->idAppli : L"";
    }

    static constexpr automation::server::ClassRegistration pavexClass{.progId = desk::softphone::progId,
                                                                      .classId = desk::softphone::applicationClassId,
                                                                      .description = L"softphone of a test",
                                                                      .typeLibrary = {}};

    support::ScratchFolder folder;
    TestHost host;
    GroupwareState groupware;
    Dictionary dictionary{L"C:\\nowhere"};
    desk::Recorder outlookCalls;
    desk::outlook::NoScreen screen;
    desk::outlook::Outlook outlook{outlookCalls, screen};
    desk::Recorder softphoneCalls;
    desk::softphone::Softphone pavex{softphoneCalls};
    desk::Recorder mapCalls;
    std::shared_ptr<convid::IdentifierStore> store = std::make_shared<convid::IdentifierStore>(folder.file(L"map"));
    std::optional<automation::server::ClassFactory> pavexFactory;
    std::optional<automation::server::ClassFactory> mapFactory;
    OutlookSession outlookSession{host, groupware, dictionary};
    LotusSession lotusSession{host, groupware, dictionary};
    SoftphoneSession session{host, groupware, outlookSession, lotusSession};
    PavexInterface link{session};
};

}
