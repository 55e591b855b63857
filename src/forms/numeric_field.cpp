#include <algorithm>

#include "frame/cGenProcs.h"
#include "frame/procedure.h"
#include "runtime/decimal_text.h"
#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {

Variant cGenProcs::SetNumericField(const std::string& txtField, std::int16_t defaultDecimals, bool expand) {
    return procedure(library_, "(Class Module) cGenProcs::Function SetNumericField", [&]() -> Variant {
        if (defaultDecimals < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        std::ptrdiff_t decimals = defaultDecimals;
        const std::size_t point = expand ? txtField.find('.') : std::string::npos;
        if (point != std::string::npos) {
            decimals = std::max(decimals, text::length(std::string_view(txtField).substr(point + 1)));
        }
        return fixedDecimals(txtField, static_cast<std::size_t>(decimals));
    });
}

}  // namespace t_genproc
