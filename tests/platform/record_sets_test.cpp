#include <gtest/gtest.h>

#include <limits>

#include "platform/memory/memory_engine.h"
#include "platform/sqlite/sqlite_engine.h"
#include "support/platform_under_test.h"

namespace t_gencvf {
namespace {

using t_genproc::Date, t_genproc::Null, t_genproc::test::errorOf;
using enum SeekComparison;

/// One of each type, in the order of the types.
const char* const kFields[] = {"Any", "Truth", "Byte", "Short", "Long", "Single", "Double", "Date", "Höhe"};

/// On whatever keeps the records.
struct RecordSetTest : testing::TestWithParam<const char*> {
    t_genproc::test::PlatformUnderTest system;
    const bool isInMemory = GetParam() == std::string("memory");
    const std::unique_ptr<t_genproc::DatabaseEngine> engine =
        isInMemory ? t_genproc::memoryEngine() : sqliteEngine(*system.platform.files);
    const std::unique_ptr<t_genproc::Database> database = engine->createDatabase(system.path("a.db"));
    std::unique_ptr<RecordSet> records = open();

    std::unique_ptr<RecordSet> open() {
        TableDefinition table{"Points", {}, {{"ByLong", "LONG"}, {"ByAny", "Any"}}};
        for (const char* name : kFields)
            table.fields.push_back({name, static_cast<FieldType>(table.fields.size())});
        database->createTable(table);
        return database->openTable("points");
    }

