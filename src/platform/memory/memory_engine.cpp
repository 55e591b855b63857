#include "platform/memory/memory_engine.h"

#include <algorithm>
#include <map>

#include "host/memory_record_set.h"
#include "runtime/errors.h"
#include "runtime/text.h"

namespace t_genproc {
namespace {

using t_gencvf::MemoryRecordSet, t_gencvf::MemoryTable;

struct Content {
    std::string password;
    std::vector<std::shared_ptr<MemoryTable>> tables{};
};

class MemoryDatabase final : public Database {
   public:
    explicit MemoryDatabase(std::shared_ptr<Content> content) : content_(std::move(content)) {}

    std::vector<std::string> tableNames() override {
        std::vector<std::string> names;
        for (const auto& table : content_->tables) names.push_back(table->definition().name);
        return names;
    }

    std::unique_ptr<t_gencvf::RecordSet> openTable(std::string_view name) override {
        const std::shared_ptr<MemoryTable> table = tableNamed(name);
        if (table == nullptr) throw RuntimeError(ErrorNumber::NoSuchTable);
        return std::make_unique<MemoryRecordSet>(table);
    }

    void createTable(const t_gencvf::TableDefinition& table) override {
        if (tableNamed(table.name) != nullptr) throw RuntimeError(ErrorNumber::TableAlreadyExists);
        content_->tables.push_back(std::make_shared<MemoryTable>(table));
    }

    void beginTransaction() override {}
    void commitTransaction() override {}
    void beginReading() override {}

   private:
    std::shared_ptr<MemoryTable> tableNamed(std::string_view name) const {
        const auto found = std::ranges::find_if(content_->tables, [&](const auto& table) {
            return text::equalIgnoringCase(table->definition().name, name);
        });
        return found == content_->tables.end() ? nullptr : *found;
    }

    std::shared_ptr<Content> content_;
};

class MemoryEngine final : public DatabaseEngine {
   public:
    std::unique_ptr<Database> openDatabase(const std::string& fileName,
                                           const std::string& password) override {
        requirePasswordSize(password);
        const auto file = files_.find(text::upper(fileName));
        if (file == files_.end()) throw RuntimeError(ErrorNumber::DatabaseFileNotFound);
        const std::shared_ptr<Content>& content = file->second;
        if (content->password != password) {
            throw RuntimeError(password.empty() ? ErrorNumber::UnrecognizedDatabase
                                                : ErrorNumber::NotAValidPassword);
        }
        return std::make_unique<MemoryDatabase>(content);
    }

    std::unique_ptr<Database> createDatabase(const std::string& fileName,
                                             const std::string& password) override {
        requirePasswordSize(password);
        const auto content = std::make_shared<Content>(Content{password});
        if (!files_.try_emplace(text::upper(fileName), content).second) {
            throw RuntimeError(ErrorNumber::DatabaseAlreadyExists);
        }
        return std::make_unique<MemoryDatabase>(content);
    }

   private:
    std::map<std::string, std::shared_ptr<Content>> files_;  // by name in capitals
};

}  // namespace

std::unique_ptr<DatabaseEngine> memoryEngine() { return std::make_unique<MemoryEngine>(); }

}  // namespace t_genproc
