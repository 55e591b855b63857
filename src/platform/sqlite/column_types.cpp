#include "platform/sqlite/column_types.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <type_traits>
#include <utility>

#include "runtime/text.h"

namespace t_genproc::sqlite {
namespace {

using t_gencvf::FieldType;

struct ColumnType {
    FieldType type;
    std::string_view declared;
};
constexpr std::array kColumnTypes{
    ColumnType{FieldType::Any, ""},          ColumnType{FieldType::Boolean, "BOOLEAN"},
    ColumnType{FieldType::Byte, "BYTE"},     ColumnType{FieldType::Integer, "SMALLINT"},
    ColumnType{FieldType::Long, "INTEGER"},  ColumnType{FieldType::Single, "SINGLE"},
    ColumnType{FieldType::Double, "DOUBLE"}, ColumnType{FieldType::Date, "DATETIME"},
    ColumnType{FieldType::Text, "TEXT"},
};

/// As the first of these types that holds it, or else as a double.
template <class... Types>
Variant narrowest(std::int64_t whole) {
    Variant value = static_cast<double>(whole);
    static_cast<void>(((std::in_range<Types>(whole) && (value = static_cast<Types>(whole), true)) || ...));
    return value;
}

/// As a single where it is one.
Variant single(double number) {
    constexpr double kMost = std::numeric_limits<float>::max();
    const bool isInRange = std::abs(number) <= kMost || std::isinf(number);
    if (!isInRange || double{static_cast<float>(number)} != number) return number;
    return static_cast<float>(number);
}

Variant ofNumber(FieldType type, double number) {
    switch (type) {
        case FieldType::Single: return single(number);
        case FieldType::Date: return Date{number};
        default: return number;
    }
}

Variant ofWhole(FieldType type, std::int64_t whole) {
    const bool isTruth = whole >= -1 && whole <= 1;
    switch (type) {
        case FieldType::Boolean: return isTruth ? whole != 0 : narrowest<std::int16_t, std::int32_t>(whole);
        case FieldType::Byte: return narrowest<std::uint8_t, std::int16_t, std::int32_t>(whole);
        case FieldType::Long: return narrowest<std::int32_t>(whole);
        case FieldType::Single:
        case FieldType::Double:
        case FieldType::Date: return ofNumber(type, static_cast<double>(whole));
        default: return narrowest<std::int16_t, std::int32_t>(whole);
    }
}

}  // namespace

std::string_view declaredType(FieldType type) {
    return std::ranges::find(kColumnTypes, type, &ColumnType::type)->declared;
}

FieldType fieldType(std::string_view declared) {
    for (const ColumnType& row : kColumnTypes) {
        if (text::equalIgnoringCase(row.declared, declared)) return row.type;
    }
    return FieldType::Any;
}

Variant valueOf(FieldType type, const Cell& cell) {
    if (const auto* whole = std::get_if<std::int64_t>(&cell)) return ofWhole(type, *whole);
    if (const auto* number = std::get_if<double>(&cell)) return ofNumber(type, *number);
    if (const auto* text = std::get_if<std::string_view>(&cell)) return std::string(*text);
    return Null{};
}

Cell cellOf(const Variant& value) {
    return std::visit(
        []<class Value>(const Value& held) -> Cell {
            if constexpr (std::is_same_v<Value, bool>) return std::int64_t{held ? -1 : 0};
            if constexpr (std::is_integral_v<Value>) return std::int64_t{held};
            if constexpr (std::is_floating_point_v<Value>) return double{held};
            if constexpr (std::is_same_v<Value, Date>) return held.value;
            if constexpr (std::is_same_v<Value, std::string>) return std::string_view(held);
            return Null{};
        },
        value);
}

}  // namespace t_genproc::sqlite
