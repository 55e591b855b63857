/// A value of any type, as late-bound members and record-set fields carry it.
///
///     const Variant caption = entry->get("Caption");
///     const std::string text = toText(caption);  // error 94 where it is Null
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>

namespace t_gencvf {
class Object;
}

namespace t_genproc {

struct Empty {  ///< Nothing was ever assigned: 0, False and "" where a value is needed.
    friend bool operator==(Empty, Empty) = default;
};
struct Null {  ///< No value is known: error 94 where one is needed.
    friend bool operator==(Null, Null) = default;
};
struct Date {  ///< See date_value.h.
    double value = 0;
    friend bool operator==(Date, Date) = default;
};
using ObjectPointer = std::shared_ptr<t_gencvf::Object>;  ///< A null pointer is Nothing.

using Variant = std::variant<Empty, Null, bool, std::uint8_t, std::int16_t, std::int32_t, float, double, Date,
                             std::string, ObjectPointer>;

inline bool isEmpty(const Variant& value) { return std::holds_alternative<Empty>(value); }
inline bool isNull(const Variant& value) { return std::holds_alternative<Null>(value); }

/// The conversions raise error 94 for Null, 13 for what cannot be converted, 6 for what does not fit.
///
/// True is -1 as a number; a number is True unless it is 0. Fractions round to the nearest whole number,
/// halves to the even one. A text is converted as parseNumber reads it; "True" and "False" in any letter case
/// are Booleans. A Date becomes text as "2026-11-14 22:05:09", without the time where it is midnight.
std::string toText(const Variant& value);
bool toBoolean(const Variant& value);
std::int16_t toInt16(const Variant& value);
std::int32_t toInt32(const Variant& value);
double toDouble(const Variant& value);

/// The object held. Error 424: no object; error 91: Nothing.
ObjectPointer toObject(const Variant& value);

}  // namespace t_genproc
