#include "transformation_source.h"

#include <set>
#include <stdexcept>

#include "databases.h"
#include "runtime/errors.h"
#include "runtime/text.h"
#include "table_fields.h"

namespace tavoru {
namespace {

namespace text = t_genproc::text;
using Cells = std::vector<std::string>;

const t_gencvf::TableDefinition* tableNamed(std::string_view name) {
    using enum t_gencvf::FieldType;
    static const t_gencvf::TableDefinition kTables[] = {
        {"Spheroids", fieldsOf({{Text, "Name"}, {Double, "SemiMajorAxis InverseFlattening"}})},
        {"Datums", fieldsOf({{Text, "Name Spheroid"}})},
        {"Transformations",
         fieldsOf({{Long, "Number"},
                   {Byte, "TransType BS_Type MP_Type MP_Rotation"},
                   {Text, "Description DatumFrom DatumTo GF_FileName ZZ_GridFrom ZZ_GridTo"},
                   {Integer, "ZZ_ZoneFrom ZZ_ZoneTo"},
                   {Boolean, "BS_Plane"},
                   {Double, "BS_DeltaEastLat BS_DeltaNorthLong BS_DeltaHeight"},
                   {Double, "MP_DX MP_DY MP_DZ MP_RX_Da MP_RY MP_RZ MP_Scale_Df"}}),
         {{"Number", "Number"}}},
    };
    for (const auto& table : kTables) {
        if (table.name == name) return &table;
    }
    return nullptr;
}

Cells split(std::string_view line, char mark) {
    Cells cells;
    for (;;) {
        const std::size_t end = line.find(mark);
        cells.emplace_back(text::trim(line.substr(0, end)));
        if (end == std::string_view::npos) return cells;
        line.remove_prefix(end + 1);
    }
}

/// Takes the lines of the source, and puts their records into the database.
class Writer {
   public:
    explicit Writer(t_genproc::Database& database) : database_(database) {}

    void take(std::string_view line) {
        if (line.starts_with('[') && line.ends_with(']')) {
            startSection(line.substr(1, line.size() - 2));
        } else if (records_ == nullptr) {
            throw std::runtime_error("a section such as [Datums] is missing ahead of it");
        } else if (const Cells common = split(line, '='); columns_.empty() && common.size() == 2) {
            common_.push_back(common);
        } else if (columns_.empty()) {
            columns_ = split(line, '|');
        } else {
            addRecord(split(line, '|'));
        }
    }

    bool hasTransformations() const { return number_ > 0; }

   private:
    void startSection(std::string_view name) {
        const t_gencvf::TableDefinition* table = tableNamed(name);
        if (table == nullptr) throw std::runtime_error("there is no table " + std::string(name));
        table_ = name;
        if (tables_.insert(table_).second) database_.createTable(*table);
        records_ = database_.openTable(table_);
        common_.clear();
        columns_.clear();
    }

    void addRecord(const Cells& cells) {
        if (cells.size() != columns_.size()) {
            throw std::runtime_error(std::to_string(cells.size()) + " cells below " +
                                     std::to_string(columns_.size()) + " names");
        }
        records_->addNew();
        if (table_ == "Transformations") records_->let("Number", ++number_);
        for (const Cells& common : common_) set(common[0], common[1]);
        for (std::size_t i = 0; i < cells.size(); ++i) set(columns_[i], cells[i]);
        records_->update();
    }

    void set(const std::string& field, const std::string& value) {
        if (field == "Name") names_.emplace(table_, value);
        if (field == "Spheroid") require("Spheroids", value);
        if (field == "DatumFrom" || field == "DatumTo") require("Datums", value);
        try {
            if (!value.empty()) records_->let(field, value);
        } catch (const t_genproc::RuntimeError& error) {
            throw std::runtime_error(field + " = " + value + ": " + error.what());
        }
    }

    void require(const std::string& table, const std::string& name) const {
        if (!names_.contains({table, name})) {
            throw std::runtime_error(name + " is not in [" + table + "] above");
        }
    }

    t_genproc::Database& database_;
    std::string table_;
    std::unique_ptr<t_gencvf::RecordSet> records_;
    std::vector<Cells> common_;  // a field and its value for all records of the section
    Cells columns_;
    std::int32_t number_ = 0;
    std::set<std::string> tables_;
    std::set<std::pair<std::string, std::string>> names_;  // with their tables
};

}  // namespace

void makeTransformations(const std::filesystem::path& source, const t_genproc::Platform& platform,
                         const std::string& fileName) {
    replaceDatabase(*platform.files, fileName, [&](const std::string& newName) {
        const auto database = platform.databases->createDatabase(newName);
        database->beginTransaction();
        Writer writer(*database);
        takeLines(source, [&](std::string_view line, int) { writer.take(line); });
        if (!writer.hasTransformations()) {
            throw std::runtime_error(source.string() + " has no [Transformations]");
        }
        database->commitTransaction();
    });
}

}  // namespace tavoru
