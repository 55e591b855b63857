#include <string_view>

#include "frame/cGenProcs.h"
#include "frame/procedure.h"
#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

[[noreturn]] void raise() { throw RuntimeError(ErrorNumber::InvalidProcedureCall); }

/// What stands ahead of the first `mark`.
std::string_view before(std::string_view text, char mark) {
    const std::size_t position = text.find(mark);
    if (position == std::string_view::npos) raise();
    return text.substr(0, position);
}

/// Whether a description such as "GRS80 (a = 6378137 m)" is that of the spheroid: one character stands
/// between its name and the parenthesis.
bool describes(const std::string& description, std::string_view spheroid) {
    const std::string_view name = before(description, '(');
    if (name.empty()) raise();
    return name.starts_with(spheroid) && text::length(name) == text::length(spheroid) + 1;
}

}  // namespace

std::string cGenProcs::GetSpheroidForDatum(const std::string& datum, const std::vector<std::string>& DatumH,
                                           const std::vector<std::string>& Spheroid, bool& found) {
    return procedure(
        library_, "(Class Module) cGenProcs::Function GetSpheroidForDatum", [&]() -> std::string {
            for (std::size_t i = 1; i < DatumH.size(); ++i) {
                const std::string_view name = before(DatumH[i], ',');
                if (name != datum) continue;
                const std::string_view spheroid = std::string_view(DatumH[i]).substr(name.size() + 1);
                for (std::size_t j = 1; j < Spheroid.size(); ++j) {
                    if (!describes(Spheroid[j], spheroid)) continue;
                    found = true;
                    return std::string(spheroid);
                }
            }
            if (found) return {};
            return datum == "LOCAL" ? "PLANE" : "(not found)";
        });
}

}  // namespace t_genproc
