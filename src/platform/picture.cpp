#include "platform/picture.h"

#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {

Variant Picture::get(std::string_view member, t_gencvf::Arguments /*arguments*/) {
    const auto is = [member](std::string_view name) { return text::equalIgnoringCase(member, name); };
    if (is("Handle")) return members_.handle;
    if (is("hPal")) return members_.palette;
    if (is("Type")) return members_.type;
    if (is("Width")) return members_.width;
    if (is("Height")) return members_.height;
    throw RuntimeError(ErrorNumber::NoSuchMember);
}

void Picture::let(std::string_view member, const Variant& /*value*/, t_gencvf::Arguments arguments) {
    get(member, arguments);  // error 438 for what is no member
    throw RuntimeError(ErrorNumber::PropertyReadOnly);
}

Variant Picture::call(std::string_view /*member*/, t_gencvf::Arguments /*arguments*/) {
    throw RuntimeError(ErrorNumber::NoSuchMember);
}

}  // namespace t_genproc
