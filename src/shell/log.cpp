#include "automation/conversion.h"
#include "common/error_trap.h"
#include "lotus/log_document.h"
#include "outlook/log_item.h"
#include "shell/hublink.h"

namespace hublink {

void Hublink::WriteLog(const std::wstring& szMessage)
{
    trapErrors([&] {
        if (lotus_.LotusReady) WriteLotusLog(lotus_, szMessage);
        if (outlook_.bOutlookInit) LogToOutlookJournal(outlook_, szMessage);
        if (configuration_.Trace) showMessage(szMessage);
    });
}

void Hublink::showMessage(const std::wstring& szMessage)
{
    messageBox(szMessage, MB_OK);
}

// 0 when it cannot be shown.
int Hublink::messageBox(const std::wstring& text, UINT flags)
{
    return sessionEnds_ ? 0 : desktop_.messageBox(text, flags);
}

void Hublink::pause(std::int32_t milliseconds)
{
    if (milliseconds > 0) Sleep(static_cast<DWORD>(milliseconds));
}

DATE Hublink::now() const
{
    return automation::now();
}

}
