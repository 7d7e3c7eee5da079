#include "common/softphone_id.h"

#include "automation/conversion.h"
#include "automation/error.h"
#include "common/text.h"

namespace hublink {

std::wstring textFromSoftphoneId(SoftphoneId id)
{
    return std::to_wstring(id.IdHigh) + L"." + std::to_wstring(id.IdLow);
}

SoftphoneId softphoneIdFromText(const std::wstring& text)
{
    const auto parts = split(text, L'.');
    if (parts.size() > 3) return {};
    if (parts.size() < 2) throw automation::AutomationError(L"softphone identifier", DISP_E_BADINDEX);
    return {automation::int32FromText(parts[0]), automation::int32FromText(parts[1])};
}

}
