// Numbers that no telephone has, but a softphone may tell: what an attacker or a
// careless gateway puts into a caller's identity. Each has something left when its
// dots and blanks are taken away.
#pragma once

#include <string>
#include <vector>

namespace support {

inline std::vector<std::wstring> strangeNumbers()
{
    using namespace std::string_literals;
    return {        // quotes
            L"'", L"''", L"'''", L"01'23", L"\"", L"01\"23", L"\"\"", L"'\"", L"O'Brien", L"`", L"\u2019",
        // conditions
            L"0'or[LastName]>'", L"0' or [LastName] > '", L"' or not [LastName] = '", L"x'or[LastName]<>'",
            L"0') or ([LastName] > '", L"0''or[LastName]>''", L"'or'1'='1", L"0' and [LastName] = 'Durand",
            L"[LastName]", L"[BusinessTelephoneNumber] = '0123'", L"0123' or [LastName] = 'Petit", L"@SQL=1=1",
        // words, brackets and signs of a condition
            L"or", L"And", L"not", L"(", L")", L"()", L"[", L"]", L"<>", L"=", L">", L"<=",
        // wildcards
            L"*", L"%", L"?", L"_", L"#", L"01%", L"*23", L"[0-9]*",
        // addresses, escapes, placeholders
            L"sip:marc@example.com", L"tel:+33-1-23", L"\\", L"\\0", L"%s%n", L"{0}", L"<LastName>", L"<PhoneNumber>",
            L"a|b", L"a;b", L"a,b", L"+1 (222) 333-4444",
        // control characters and signs beyond ASCII
            L"\x01", L"\x01\x02", L"01\t23", L"01\r\n23", L"\x7f",
            L"01\u00ad"
            L"23",
            L"01\u200b"
            L"23",
            L"\u0660\u0661", L"\u00e9", L"\U0001F4DE", L"\ufffd",
            L"01\0"
            L"23"s,
        // lengths
            std::wstring(126, L'7'), std::wstring(127, L'7'), std::wstring(255, L'8'), std::wstring(256, L'8'),
            std::wstring(5000, L'9'), std::wstring(300, L'\''), L"0'" + std::wstring(300, L'1') + L"'or[LastName]>'"};
}

}
