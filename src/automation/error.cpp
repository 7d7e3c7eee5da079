#include "automation/error.h"

#include "automation/text.h"

#include <cstdio>
#include <utility>

namespace automation {

AutomationError::AutomationError(std::wstring member, HRESULT code, std::wstring source, std::wstring description,
                                 unsigned argument)
    : member_(std::move(member)), code_(code), source_(std::move(source)), description_(std::move(description)),
      argument_(argument)
{
    char number[16];
    std::snprintf(number, sizeof number, "0x%08lX", static_cast<unsigned long>(code_));
    what_ = toAnsi(member_) + ": " + number;
    if (!source_.empty()) what_ += " from " + toAnsi(source_);
    if (!description_.empty()) what_ += ": " + toAnsi(description_);
    if (argument_ != noArgument) what_ += " (argument " + std::to_string(argument_) + ")";
}

void check(HRESULT result, const wchar_t* operation)
{
    if (FAILED(result)) throw AutomationError(operation, result);
}

}
