#include "desk/outlook/table_columns.h"

#include "automation/server/collection.h"
#include "desk/outlook/members.h"
#include "desk/outlook/outlook_object.h"

namespace desk::outlook {

namespace {

class Column final : public OutlookTable<Column> {
public:
    Column(Outlook& outlook, const Field& field) : OutlookTable(outlook, L"Column"), field_(field) {}
    static const std::vector<MemberRow<Column>>& members();

private:
    const Field& field_;
};

class Columns final : public OutlookTable<Columns> {
public:
    explicit Columns(std::shared_ptr<TableData> table)
        : OutlookTable(table->outlook(), L"Columns"), table_(std::move(table))
    {}
    static const std::vector<MemberRow<Columns>>& members();

private:
    Value one(const Field& field) const { return server::valueOf(server::make<Column>(outlook(), field)); }

    Value enumeration() const
    {
        std::vector<Value> values;
        for (const Field* field : table_->columns()) values.push_back(one(*field));
        return server::enumerationOf(std::move(values));
    }

    const std::shared_ptr<TableData> table_;
};

const std::vector<MemberRow<Column>>& Column::members()
{
    static const std::vector<MemberRow<Column>> rows{
        {L"Name", members::name, server::readOnly, 0, 0,
         [](Column& self, const IncomingCall&) -> Value { return self.field_.name; }},
    };
    return rows;
}

const std::vector<MemberRow<Columns>>& Columns::members()
{
    static const std::vector<MemberRow<Columns>> rows{
        {L"Item", members::item, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 1, 1,
         [](Columns& self, const IncomingCall& call) -> Value {
             return self.one(*self.table_->columns()[self.table_->columnIndex(call.arguments.value(0))]);
         }},
        {L"Count", members::count, server::readOnly, 0, 0,
         [](Columns& self, const IncomingCall&) -> Value {
             return static_cast<std::int32_t>(self.table_->columns().size());
         }},
        {L"Add", members::add, server::method, 1, 1,
         [](Columns& self, const IncomingCall& call) -> Value {
             self.outlook().guard().ask();
             return self.one(self.table_->addColumn(call.arguments.text(0)));
         }},
        {L"Remove", members::removeAt, server::method, 1, 1,
         [](Columns& self, const IncomingCall& call) -> Value {
             self.table_->removeColumn(self.table_->columnIndex(call.arguments.value(0)));
             return {};
         }},
        {L"RemoveAll", 0x55, server::method, 0, 0,
         [](Columns& self, const IncomingCall&) -> Value { return self.table_->removeColumns(), Value(); }},
        {L"_NewEnum", DISPID_NEWENUM, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 0, 0,
         [](Columns& self, const IncomingCall&) -> Value { return self.enumeration(); }},
    };
    return rows;
}

}

Value columnsOf(const std::shared_ptr<TableData>& table)
{
    return server::valueOf(server::make<Columns>(table));
}

}
