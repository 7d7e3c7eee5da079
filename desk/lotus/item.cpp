#include "desk/lotus/item.h"

#include "automation/error.h"
#include "desk/common/text.h"

#include <deque>
#include <unordered_map>

namespace desk::lotus {

namespace {

using automation::Value;
using automation::check;

constexpr DISPID firstId = 0x10000;

std::deque<ItemName>& allNames()
{
    static std::deque<ItemName> names;
    return names;
}

std::unordered_map<std::wstring, const ItemName*>& namesBySpelling()
{
    static std::unordered_map<std::wstring, const ItemName*> names;
    return names;
}

const ItemName& newName(std::wstring spelling)
{
    const std::wstring lower = lowerCase(spelling);
    const ItemName* folded = lower == spelling ? nullptr : &itemName(lower);
    ItemName& name = allNames().emplace_back();
    name.spelling = std::move(spelling);
    name.folded = folded ? folded : &name;
    name.asMember = {name.spelling.c_str(), DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT};
    name.id = firstId + static_cast<DISPID>(allNames().size() - 1);
    namesBySpelling().emplace(name.spelling, &name);
    return name;
}

Value number(double value)
{
    Value result;
    VARIANT* variant = result.receive();
    V_VT(variant) = VT_R8;
    V_R8(variant) = value;
    return result;
}

// An element of an array of any type.
Value element(SAFEARRAY* array, VARTYPE type, LONG index)
{
    Value result;
    VARIANT* variant = result.receive();
    void* target = type == VT_VARIANT ? static_cast<void*>(variant) : static_cast<void*>(&V_I4(variant));
    check(SafeArrayGetElement(array, &index, target), L"SafeArrayGetElement");
    if (type != VT_VARIANT) V_VT(variant) = type;
    return result;
}

// As SafeArrayPutElement takes it: a text itself, all else by its address.
void* elementOf(const Value& value, VARTYPE type)
{
    auto& variant = const_cast<VARIANT&>(value.variant());
    if (type == VT_VARIANT) return &variant;
    return type == VT_BSTR ? static_cast<void*>(V_BSTR(&variant)) : &V_R8(&variant);
}

ItemType typeFor(VARTYPE type)
{
    switch (type) {
    case VT_BSTR:
    case VT_EMPTY: return ItemType::text;
    case VT_DATE: return ItemType::date;
    case VT_DISPATCH:
    case VT_UNKNOWN:
    case VT_NULL:
    case VT_ERROR: throw automation::AutomationError(L"item", DISP_E_TYPEMISMATCH);
    default: return ItemType::number;
    }
}

}

const ItemName& itemName(std::wstring_view spelling)
{
    std::wstring wanted(spelling);
    const auto found = namesBySpelling().find(wanted);
    return found == namesBySpelling().end() ? newName(std::move(wanted)) : *found->second;
}

const ItemName* itemNameOf(DISPID id) noexcept
{
    const auto index = static_cast<std::size_t>(id - firstId);
    return id < firstId || index >= allNames().size() ? nullptr : &allNames()[index];
}

Item textItem(const ItemName& name, std::wstring text)
{
    Item item{&name};
    item.texts.push_back(std::move(text));
    return item;
}

Value valueAt(const Item& item, std::size_t index)
{
    if (item.isText()) return item.texts[index];
    return item.type == ItemType::date ? Value::date(item.numbers[index]) : number(item.numbers[index]);
}

Value valuesOf(const Item& item, bool typed)
{
    std::vector<Value> values;
    for (std::size_t index = 0; index < item.size(); ++index) values.push_back(valueAt(item, index));
    if (!typed || item.type == ItemType::date) return arrayOf(values);
    return arrayOf(values, item.isText() ? VT_BSTR : VT_R8);
}

std::wstring textAt(const Item& item, std::size_t index)
{
    return item.isText() ? item.texts[index] : valueAt(item, index).text();
}

std::wstring textOf(const Item& item)
{
    std::wstring text;
    for (std::size_t index = 0; index < item.size(); ++index) text += (index ? L";" : L"") + textAt(item, index);
    return text;
}

Value arrayOf(const std::vector<Value>& values, VARTYPE type)
{
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(values.size()));
    if (!array) throw std::bad_alloc();
    Value result;
    VARIANT* variant = result.receive();
    V_VT(variant) = static_cast<VARTYPE>(VT_ARRAY | type);
    V_ARRAY(variant) = array;
    for (LONG index = 0; index < static_cast<LONG>(values.size()); ++index)
        check(SafeArrayPutElement(array, &index, elementOf(values[static_cast<std::size_t>(index)], type)),
              L"SafeArrayPutElement");
    return result;
}

std::vector<Value> elementsOf(const Value& value)
{
    if (!(value.type() & VT_ARRAY)) return {value};
    SAFEARRAY* const array = V_ARRAY(&value.variant());
    LONG lower = 0;
    LONG upper = -1;
    check(SafeArrayGetLBound(array, 1, &lower), L"SafeArrayGetLBound");
    check(SafeArrayGetUBound(array, 1, &upper), L"SafeArrayGetUBound");
    std::vector<Value> elements;
    for (LONG index = lower; index <= upper; ++index)
        elements.push_back(element(array, static_cast<VARTYPE>(value.type() & VT_TYPEMASK), index));
    return elements;
}

Item itemFrom(const ItemName& name, const Value& value)
{
    const std::vector<Value> elements = elementsOf(value);
    Item item{&name};
    if (elements.empty()) return textItem(name, L"");
    item.type = typeFor(elements[0].type());
    for (const Value& each : elements) {
        if (item.isText()) item.texts.push_back(each.type() == VT_EMPTY ? L"" : each.text());
        else item.numbers.push_back(item.type == ItemType::date ? each.asDate() : each.number());
    }
    return item;
}

}
