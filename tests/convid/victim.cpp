// A process for the tests to kill.
//   convid_victim store PATH       inserts into a store of its own without pause and
//                                  notes the number of the last answered insertion
//   convid_victim client           holds an object of the server, inserts, and dies
//   convid_victim later            looks up what "client" inserted; 0 when it is there
#include "automation/apartment.h"
#include "automation/object.h"
#include "convid/identifier_store.h"

#include <shellapi.h>

#include <string>
#include <string_view>

namespace {

int insertWithoutPause(const wchar_t* path)
{
    const HANDLE shared = OpenFileMappingW(FILE_MAP_WRITE, FALSE, L"convid-answered");
    auto* const answered = static_cast<volatile LONG*>(MapViewOfFile(shared, FILE_MAP_WRITE, 0, 0, 4));
    if (!answered) return 1;
    convid::IdentifierStore store(path, {.compactionFloor = 10, .timeout = 2'000});
    store.insert({.idOrvel = L"8.8", .idAppli = L"stays", .typApplication = 1, .collection = 0});
    for (LONG number = 0;; ++number) {
        store.insert({.idOrvel = L"5.7", .idAppli = std::to_wstring(number), .typApplication = 0, .collection = 1});
        *answered = number;
    }
}

int dieAsClient()
{
    const automation::Apartment apartment;
    const auto map = automation::Object::create(L"PavexConvId.OrvelConvertId");
    map.call(L"InsertId", {L"inserted before death", L"6.6", std::int32_t{0}, std::int32_t{1}});
    TerminateProcess(GetCurrentProcess(), 9);
    return 0;
}

int lookUpAsClient()
{
    const automation::Apartment apartment;
    const auto map = automation::Object::create(L"PavexConvId.OrvelConvertId");
    automation::Value text(std::wstring(1024, L'\0'));
    automation::Value length(std::int32_t{1024});
    map.call(L"ConvertIdOrvel", {L"6.6", byRef(text), byRef(length), std::int32_t{0}});
    return text.text().substr(0, static_cast<std::size_t>(length.int32())) == L"inserted before death" ? 0 : 4;
}

}

int main()
try {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count == 3 && std::wstring_view(words[1]) == L"store") return insertWithoutPause(words[2]);
    if (count == 2 && std::wstring_view(words[1]) == L"client") return dieAsClient();
    if (count == 2 && std::wstring_view(words[1]) == L"later") return lookUpAsClient();
    return 2;
} catch (const std::exception&) {
    return 3;
}
