#include "host/object.h"

#include "runtime/errors.h"

namespace t_gencvf {

Object& LateBound::object() const {
    if (object_ == nullptr) throw t_genproc::RuntimeError(t_genproc::ErrorNumber::ObjectNotSet);
    return *object_;
}

ObjectPointer LateBound::objectRead() const {
    const bool isObjectItself = member_.empty() && arguments_.empty();
    return isObjectItself ? object_ : t_genproc::toObject(get());
}

LateBound LateBound::operator[](std::string_view member) const {
    LateBound next{objectRead()};
    next.member_ = member;
    return next;
}

bool LateBound::isTextBox() const {
    const LateBound box{objectRead()};
    return box.object().typeName() == "TextBox";
}

Variant LateBound::get() const { return object().get(member_, arguments_); }

void LateBound::operator=(const Variant& value) const { object().let(member_, value, arguments_); }

}  // namespace t_gencvf
