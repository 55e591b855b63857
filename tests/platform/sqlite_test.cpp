#include <gtest/gtest.h>

#include <cmath>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/sqlite_engine.h"
#include "support/platform_under_test.h"

namespace t_genproc {
namespace {

using test::errorOf;

struct SqliteTest : testing::Test {
    test::PlatformUnderTest system;
    const std::unique_ptr<DatabaseEngine> engine = sqliteEngine(*system.platform.files);
    const std::string file = system.path("Höhe 1.db");
    std::unique_ptr<Database> database = engine->createDatabase(file);
    sqlite::Connection other{system.platform.files->nativePath(file).value, sqlite::Opening::Existing};
    const t_gencvf::TableDefinition table{"t", {{"a"}}};
    const std::string password = std::string("\0\xC3", 2) + std::string(30, 'a');
};

TEST_F(SqliteTest, RefusesWhatIsNoDatabase) {
    const auto open = [&](const char* name, const std::string& with = {}) {
        return errorOf([&] { engine->openDatabase(system.path(name), with); });
    };
    const auto create = [&](const char* name) {
        return errorOf([&] { engine->createDatabase(system.path(name)); });
    };
    database->createTable(table);
    const std::string bytes = system.read(file), text(9999, '\xC3');
    for (const auto& content : {text.substr(0, 0), text.substr(0, 1), text, bytes.substr(0, 99),
                                bytes.substr(0, 1000), bytes.substr(0, bytes.size() / 2)}) {
        system.write(system.path("b"), content);
        EXPECT_EQ(open("b"), 3343) << content.size();
        EXPECT_EQ(open("b", password), content.size() < 512 ? 3343 : 3031) << content.size();
    }
    for (const char* name : {"none", "none", ""}) EXPECT_EQ(open(name), 3024);  // nor is it created
    EXPECT_EQ(open("none\\a"), 3044);
    for (const char* name : {"none\\a", "a?b"}) EXPECT_EQ(create(name), 3044);
    EXPECT_EQ(create("Höhe 1.db"), 3204);
}

TEST_F(SqliteTest, GivesWhatDoesNotFitItsColumnAsItIs) {
    other.execute(
        "CREATE TABLE t (a DOUBLE, b DOUBLE, c SMALLINT, d SMALLINT, e INTEGER, f BYTE, g BOOLEAN, h BOOLEAN,"
        " i SINGLE, j SINGLE, k datetime, l DATETIME, m TEXT, n VARCHAR(9), o, p DOUBLE);"
        "INSERT INTO t VALUES ('7 m', -9e999, 70000, 2.5, 5000000000, -1, 1, 2,"
        " 2, 1e300, 45000, '2026-11-14', x'C30041', 12, 12, 9e999 - 9e999)");
    using Short = std::int16_t;
    const auto records = database->openTable("t");
    for (char name = 'a';
         const Variant& value : std::vector<Variant>({"7 m", -HUGE_VAL, 70000, 2.5, 5e9, Short{-1}, true,
                                                      Short{2}, 2.0F, 1e300, Date{45000}, "2026-11-14",
                                                      std::string("\xC3\0A", 3), "12", Short{12}, Null{}}))
        EXPECT_EQ(records->get(std::string(1, name++)), value);
}

TEST_F(SqliteTest, SharesTheFileWithOtherPrograms) {
    database->createTable(table);
    auto records = database->openTable("t");
    const auto write = [&](const char* text) { records->let("a", text), records->update(); };
    const auto add = [&] { database->beginTransaction(), records->addNew(), write("a"); };
    add();
    database.reset(), records.reset();  // not committed
    database = engine->openDatabase(file);
    records = database->openTable("t");
    EXPECT_TRUE(records->atEnd());
    add();
    database->commitTransaction();
    records->moveFirst();
    other.execute("UPDATE t SET a = 'b'; BEGIN; SELECT * FROM t");  // while the record set stands there
    EXPECT_EQ(errorOf([&] { records->edit(), write("c"); }), 3260);
    other.execute("COMMIT; BEGIN EXCLUSIVE");
    EXPECT_EQ(errorOf([&] { engine->openDatabase(file); }), 3260);
    other.execute("COMMIT");
    records->moveFirst();
    EXPECT_EQ(records->get("a"), Variant("b"));
    other.execute("DELETE FROM t");
    EXPECT_EQ(errorOf([&] { records->edit(), write("d"); }), 3021);
}

TEST_F(SqliteTest, ReadsOneMomentWhileOthersWait) {
    other.execute("CREATE TABLE t (a); INSERT INTO t VALUES (1), (2); BEGIN EXCLUSIVE; DELETE FROM t");
    EXPECT_EQ(errorOf([&] { database->beginReading(); }), 3260);
    other.execute("ROLLBACK");
    database->beginReading();
    auto records = database->openTable("t");
    EXPECT_EQ(errorOf([&] { database->commitTransaction(); }), 5);
    EXPECT_EQ(errorOf([&] { other.execute("DELETE FROM t"); }), 3260);
    records->moveNext();
    EXPECT_EQ(records->get("a"), Variant(std::int16_t{2}));
    EXPECT_EQ(errorOf([&] { records->edit(), records->let("a", 3), records->update(); }), 3027);
    database.reset(), records.reset();
    other.execute("DELETE FROM t");
}

TEST_F(SqliteTest, KeepsEncipheredFilesDarkAndClosed) {
    const std::string path = system.path("c"), native = system.platform.files->nativePath(path).value;
    const auto bytesOf = [&](const std::string& with, const char* statements) {
        sqlite::Connection(native, sqlite::Opening::New, with).execute(statements);
        std::string bytes = system.read(path);
        std::filesystem::remove(native);
        return bytes;
    };
    const char* const help =
        "CREATE TABLE Help (a); INSERT INTO Help VALUES ('Read me' || hex(zeroblob(9999)))";
    const std::string bytes = bytesOf(password, help), plain = bytesOf("", help);
    for (const char* text : {"Help", "Read me", "SQLite format"})
        EXPECT_TRUE(bytes.find(text) == std::string::npos && plain.find(text) != std::string::npos) << text;
    const auto read = [&](const std::string& with) {
        const auto opened = engine->openDatabase(path, with);
        EXPECT_EQ(test::openFiles(native) > 0, test::systemName() == "portable");
        opened->beginReading();
        const auto records = opened->openTable("Help");
        while (!records->atEnd()) records->moveNext();
    };
    std::string damaged = bytes;
    damaged[bytes.size() / 2] ^= 1;
    using Row = std::tuple<std::string, std::string, int>;
    for (const auto& [content, with, error] :
         {Row{bytes, password, 0}, Row{bytes, std::string(32, 'a'), 3031}, Row{bytes, "", 3343},
          Row{plain, password, 3031}, Row{bytes.substr(0, bytes.size() / 2), password, 3343},
          Row{damaged, password, 3343}, Row{bytesOf(password, "CREATE TABLE Other (a)"), password, 3078}}) {
        system.write(path, content);  // what stands there is replaced between two openings
        EXPECT_EQ(errorOf([&, &with = with] { read(with); }), error);
        EXPECT_EQ(test::openFiles(native), 0);
        EXPECT_TRUE(std::filesystem::remove(native));  // Windows keeps what is open
    }
}

TEST_F(SqliteTest, TakesNamesAsTheyAre) {
    for (const char* name : {"Höhe \"1\"; x", "RowId"})
        database->createTable({name, {{"Rowid"}, {"a \"b\""}}, {{"By 'Höhe'", "a \"B\""}}});
    other.execute(
        "CREATE TABLE k (id INTEGER PRIMARY KEY, a UNIQUE); INSERT INTO k VALUES (1, 'a'), (5, 'b');"
        "CREATE TABLE w (id PRIMARY KEY) WITHOUT ROWID");
    EXPECT_EQ(database->tableNames(), (std::vector<std::string>{"Höhe \"1\"; x", "RowId", "k"}));
    EXPECT_EQ(errorOf([&] { database->openTable("w"); }), 3078);
    auto records = database->openTable("HÖHE \"1\"; X");
    records->addNew(), records->let("A \"B\"", "c"), records->update();
    records->setIndex("by 'höhe'");
    EXPECT_EQ(records->get("a \"b\""), Variant("c"));
    records = database->openTable("k");
    records->edit(), records->let("ID", 9), records->update();  // the number of the record itself
    EXPECT_EQ(records->get("a"), Variant("a"));
    EXPECT_EQ(errorOf([&] { records->edit(), records->let("a", "b"), records->update(); }), 3022);
}

TEST_F(SqliteTest, GoesOnFromARecordThatIsGone) {
    database->createTable({"t", {{"a"}}, {{"ByA", "a"}}});
    other.execute("INSERT INTO t (a) VALUES ('c'), ('a'), ('b')");
    auto records = database->openTable("t");
    records->setIndex("ByA");
    records->moveNext();
    other.execute("DELETE FROM t WHERE a = 'b'");
    records->moveNext();
    EXPECT_EQ(records->get("a"), Variant("c"));
    other.execute("ALTER TABLE t RENAME a TO z");
    EXPECT_NE(errorOf([&] { records->setIndex("ByA"); }), 0);
    EXPECT_EQ(errorOf([&] { records->seek(t_gencvf::SeekComparison::Equal, "c"); }), 5);
}

}  // namespace
}  // namespace t_genproc
