/// The texts of Instant Help for one window, beside the least that reading them from a database takes, and
/// beside one opening of a database whose key is derived from a pass phrase.
#include <sqlite3.h>

#include "host/memory_object.h"
#include "instanthelp/cInstHelp.h"
#include "instanthelp/message_database.h"
#include "platform/sqlite/sqlite_engine.h"
#include "ratio_table.h"
#include "world.h"

namespace t_genproc::bench {
namespace {

constexpr std::int16_t kTexts = 10000, kFirst = 4000, kLast = 4499;

std::string textOf(std::int16_t number) {
    return "Help " + std::to_string(number) + ": the tolerance to which a repeated observation must agree";
}

void fill(Database& database) {
    const auto records = database.openTable(MessageTable::Name);
    database.beginTransaction();
    for (std::int16_t number = 0; number < kTexts; ++number) {
        records->addNew();
        records->let(MessageTable::HelpContextID, number);
        records->let(MessageTable::Message, textOf(number));
        records->update();
    }
    database.commitTransaction();
}

/// The same texts under any password.
void make(DatabaseEngine& engine, const std::string& fileName, const std::string& password) {
    const std::string number(MessageTable::HelpContextID);
    const auto database = engine.createDatabase(fileName, password);
    database->createTable({std::string(MessageTable::Name),
                           {{number, t_gencvf::FieldType::Integer},
                            {std::string(MessageTable::Message), t_gencvf::FieldType::Text}},
                           {{std::string(MessageTable::Index), number}}});
    fill(*database);
}

/// A connection to `file` by the engine's own calls.
class Bare {
   public:
    /// `key`: empty, a pass phrase, or "raw:" and 32 bytes.
    Bare(const std::string& file, const std::string& key) {
        constexpr int kUse = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
        require(::sqlite3_open_v2(file.c_str(), &database_, kUse, nullptr) == SQLITE_OK);
        if (key.empty()) return;
        require(::sqlite3_key(database_, key.data(), static_cast<int>(key.size())) == SQLITE_OK);
    }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;
    ~Bare() { ::sqlite3_close(database_); }

    void execute(const char* statements) {
        require(::sqlite3_exec(database_, statements, nullptr, nullptr, nullptr) == SQLITE_OK);
    }

    void readTexts() {
        sqlite3_stmt* texts = nullptr;
        const char* const sql =
            "SELECT HelpContextID, Message FROM InstantHelp WHERE HelpContextID BETWEEN ? AND ? ORDER BY 1";
        require(::sqlite3_prepare_v2(database_, sql, -1, &texts, nullptr) == SQLITE_OK);
        ::sqlite3_bind_int(texts, 1, kFirst);
        ::sqlite3_bind_int(texts, 2, kLast);
        int count = 0;
        for (; ::sqlite3_step(texts) == SQLITE_ROW; ++count) {
            benchmark::DoNotOptimize(::sqlite3_column_int(texts, 0));
            benchmark::DoNotOptimize(::sqlite3_column_text(texts, 1));
        }
        ::sqlite3_finalize(texts);
        require(count == kLast - kFirst + 1);
    }

   private:
    sqlite3* database_ = nullptr;
};

std::shared_ptr<t_gencvf::MemoryObject> window() {
    const auto panel = std::make_shared<t_gencvf::MemoryObject>();
    panel->add("Caption", "").add("Height", 300);
    const auto menu = std::make_shared<t_gencvf::MemoryObject>();
    menu->add("Checked", true);
    auto form = std::make_shared<t_gencvf::MemoryObject>();
    form->add("pnlHelp", ObjectPointer(panel)).add("MenuIhelp", ObjectPointer(menu));
    form->add("HelpContextID", kFirst).add("Height", 6000);
    return form;
}

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    using namespace t_genproc;
    using namespace t_genproc::bench;
    benchmark::Initialize(&argc, argv);
    World world;
    const Folder& folder = world.folder;
    world.platform.databases = sqliteEngine(*world.platform.files);
    DatabaseEngine& engine = *world.platform.databases;

    const std::string plain = folder.file("plain.db"), keyed = folder.file("keyed.db"),
                      derived = folder.file("derived.db"), password(32, 'k'),
                      passPhrase = "typed by a person";
    fill(*createMessageDatabase(engine, "C:\\messages.db"));
    make(engine, "C:\\plain.db", "");
    make(engine, "C:\\keyed.db", password);
    Bare(derived, passPhrase).execute("CREATE TABLE InstantHelp (HelpContextID, Message)");

    const auto twice = [](const std::string& file, const std::string& key) {
        return [=] {
            for (int i = 0; i < 2; ++i) Bare(file, key).readTexts();
        };
    };
    cInstHelp help(world.library);
    const auto form = window();
    const auto load = [&] { help.LoadInstantHelp(form, kFirst, kLast, kFirst, kLast, "C:\\messages.db"); };
    load();
    help.DisplayFormHelp(form);
    require(t_gencvf::LateBound(form)["pnlHelp"]["Caption"].text() == textOf(kFirst));

    const Work bare = twice(plain, "");
    compare("loading 500 of 10,000 texts/bare", bare, bare);
    compare("loading 500 of 10,000 texts/keyed", bare, twice(keyed, "raw:" + password));
    compare("loading 500 of 10,000 texts/own", bare, load);
    compare("loading 500 of 10,000 texts/derived", bare,
            [&] { Bare(derived, passPhrase).execute("SELECT count(*) FROM sqlite_schema"); });
    printTable(
        "| Instant Help | bare loop, no password | bare loop, enciphered | LoadInstantHelp |"
        " one opening with a derived key |",
        "loading");
}
