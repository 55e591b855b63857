/// Definitions of fields, those of one type in one text.
///
///     fieldsOf({{FieldType::Text, "DatumFrom DatumTo"}, {FieldType::Double, "MP_DX MP_DY MP_DZ"}})
#pragma once

#include <initializer_list>
#include <sstream>

#include "host/record_set.h"

namespace tavoru {

inline std::vector<t_gencvf::FieldDefinition> fieldsOf(
    std::initializer_list<std::pair<t_gencvf::FieldType, const char*>> types) {
    std::vector<t_gencvf::FieldDefinition> fields;
    for (const auto& [type, names] : types) {
        std::istringstream words(names);
        for (std::string name; words >> name;) fields.push_back({name, type});
    }
    return fields;
}

}  // namespace tavoru
