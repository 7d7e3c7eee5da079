#include "lotus/database_layout.h"

#include "common/text.h"

namespace hublink {

void SplitBaseDescription(const std::wstring& text, LotusBaseRef& locator)
{
    const std::vector<std::wstring> parts = split(text, L'|');
    if (parts.size() < 5) return;
    locator.Base = parts[0];
    locator.Server = parts[1];
    locator.MainView = parts[2];
    locator.ViewTel = parts[3];
    locator.ViewMail = parts[4];
}

}
