#include "host/table_record_set.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "runtime/errors.h"
#include "runtime/integers.h"
#include "runtime/text.h"

namespace t_gencvf {
namespace {

using t_genproc::ErrorNumber;

[[noreturn]] void raise(ErrorNumber number) { throw t_genproc::RuntimeError(number); }

/// The position of what bears the name.
template <class Items>
std::size_t positionOf(const Items& items, std::string_view name, ErrorNumber ifMissing) {
    const auto found = std::ranges::find_if(
        items, [&](const auto& item) { return t_genproc::text::equalIgnoringCase(item.name, name); });
    if (found == items.end()) raise(ifMissing);
    return static_cast<std::size_t>(found - items.begin());
}

bool isNothing(const Variant& value) {
    const auto* number = std::get_if<double>(&value);
    const auto* single = std::get_if<float>(&value);
    return t_genproc::isNull(value) || t_genproc::isEmpty(value) ||
           (number != nullptr && std::isnan(*number)) || (single != nullptr && std::isnan(*single));
}

float toSingle(const Variant& value) {
    if (const auto* single = std::get_if<float>(&value)) return *single;
    const double number = t_genproc::toDouble(value);
    constexpr double kMost = std::numeric_limits<float>::max();
    if (std::abs(number) > kMost && !std::isinf(number)) raise(ErrorNumber::Overflow);
    return static_cast<float>(number);
}

}  // namespace

Variant fieldValue(FieldType type, const Variant& value) {
    if (isNothing(value)) return t_genproc::Null{};
    switch (type) {
        case FieldType::Boolean: return t_genproc::toBoolean(value);
        case FieldType::Byte: return t_genproc::checkedNarrow<std::uint8_t>(t_genproc::toInt32(value));
        case FieldType::Integer: return t_genproc::toInt16(value);
        case FieldType::Long: return t_genproc::toInt32(value);
        case FieldType::Single: return toSingle(value);
        case FieldType::Double: return t_genproc::toDouble(value);
        case FieldType::Date: return t_genproc::Date{t_genproc::toDouble(value)};
        case FieldType::Text: return t_genproc::toText(value);
        case FieldType::Any: break;
    }
    if (std::holds_alternative<t_genproc::ObjectPointer>(value)) raise(ErrorNumber::TypeMismatch);
    return value;
}

std::size_t TableRecordSet::fieldAt(std::string_view name) const {
    return positionOf(table_.fields, name, ErrorNumber::ItemNotFound);
}

void TableRecordSet::requireRecord() {
    if (atEnd()) raise(ErrorNumber::NoCurrentRecord);
}

void TableRecordSet::requireEdit() const {
    if (edit_ == Edit::None) raise(ErrorNumber::UpdateWithoutEdit);
}

void TableRecordSet::start(Edit edit) {
    edit_ = edit;
    changes_.assign(edit == Edit::None ? 0 : table_.fields.size(), std::nullopt);
}

Variant TableRecordSet::get(std::string_view field) {
    const std::size_t position = fieldAt(field);
    if (edit_ != Edit::None && changes_[position]) return *changes_[position];
    if (edit_ == Edit::New) return t_genproc::Null{};
    requireRecord();
    return readField(position);
}

void TableRecordSet::let(std::string_view field, const Variant& value) {
    const std::size_t position = fieldAt(field);
    requireEdit();
    changes_[position] = fieldValue(table_.fields[position].type, value);
}

void TableRecordSet::edit() {
    requireRecord();
    start(Edit::Current);
}

void TableRecordSet::addNew() { start(Edit::New); }

void TableRecordSet::update() {
    requireEdit();
    if (edit_ == Edit::New) {
        append(changes_);
    } else {
        change(changes_);
    }
    start(Edit::None);
}

void TableRecordSet::cancelUpdate() {
    requireEdit();
    start(Edit::None);
}

void TableRecordSet::moveFirst() {
    start(Edit::None);
    toFirst();
    requireRecord();
}

void TableRecordSet::moveNext() {
    start(Edit::None);
    requireRecord();
    toNext();
}

void TableRecordSet::setIndex(std::string_view name) {
    const std::size_t index = positionOf(table_.indexes, name, ErrorNumber::NoSuchIndex);
    const std::size_t field = fieldAt(table_.indexes[index].field);
    start(Edit::None);
    orderBy(field);
    indexedField_ = field;
}

bool TableRecordSet::seek(SeekComparison comparison, const Variant& key) {
    if (!indexedField_) raise(ErrorNumber::NoCurrentIndex);
    start(Edit::None);
    const Variant value = fieldValue(table_.fields[*indexedField_].type, key);
    if (!t_genproc::isNull(value)) return find(comparison, value);
    toEnd();
    return false;
}

}  // namespace t_gencvf
