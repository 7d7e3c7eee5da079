// A softphone inside the test's own process, as a client sees it.
#pragma once

#include "automation/object.h"
#include "desk/softphone/softphone.h"

#include <gtest/gtest.h>

class SoftphoneFixture : public testing::Test {
protected:
    desk::Recorder recorder;
    desk::softphone::Softphone softphone{recorder};

    automation::Object application() const { return automation::Object(softphone.application().get()); }
    automation::Object line() const { return application().get(10).object(); }
    automation::Object history() const { return application().get(11).object(); }
    automation::Object addressBook() const { return application().get(12).object(); }
};
