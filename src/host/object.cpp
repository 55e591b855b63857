#include "host/object.h"

#include "runtime/errors.h"

namespace t_gencvf {

Object& LateBound::object() const {
    if (object_ == nullptr) throw t_genproc::RuntimeError(t_genproc::ErrorNumber::ObjectNotSet);
    return *object_;
}

LateBound LateBound::operator[](std::string_view member) const {
    const bool isObjectItself = member_.empty() && arguments_.empty();
    LateBound next{isObjectItself ? object_ : t_genproc::toObject(get())};
    next.member_ = member;
    return next;
}

Variant LateBound::get() const { return object().get(member_, arguments_); }

void LateBound::operator=(const Variant& value) const { object().let(member_, value, arguments_); }

}  // namespace t_gencvf
