#include <algorithm>

#include "frame/cGenProcs.h"
#include "frame/procedure.h"
#include "host/object.h"
#include "runtime/errors.h"
#include "runtime/integers.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound;

// In the units of the form
constexpr double kRoomToSpare = 90;
constexpr double kMargin = 50;

/// Puts "..." in place of the folder in the middle and the backslash ahead of it. False: there is none.
bool abbreviate(std::string& path) {
    const auto backslashes = std::ranges::count(path, '\\');
    if (backslashes < 2) return false;
    std::size_t middle = std::string::npos;
    for (std::ptrdiff_t i = 0; i < (backslashes + 1) / 2; ++i) middle = path.find('\\', middle + 1);
    path.replace(middle, path.find('\\', middle + 1) - middle, "...");
    return true;
}

/// Error 5: the text is longer than the field.
std::string padded(const std::string& text, std::int16_t fieldLength) {
    const std::ptrdiff_t blanks = fieldLength - text::length(text);
    if (blanks < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return text + std::string(static_cast<std::size_t>(blanks), ' ');
}

}  // namespace

std::string cGenProcs::PathAbbreviate(const std::string& fullFileName, const ObjectPointer& nameLabel,
                                      const ObjectPointer& currentForm) {
    return procedure(library_, "(Class Module) cGenProcs::Function PathAbbreviate", [&] {
        const LateBound label(nameLabel), form(currentForm);
        form["FontSize"] = 12;
        for (const char* property : {"FontName", "FontSize", "FontBold", "FontItalic"}) {
            form[property] = label[property].get();
        }
        // How much wider the text is than the label.
        const auto excess = [&](const std::string& text) {
            const double width = toDouble(form["TextWidth"].call(text));
            return width - toDouble(label["Width"].get());
        };

        std::string text = fullFileName + ' ';
        if (excess(text) > -kRoomToSpare) text = text::trim(text);
        while (excess(text) > -kMargin) {
            if (!abbreviate(text)) break;
        }
        return text;
    });
}

std::string cGenProcs::CombineAlphaDesc(const std::string& alphaID, const std::string& description,
                                        std::int16_t fieldLength, bool alphasExist) {
    return procedure(library_, "(Class Module) cGenProcs::Function CombineAlphaDesc", [&] {
        if (!alphasExist) return padded(description, fieldLength);
        const std::ptrdiff_t length = text::length(alphaID);
        const bool hasRoom = length < checkedSubtract<std::int16_t>(fieldLength, 1);
        if (!hasRoom || text::trim(alphaID) == text::trim(description)) return padded(alphaID, fieldLength);
        return padded(alphaID + '/' + text::left(description, fieldLength - length - 1), fieldLength);
    });
}

}  // namespace t_genproc
