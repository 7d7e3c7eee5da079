// smallest.exe: a partner of the desk with all that a partner needs and nothing more.
// Who writes a new one begins here; the tests of the frame around every partner use it.
#include "desk/common/recorded_object.h"
#include "desk/common/server_program.h"

#include <windows.h>

#include <algorithm>

namespace {

using automation::Value;
using automation::server::IncomingCall;
using automation::server::MemberRow;
namespace server = automation::server;

// An identifier of its own: clients go by the name.
constexpr CLSID classId = {0x2F0B6C1D, 0x8E47, 0x4A52, {0xA1, 0x3B, 0x5D, 0x90, 0xC7, 0x1E, 0x62, 0x48}};

// The class that clients create. Its members are rows: name, identifier, kind, least
// and most arguments, what the member does.
class Directory final : public desk::RecordedTable<Directory> {
public:
    explicit Directory(desk::Program& program) : RecordedTable(program.recorder(), L"Directory"), program_(program) {}
    static const std::vector<MemberRow<Directory>>& members();

    std::vector<std::wstring> names;

private:
    void add(const std::wstring& name)
    {
        names.push_back(name);
        program_.changed();
    }

    desk::Program& program_;
};

const std::vector<MemberRow<Directory>>& Directory::members()
{
    static const std::vector<MemberRow<Directory>> rows{
        {L"Count", 1, server::readOnly, 0, 0,
         [](Directory& self, const IncomingCall&) -> Value { return static_cast<std::int32_t>(self.names.size()); }},
        {L"Add", 2, server::method, 1, 1,
         [](Directory& self, const IncomingCall& call) -> Value {
             self.add(call.arguments.text(0));
             return Value();
         }},
    };
    return rows;
}

class Smallest final : public desk::Partner {
public:
    explicit Smallest(desk::Program& program) : directory_(server::make<Directory>(program)) {}

    automation::ComPtr<IDispatch> object(const CLSID&) override { return directory_; }

    // All or nothing: the names are replaced once every record has been understood.
    void load(const std::vector<desk::StoreRecord>& records) override
    {
        std::vector<std::wstring> names;
        for (const desk::StoreRecord& record : records) {
            const std::wstring* const name = record.find(L"Name");
            if (!name) desk::refuseRecord(record, "a person without a name");
            names.push_back(*name);
        }
        directory_->names = std::move(names);
    }

    std::vector<desk::StoreRecord> records() const override
    {
        std::vector<desk::StoreRecord> records;
        for (const std::wstring& name : directory_->names) records.push_back({L"person", {{L"Name", name}}});
        return records;
    }

    std::optional<std::wstring> command(const std::wstring& word, std::wstring_view rest) override
    {
        if (word != L"knows") return std::nullopt;
        const auto& names = directory_->names;
        return std::find(names.begin(), names.end(), rest) != names.end() ? L"yes" : L"no";
    }

private:
    const automation::ComPtr<Directory> directory_;
};

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const desk::ProgramDescription description{
        L"smallest", {{L"Desk.Smallest", classId, L"The desk's smallest partner"}}, L"smallest.store.txt"};
    return desk::runProgram(description, [](desk::Program& program) { return std::make_unique<Smallest>(program); });
}
