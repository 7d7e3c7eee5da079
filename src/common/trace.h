// What `trace=true` in the ini file shows beyond the log.
#pragma once

#include "common/configuration.h"
#include "common/host.h"

namespace hublink {

// With `Trace` on a message box with the text; returns when the user has closed it.
inline void showTrace(Host& host, const std::wstring& text)
{
    if (host.configuration().Trace) host.showMessage(text);
}

}
