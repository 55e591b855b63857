#include "runtime/errors.h"

#include <algorithm>
#include <array>
#include <utility>

namespace t_genproc {
namespace {

struct Description {
    std::int32_t number;
    std::string_view text;
};

constexpr std::array kDescriptions{
    Description{3, "Return without GoSub"},
    Description{5, "Invalid procedure call or argument"},
    Description{6, "Overflow"},
    Description{7, "Out of memory"},
    Description{9, "Subscript out of range"},
    Description{10, "This array is fixed or temporarily locked"},
    Description{11, "Division by zero"},
    Description{13, "Type mismatch"},
    Description{14, "Out of string space"},
    Description{16, "Expression too complex"},
    Description{17, "Can't perform requested operation"},
    Description{18, "User interrupt occurred"},
    Description{20, "Resume without error"},
    Description{28, "Out of stack space"},
    Description{35, "Sub or Function not defined"},
    Description{48, "Error in loading DLL"},
    Description{49, "Bad DLL calling convention"},
    Description{51, "Internal error"},
    Description{52, "Bad file name or number"},
    Description{53, "File not found"},
    Description{54, "Bad file mode"},
    Description{55, "File already open"},
    Description{57, "Device I/O error"},
    Description{58, "File already exists"},
    Description{59, "Bad record length"},
    Description{61, "Disk full"},
    Description{62, "Input past end of file"},
    Description{63, "Bad record number"},
    Description{67, "Too many files"},
    Description{68, "Device unavailable"},
    Description{70, "Permission denied"},
    Description{71, "Disk not ready"},
    Description{74, "Can't rename with different drive"},
    Description{75, "Path/File access error"},
    Description{76, "Path not found"},
    Description{91, "Object variable or With block variable not set"},
    Description{92, "For loop not initialized"},
    Description{93, "Invalid pattern string"},
    Description{94, "Invalid use of Null"},
    Description{340, "Control array element doesn't exist"},
    Description{380, "Invalid property value"},
    Description{383, "Property is read-only"},
    Description{394, "Property is write-only"},
    Description{424, "Object required"},
    Description{429, "ActiveX component can't create object"},
    Description{430, "Class doesn't support Automation"},
    Description{438, "Object doesn't support this property or method"},
    Description{440, "Automation error"},
    Description{445, "Object doesn't support this action"},
    Description{446, "Object doesn't support named arguments"},
    Description{448, "Named argument not found"},
    Description{449, "Argument not optional"},
    Description{450, "Wrong number of arguments or invalid property assignment"},
    Description{451, "Object not a collection"},
    Description{457, "This key is already associated with an element of this collection"},
    Description{482, "Printer error"},
    Description{3010, "Table already exists"},
    Description{3015, "Not an index in this table"},
    Description{3019, "Operation invalid without a current index"},
    Description{3020, "Update or CancelUpdate without AddNew or Edit"},
    Description{3021, "No current record"},
    Description{3022, "Duplicate value in an index, primary key or relationship"},
    Description{3024, "Couldn't find the database file"},
    Description{3027, "Can't update: database or object is read-only"},
    Description{3031, "Not a valid password"},
    Description{3043, "Disk or network error"},
    Description{3044, "Not a valid path"},
    Description{3078, "Couldn't find the table"},
    Description{3204, "Database already exists"},
    Description{3260, "Couldn't update: currently locked"},
    Description{3265, "Item not found in this collection"},
    Description{3343, "Unrecognized database format"},
};
static_assert(std::ranges::is_sorted(kDescriptions, {}, &Description::number));

}  // namespace

std::string_view errorDescription(std::int32_t number) noexcept {
    const auto found = std::ranges::lower_bound(kDescriptions, number, {}, &Description::number);
    if (found != kDescriptions.end() && found->number == number) return found->text;
    return "Application-defined or object-defined error";
}

RuntimeError::RuntimeError(ErrorNumber number, std::string_view source)
    : RuntimeError(static_cast<std::int32_t>(number), source) {}

RuntimeError::RuntimeError(std::int32_t number, std::string_view source) : number_(number), source_(source) {}

RuntimeError::RuntimeError(std::int32_t number, std::string_view source, std::string description)
    : number_(number), source_(source), description_(std::move(description)) {}

}  // namespace t_genproc