    std::string rest() {
        std::string names;
        for (; !records->atEnd(); records->moveNext()) names += toText(records->get("HÖHE"));
        return names + '|';
    }
};
INSTANTIATE_TEST_SUITE_P(, RecordSetTest, testing::Values("memory", "sqlite"));

TEST_P(RecordSetTest, KeepsValuesOfEveryType) {
    using Limits = std::numeric_limits<double>;
    const std::string text = std::string("a\0\xC3\xFF", 4) + std::string(1 << 20, 'x');
    // What the fields are given, and give
    const std::vector<Variant> rows[][2] = {
        {{70000, -3, 255, " 12.5", -2147483648.0, 0.1, 2, -1.25, 0.5},
         {70000, true, std::uint8_t{255}, std::int16_t{12}, std::numeric_limits<std::int32_t>::min(), 0.1F,
          2.0, Date{-1.25}, "0.5"}},
        {{"7", "False", 0.5, -2.5, 1, Limits::quiet_NaN(), -Limits::infinity(), 45000, text},
         {"7", false, std::uint8_t{0}, std::int16_t{-2}, 1, Null{}, -Limits::infinity(), Date{45000}, text}},
        {{2.5, Null{}, t_genproc::Empty{}}, {2.5, Null{}, Null{}}}};
    records->addNew();
    for (const auto& [given, expected] : rows) {
        for (std::size_t i = 0; i < given.size(); ++i) records->let(kFields[i], given[i]);
        records->update();
        records->moveFirst();
        for (std::size_t i = 0; i < given.size(); ++i)
            EXPECT_TRUE(records->get(kFields[i]) == expected[i]) << kFields[i];
        records->edit();
    }
}

TEST_P(RecordSetTest, EditsTheCurrentRecord) {
    using R = RecordSet;
    using Step = std::function<void(R&)>;
    const Step get = [](R&r) { r.get("Höhe"); }, let = [](R&r) { r.let("höhe", "a"); },
               index = [](R&r) { r.setIndex("byLONG"); }, seek = [](R&r) { r.seek(Equal, 1); };
    const auto give = [&](int error, const std::vector<Step>& steps) {
        for (const Step& step : steps) EXPECT_EQ(errorOf([&] { step(*records); }), error);
    };
    give(3021, {get, &R::edit, &R::moveFirst, &R::moveNext});
    give(3020, {let, &R::update, &R::cancelUpdate});
    give(3019, {seek});
    give(3015, {[](R& r) { r.setIndex("None"); }});
    give(3265, {[](R& r) { r.get("None"); }, [](R& r) { r.let("None", 1); }});
    give(0, {&R::addNew, get, let});
    give(6, {[](R& r) { r.let("Byte", -1); }, [](R& r) { r.let("Single", 1e39); }});
    give(13, {[](R& r) { r.let("Long", "7 m"); }});
    give(0, {&R::update});
    give(3021, {get});  // the new record is not the current one
    for (const Step& drop : {Step(&R::cancelUpdate), Step(&R::moveFirst), Step(&R::moveNext), index, seek}) {
        give(0, {&R::moveFirst, &R::edit, [](R& r) { r.let("Höhe", "b"); }, drop});
        give(3020, {&R::update});
    }
    give(0, {&R::moveFirst});
    EXPECT_EQ(rest(), "a|");
}

TEST_P(RecordSetTest, FollowsAnIndex) {
    auto add = [&, name = 'a'](const Variant& number, const Variant& any) mutable {
        records->addNew();
        records->let("Long", number);
        records->let("Any", any);
        records->let("Höhe", std::string(1, name++));
        records->update();
    };
    add(3, "b"), add(Null{}, 10), add(1, Null{}), add(3, "10");
    add(Null{}, 2.5), add(2, "9"), add(-5, ""), add(3, "B");
    records->moveFirst();
    EXPECT_EQ(rest(), "abcdefgh|");
    const auto found = [&](SeekComparison comparison, const std::vector<Variant>& keys) {
        std::string names;
        for (const Variant& key : keys) names += records->seek(comparison, key) ? rest() : "|";
        return names;
    };
    const auto follow = [&] {
        records->setIndex("ByAny");
        EXPECT_EQ(rest(), "cebgdfha|");
        EXPECT_EQ(found(Equal, {10, 11, "10", "c"}), "bgdfha||dfha||");
        EXPECT_EQ(found(GreaterOrEqual, {10, 11, "10", "a", "c"}), "bgdfha|gdfha|dfha|a||");
        records->setIndex("ByLong");
        EXPECT_EQ(rest(), "begcfadh|");
        EXPECT_EQ(found(Equal, {3, "2", 0, Null{}}), "adh|fadh|||");
        EXPECT_EQ(found(GreaterOrEqual, {-9, 0, 3, 4, Null{}}), "gcfadh|cfadh|adh|||");
    };
    follow();
    auto second = std::move(records);  // shares the records
    auto reader = engine->openDatabase(system.path("A.DB"));
    reader->beginReading();
    records = reader->openTable("Points");
    follow();
    reader.reset();
    records = database->openTable("Points");
    records->setIndex("ByLong");
    records->seek(Equal, 1);
    records->edit();
    records->let("Long", 3);
    records->update();  // moves it to another place; it stays the current one
    EXPECT_EQ(records->get("Long"), Variant(3));
    EXPECT_EQ(rest(), "cdh|");
    add(9, 9);
    records = std::move(second);
    EXPECT_EQ(found(Equal, {1, 3}), "|acdhi|");
}

TEST_P(RecordSetTest, OpensWithItsPasswordAlone) {
    const std::string right = std::string("\0\xC3\0'", 4) + std::string(28, 'a');
    const std::vector<std::string> names{"z", "Höhe 1", "a"};
    for (const auto made = engine->createDatabase(system.path("b.db"), right); const auto& name : names)
        made->createTable({name, {{"a"}}});
    using Row = std::tuple<const char*, std::string, int, int>;  // the last two are errors
    for (const auto& [file, password, open, create] :
         {Row{"b.db", right, 0, 3204}, Row{"b.db", right.substr(1) + 'a', 3031, 3204},
          Row{"b.db", "", 3343, 3204}, Row{"a.db", right, 3031, 3204}, Row{"b.db", right.substr(1), 5, 5},
          Row{"c.db", right + 'a', 5, 5}, Row{"c.db", right, 3024, 0}, Row{"C.db", right, 0, 3204}}) {
        const std::string path = system.path(file), key = password;
        EXPECT_EQ(errorOf([&] { engine->openDatabase(path, key); }), open) << file << key;
        EXPECT_EQ(errorOf([&] { engine->createDatabase(path, key); }), create) << file << key;
    }
    const auto opened = engine->openDatabase(system.path("b.db"), right);
    EXPECT_EQ(opened->tableNames(), names);
    EXPECT_EQ(errorOf([&] { opened->openTable("Höhe"); }), 3078);
    EXPECT_EQ(errorOf([&] { opened->createTable({"höhe 1", {{"a"}}}); }), 3010);
}

}  // namespace
}  // namespace t_gencvf
