#include "lotus/database_layout.h"

#include "common/text.h"

namespace hublink {

void SplitBaseDescription(const std::wstring& Text, LotusBaseRef& Record)
{
    const std::vector<std::wstring> parts = split(Text, L'|');
    if (parts.size() < 5) return;
    Record.Base = parts[0];
    Record.Server = parts[1];
    Record.MainView = parts[2];
    Record.ViewTel = parts[3];
    Record.ViewMail = parts[4];
}

}
