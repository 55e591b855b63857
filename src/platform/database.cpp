#include "platform/database.h"

#include "runtime/errors.h"

namespace t_genproc {

void requirePasswordSize(const std::string& password) {
    constexpr std::size_t kSize = 32;
    if (!password.empty() && password.size() != kSize) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

}  // namespace t_genproc
