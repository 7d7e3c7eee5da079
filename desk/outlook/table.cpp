#include "desk/outlook/table.h"

#include "desk/outlook/application.h"
#include "desk/outlook/errors.h"
#include "desk/outlook/members.h"
#include "desk/outlook/outlook_object.h"
#include "desk/outlook/table_columns.h"
#include "desk/outlook/table_data.h"

#include <algorithm>

namespace desk::outlook {

namespace {

constexpr long tableClass = 120;

// An array that Value takes over.
Value arrayValue(SAFEARRAY* array)
{
    if (!array) throw std::bad_alloc();
    Value value;
    VARIANT* variant = value.receive();
    V_VT(variant) = VT_ARRAY | VT_VARIANT;
    V_ARRAY(variant) = array;
    return value;
}

// The cells of some rows, by column and row or by row and column, both from 0.
Value cells(TableData& table, std::size_t first, std::size_t count)
{
    const auto& columns = table.columns();
    const bool columnsFirst = table.outlook().setup().arrayShape == ArrayShape::columnsFirst;
    const auto extents = columnsFirst ? std::pair(columns.size(), count) : std::pair(count, columns.size());
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(extents.first), 0}, {static_cast<ULONG>(extents.second), 0}};
    Value result = arrayValue(SafeArrayCreate(VT_VARIANT, 2, bounds));
    SAFEARRAY* array = V_ARRAY(&result.variant());
    VARIANT* cell = nullptr;
    automation::check(SafeArrayAccessData(array, reinterpret_cast<void**>(&cell)), L"SafeArrayAccessData");
    const std::vector<SavedItem>& rows = table.rows();
    for (std::size_t row = 0; row < count; ++row)
        for (std::size_t column = 0; column < columns.size(); ++column)
            cell[columnsFirst ? row * columns.size() + column : column * count + row] =
                table.cell(*rows[first + row], *columns[column]).release();
    SafeArrayUnaccessData(array);
    return result;
}

class Row final : public OutlookTable<Row> {
public:
    Row(std::shared_ptr<TableData> table, SavedItem item)
        : OutlookTable(table->outlook(), L"Row"), table_(std::move(table)), item_(std::move(item))
    {}
    static const std::vector<MemberRow<Row>>& members();

private:
    Value cell(const Value& key) const { return table_->cell(*item_, *table_->columns()[table_->columnIndex(key)]); }

    Value values() const
    {
        SAFEARRAYBOUND bound{static_cast<ULONG>(table_->columns().size()), 0};
        Value result = arrayValue(SafeArrayCreate(VT_VARIANT, 1, &bound));
        LONG index = 0;
        for (const Field* column : table_->columns()) {
            VARIANT cell = table_->cell(*item_, *column).release();
            SafeArrayPutElement(V_ARRAY(&result.variant()), &index, &cell);
            VariantClear(&cell);
            ++index;
        }
        return result;
    }

    const std::shared_ptr<TableData> table_;
    const SavedItem item_;
};

const std::vector<MemberRow<Row>>& Row::members()
{
    static const std::vector<MemberRow<Row>> rows{
        {L"Item", members::item, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 1, 1,
         [](Row& self, const IncomingCall& call) -> Value { return self.cell(call.arguments.value(0)); }},
        {L"GetValues", 0xFBE1, server::method, 0, 0,
         [](Row& self, const IncomingCall&) -> Value { return self.values(); }},
    };
    return rows;
}

class Table final : public OutlookTable<Table> {
public:
    explicit Table(std::shared_ptr<TableData> data) : OutlookTable(data->outlook(), L"Table"), data_(std::move(data)) {}
    static const std::vector<MemberRow<Table>>& members();

private:
    std::size_t left() const
    {
        const std::size_t rows = data_->rows().size();
        return rows - data_->current();
    }

    Value array(long most)
    {
        if (most < 0) raiseBadParameter();
        const auto wanted = static_cast<std::size_t>(most);
        if (outlook().version() == Version::v2007 && wanted > data_->rows().size()) raiseBadParameter();
        const std::size_t count = std::min(wanted, left());
        Value result = cells(*data_, data_->current(), count);
        data_->advance(count);
        outlook().blockWasRead();
        return result;
    }

    Value nextRow()
    {
        if (left() == 0) return automation::Object();
        const SavedItem item = data_->rows()[data_->current()];
        data_->advance(1);
        return server::valueOf(server::make<Row>(data_, item));
    }

    Value restricted(const std::wstring& filter) const
    {
        const auto copy = std::make_shared<TableData>(*data_);
        copy->restrictTo(filter);
        return server::valueOf(server::make<Table>(copy));
    }

    const std::shared_ptr<TableData> data_;
};

const std::vector<MemberRow<Table>>& Table::members()
{
    static const std::vector<MemberRow<Table>> rows{
        {L"Columns", 0xFBE5, server::readOnly, 0, 0,
         [](Table& self, const IncomingCall&) -> Value { return columnsOf(self.data_); }},
        {L"GetRowCount", 0xFBE6, server::method, 0, 0,
         [](Table& self, const IncomingCall&) -> Value {
             return static_cast<std::int32_t>(self.data_->rows().size());
         }},
        {L"GetArray", 0xFBE7, server::method, 1, 1,
         [](Table& self, const IncomingCall& call) -> Value { return self.array(call.arguments.int32(0)); }},
        {L"GetNextRow", 0xFBE8, server::method, 0, 0,
         [](Table& self, const IncomingCall&) -> Value { return self.nextRow(); }},
        {L"MoveToStart", 0xFBE9, server::method, 0, 0,
         [](Table& self, const IncomingCall&) -> Value { return self.data_->restart(), Value(); }},
        {L"EndOfTable", 0xFBEA, server::readOnly, 0, 0,
         [](Table& self, const IncomingCall&) -> Value { return self.left() == 0; }},
        {L"Restrict", 0xFBEB, server::method, 1, 1,
         [](Table& self, const IncomingCall& call) -> Value { return self.restricted(call.arguments.text(0)); }},
        {L"Application", members::application, server::readOnly, 0, 0,
         [](Table& self, const IncomingCall&) -> Value { return applicationOf(self.outlook()); }},
        {L"Session", members::session, server::readOnly, 0, 0,
         [](Table& self, const IncomingCall&) -> Value { return sessionOf(self.outlook()); }},
        {L"Class", members::objectClass, server::readOnly, 0, 0,
         [](Table&, const IncomingCall&) -> Value { return tableClass; }},
    };
    return rows;
}

}

Value tableOf(Outlook& outlook, Folder& folder, const std::wstring& filter)
{
    return server::valueOf(server::make<Table>(std::make_shared<TableData>(outlook, folder, filter)));
}

}
