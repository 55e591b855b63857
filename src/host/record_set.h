/// Record sets: a cursor over the records of one table, whose fields are reached by name.
///
///     for (; !datums->atEnd(); datums->moveNext()) names.push_back(toText(datums->get("Name")));
///
///     header->edit();
///     header->let("Iterations", 10);
///     header->update();
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/variant.h"

namespace t_gencvf {

using t_genproc::Variant;

/// A field of type Any holds a value of any type. A file may keep only what kind of value that is: Null, a
/// whole number, a Double or a text.
enum class FieldType { Any, Boolean, Byte, Integer, Long, Single, Double, Date, Text };

struct FieldDefinition {
    std::string name;
    FieldType type = FieldType::Any;
};

/// Orders a table by one of its fields: Null, then numbers, then texts byte by byte.
struct IndexDefinition {
    std::string name;
    std::string field;
};

struct TableDefinition {
    std::string name;
    std::vector<FieldDefinition> fields;
    std::vector<IndexDefinition> indexes{};
};

enum class SeekComparison { Equal, GreaterOrEqual };

/// Stands on the first record when it is opened, or at the end where there is none. A move, a seek and an
/// index drop an edit that was not written. Names are matched without regard to letter case.
class RecordSet {
   public:
    virtual ~RecordSet() = default;

    /// A field of the current record, an edit's own value once it has one. Error 3265: no such field; 3021:
    /// there is no current record.
    virtual Variant get(std::string_view field) = 0;

    /// Sets a field of the record in edit, as a value of the field's type. Error 3265; 3020: there is no
    /// edit; 6 and 13: no such value.
    virtual void let(std::string_view field, const Variant& value) = 0;

    /// Starts an edit of the current record (error 3021), or of one that is new and all Null.
    virtual void edit() = 0;
    virtual void addNew() = 0;
    /// Writes the edit, or drops it. The current record stays the current one. Error 3020.
    virtual void update() = 0;
    virtual void cancelUpdate() = 0;

    virtual bool atEnd() = 0;
    /// Error 3021: there is no record to move to, or from.
    virtual void moveFirst() = 0;
    virtual void moveNext() = 0;

    /// Orders the records by an index and moves to the first of them. Error 3015: no such index.
    virtual void setIndex(std::string_view name) = 0;
    /// Moves to the first record whose indexed field compares to `key` as asked; false: there is none, and no
    /// current record either. The key is taken as a value of the field's type; nothing compares to Null.
    /// Error 3019: no index is set; 6 and 13: no such value.
    virtual bool seek(SeekComparison comparison, const Variant& key) = 0;
};

}  // namespace t_gencvf
