#include "host/memory_object.h"

#include "runtime/errors.h"
#include "runtime/integers.h"
#include "runtime/text.h"

namespace t_gencvf {
namespace {

using t_genproc::ErrorNumber;
namespace text = t_genproc::text;

[[noreturn]] void raise(ErrorNumber number) { throw t_genproc::RuntimeError(number); }

template <class Value>
Value& find(std::map<std::string, Value>& members, std::string_view name) {
    const auto found = members.find(text::upper(name));
    if (name.empty() || found == members.end()) raise(ErrorNumber::NoSuchMember);
    return found->second;
}

/// The object that a property holds, kept alive while it is used.
ObjectPointer indexed(const Variant& property) {
    if (!std::holds_alternative<ObjectPointer>(property)) raise(ErrorNumber::WrongNumberOfArguments);
    return t_genproc::toObject(property);
}

}  // namespace

MemoryObject& MemoryObject::add(std::string_view property, Variant value) {
    properties_.insert_or_assign(text::upper(property), std::move(value));
    return *this;
}

MemoryObject& MemoryObject::addMethod(std::string_view name, Method method) {
    methods_.insert_or_assign(text::upper(name), std::move(method));
    return *this;
}

Variant MemoryObject::get(std::string_view member, Arguments arguments) {
    Variant& property = find(properties_, member);
    return arguments.empty() ? property : indexed(property)->get({}, arguments);
}

void MemoryObject::let(std::string_view member, const Variant& value, Arguments arguments) {
    Variant& property = find(properties_, member);
    if (arguments.empty()) {
        property = value;
    } else {
        indexed(property)->let({}, value, arguments);
    }
}

Variant MemoryObject::call(std::string_view member, Arguments arguments) {
    const Method method = find(methods_, member);  // it may change this object
    return method(arguments);
}

MemoryControlArray::MemoryControlArray(int count) {
    for (int i = 0; i < count; ++i) elements_.push_back(std::make_shared<MemoryObject>());
}

std::shared_ptr<MemoryObject> MemoryControlArray::add(std::string typeName) {
    return elements_.emplace_back(std::make_shared<MemoryObject>(std::move(typeName)));
}

Variant MemoryControlArray::get(std::string_view member, Arguments arguments) {
    if (text::equalIgnoringCase(member, "Count") && arguments.empty()) {
        return t_genproc::checkedNarrow<std::int32_t>(elements_.size());
    }
    if (!member.empty()) raise(ErrorNumber::NoSuchMember);
    if (arguments.size() != 1) raise(ErrorNumber::WrongNumberOfArguments);
    const std::int32_t index = t_genproc::toInt32(arguments.front());
    if (index < 0 || std::cmp_greater_equal(index, elements_.size())) {
        raise(ErrorNumber::NoSuchControlArrayElement);
    }
    return ObjectPointer(elements_[static_cast<std::size_t>(index)]);
}

void MemoryControlArray::let(std::string_view /*member*/, const Variant& /*value*/, Arguments /*arguments*/) {
    raise(ErrorNumber::NoSuchMember);
}

Variant MemoryControlArray::call(std::string_view /*member*/, Arguments /*arguments*/) {
    raise(ErrorNumber::NoSuchMember);
}

}  // namespace t_gencvf
