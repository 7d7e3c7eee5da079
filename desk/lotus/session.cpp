// NotesSession: the user, the environment and the way to the databases.
#include "automation/error.h"
#include "desk/common/text.h"
#include "desk/lotus/objects.h"

namespace desk::lotus {

namespace {

class Session final : public NotesTable<Session> {
public:
    explicit Session(Notes& notes) : NotesTable(notes, L"NotesSession"), notes_(notes) {}
    static const std::vector<MemberRow<Session>>& members();

private:
    DISPID ownId(std::wstring_view name) override
    {
        const bool isMissing = !notes_.behaviour.hasServerName && lowerCase(name) == L"servername";
        return isMissing ? DISPID_UNKNOWN : NotesTable::ownId(name);
    }

    Value database(const IncomingCall& call)
    {
        const std::wstring place = call.arguments.text(0);
        const std::wstring filePath = call.arguments.text(1);
        const SharedDatabase database = notes_.database(place, filePath);
        if (database && database->canBeOpened) return databaseValue(notes_, database);
        const bool evenSo = !call.arguments.isGiven(2) || call.arguments.isTrue(2);
        return evenSo ? closedDatabaseValue(notes_, place, filePath) : Value(automation::Object());
    }

    // Variables of users are marked so that they never meet those of Notes.
    static std::wstring variable(const IncomingCall& call, std::size_t system)
    {
        const std::wstring name = call.arguments.text(0);
        return call.arguments.isGiven(system) && call.arguments.isTrue(system) ? name : L"$" + name;
    }

    Value environmentText(const IncomingCall& call) const
    {
        const std::wstring* value = notes_.environment(variable(call, 1));
        return value ? *value : std::wstring();
    }

    // A number; the text where it is none.
    Value environmentValue(const IncomingCall& call) const
    {
        const std::wstring* value = notes_.environment(variable(call, 1));
        if (!value) return {};
        Value number;
        VARIANT text = Value(*value).release();
        const HRESULT result = VariantChangeType(number.receive(), &text, 0, VT_R8);
        VariantClear(&text);
        return SUCCEEDED(result) ? number : Value(*value);
    }

    Value setEnvironment(const IncomingCall& call)
    {
        const std::wstring name = call.arguments.text(0);
        notes_.setEnvironment(name.starts_with(L'$') ? name : variable(call, 2), call.arguments.text(1));
        return {};
    }

    Notes& notes_;
};

const std::vector<MemberRow<Session>>& Session::members()
{
    static const std::vector<MemberRow<Session>> rows{
        {L"GetDatabase", 0x101, server::method, 2, 3,
         [](Session& self, const IncomingCall& call) -> Value { return self.database(call); }},
        {L"GetEnvironmentString", 0x102, server::method, 1, 2,
         [](Session& self, const IncomingCall& call) -> Value { return self.environmentText(call); }},
        {L"GetEnvironmentValue", 0x103, server::method, 1, 2,
         [](Session& self, const IncomingCall& call) -> Value { return self.environmentValue(call); }},
        {L"SetEnvironmentVar", 0x104, server::method, 2, 3,
         [](Session& self, const IncomingCall& call) -> Value { return self.setEnvironment(call); }},
        {L"NotesVersion", 0x105, server::readOnly, 0, 0,
         [](Session& self, const IncomingCall&) -> Value { return self.notes_.version; }},
        {L"UserName", 0x106, server::readOnly, 0, 0,
         [](Session& self, const IncomingCall&) -> Value { return self.notes_.userName; }},
        {L"EffectiveUserName", 0x107, server::readOnly, 0, 0,
         [](Session& self, const IncomingCall&) -> Value { return self.notes_.userName; }},
        {L"CommonUserName", 0x108, server::readOnly, 0, 0,
         [](Session& self, const IncomingCall&) -> Value { return commonName(self.notes_.userName); }},
        {L"Platform", 0x109, server::readOnly, 0, 0,
         [](Session&, const IncomingCall&) -> Value { return L"Windows/32"; }},
        // A client outside Notes runs on no server and in no database.
        {L"ServerName", 0x10A, server::readOnly, 0, 0, [](Session&, const IncomingCall&) -> Value { return L""; }},
        {L"IsOnServer", 0x10B, server::readOnly, 0, 0, [](Session&, const IncomingCall&) -> Value { return false; }},
        {L"CurrentDatabase", 0x10C, server::readOnly, 0, 0,
         [](Session&, const IncomingCall&) -> Value { return automation::Object(); }},
    };
    return rows;
}

}

automation::ComPtr<IDispatch> makeSession(Notes& notes)
{
    return server::make<Session>(notes);
}

}
