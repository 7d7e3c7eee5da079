// What the softphone's automation objects share.
#pragma once

#include "automation/com_ptr.h"
#include "desk/common/recorder.h"
#include "desk/softphone/answers.h"
#include "desk/softphone/contents.h"
#include "desk/softphone/type_library.h"

#include <functional>
#include <optional>

namespace desk::softphone {

// How a client may find the events of an object. Each way can be closed, so
// that a client's next one can be tried; with all of them closed only the
// registered type library is left.
struct Discovery {
    bool classInfo2 = true; // IProvideClassInfo2
    bool classInfo = true;  // IProvideClassInfo
    bool typeInfo = true;   // IDispatch::GetTypeInfo
};

struct Phone {
    explicit Phone(Recorder& calls) noexcept : recorder(calls) {}

    void tellChanged() const
    {
        if (changed) changed();
    }

    Recorder& recorder;
    Contents contents;
    Discovery discovery;
    Answers answers;
    TypeLibrary types;
    bool attached = false;
    std::optional<CallRecord> call;               // the call on the line
    std::optional<std::int32_t> historyCount;     // told in place of the true number
    std::optional<std::int32_t> addressBookCount;
    std::function<void()> changed;                // after a change that a person may see
};

}
