#include <optional>
#include <string_view>

#include "frame/cGenProcs.h"
#include "frame/procedure.h"
#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

/// What stands ahead of the first `mark`.
std::string_view before(std::string_view text, char mark) {
    const std::size_t position = text.find(mark);
    if (position == std::string_view::npos) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return text.substr(0, position);
}

/// Of "GRS80 (a = 6378137 m)": "GRS80".
std::string nameOf(const std::string& spheroid) {
    const std::string_view name = before(spheroid, '(');
    return text::left(name, text::length(name) - 1);
}

std::optional<std::string> findSpheroid(const std::vector<std::string>& spheroids, std::string_view wanted) {
    for (std::size_t i = 1; i < spheroids.size(); ++i) {
        std::string name = nameOf(spheroids[i]);
        if (name == wanted) return name;
    }
    return std::nullopt;
}

}  // namespace

std::string cGenProcs::GetSpheroidForDatum(const std::string& datum, const std::vector<std::string>& DatumH,
                                           const std::vector<std::string>& Spheroid, bool& found) {
    return procedure(
        library_, "(Class Module) cGenProcs::Function GetSpheroidForDatum", [&]() -> std::string {
            for (std::size_t i = 1; i < DatumH.size(); ++i) {
                const std::string_view name = before(DatumH[i], ',');
                if (name != datum) continue;
                const std::string_view wanted = std::string_view(DatumH[i]).substr(name.size() + 1);
                if (std::optional<std::string> spheroid = findSpheroid(Spheroid, wanted)) {
                    found = true;
                    return *spheroid;
                }
            }
            if (found) return {};
            return datum == "LOCAL" ? "PLANE" : "(not found)";
        });
}

}  // namespace t_genproc
