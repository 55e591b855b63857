#include <gtest/gtest.h>

#include <random>

#include "instanthelp/cInstHelp.h"
#include "instanthelp/message_database.h"
#include "platform/memory/memory_engine.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/sqlite_engine.h"
#include "runtime/errors.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using t_gencvf::LateBound, t_gencvf::MemoryControlArray, t_gencvf::MemoryObject;
using test::failureOf;

const char* const kNoHelp = "(No help available)";

/// A panel that can do something when its caption is emptied.
struct Panel : MemoryObject {
    std::function<void()> onEmptied = [] {};

    void let(std::string_view member, const Variant& value, t_gencvf::Arguments arguments) override {
        if (member == "Caption" && toText(value).empty()) onEmptied();
        MemoryObject::let(member, value, arguments);
    }
};

/// Hears the password.
struct Ear : DatabaseEngine {
    std::unique_ptr<DatabaseEngine> engine;
    std::string password;

    std::unique_ptr<Database> openDatabase(const std::string& name, const std::string& heard) override {
        return engine->openDatabase(name, heard);
    }
    std::unique_ptr<Database> createDatabase(const std::string& name, const std::string& heard) override {
        password = heard;
        return engine->createDatabase(name, heard);
    }
};

/// On whatever keeps the messages.
struct HelpTest : testing::TestWithParam<const char*>, test::TestWorld {
    cInstHelp help{library};
    const std::string file = path("Messages.db");
    std::shared_ptr<Panel> panel = std::make_shared<Panel>();
    std::shared_ptr<MemoryObject> menuEntry = std::make_shared<MemoryObject>();
    Ear* ear = new Ear;  // the platform's

    HelpTest() {
        panel->add("Caption", "before").add("Height", 300);
        menuEntry->add("Checked", true);
        form->add("HelpContextID", 5).add("Height", 5000).add("pnlHelp", ObjectPointer(panel));
        form->add("MenuIhelp", ObjectPointer(menuEntry));
        const bool isInMemory = GetParam() == std::string("memory");
        ear->engine = isInMemory ? memoryEngine() : sqliteEngine(*system.platform.files);
        system.platform.databases.reset(ear);
    }
    using Records = std::vector<std::pair<int, Variant>>;
    void make(const std::string& name, const Records& records) {
        if (GetParam() == std::string("memory")) system.write(name, "the messages are elsewhere");
        const auto database = createMessageDatabase(*system.platform.databases, name);
        const auto table = database->openTable(MessageTable::Name);
        for (const auto& [number, message] : records) {
            table->addNew();
            table->let(MessageTable::HelpContextID, number);
            table->let(MessageTable::Message, message);
            table->update();
        }
    }
    void load(int low, int high, int lowGeneral, int highGeneral) {
        const auto number = [](int value) { return static_cast<std::int16_t>(value); };
        help.LoadInstantHelp(form, number(low), number(high), number(lowGeneral), number(highGeneral), file);
    }
    LateBound caption() { return LateBound(panel)["Caption"]; }
    std::string shown(int number) {
        const auto control = std::make_shared<MemoryObject>();
        control->add("HelpContextID", number);
        help.DisplayHelpBox(form, control);
        return caption().text();
    }
    std::string formHelp() { return help.DisplayFormHelp(form), caption().text(); }
    std::string state() {
        const LateBound window(form);
        return window["Height"].text() + ' ' + window["pnlHelp"]["Height"].text() + ' ' +
               window["MenuIhelp"]["Checked"].text();
    }
};
INSTANTIATE_TEST_SUITE_P(, HelpTest, testing::Values("memory", "sqlite"));

TEST_P(HelpTest, LoadsTheTextsOfAWindow) {
    const std::string text = "a\xC3\xA9" + std::string(1 << 20, 'x');
    make(file, {{105, "b"},
                {100, text},
                {101, Null{}},
                {106, "c"},
                {5, "The window"},
                {11000, "general"},
                {10999, "first"},
                {32767, "last"},
                {-32768, "lowest"}});
    EXPECT_EQ(shown(100), kNoHelp);  // nothing is loaded yet
    struct Load {
        std::array<int, 4> ranges;
        std::vector<std::pair<int, std::string>> expected;
    };
    const Load loads[] = {
        {{100, 105, 10999, 32767},
         {{99, kNoHelp},
          {100, text},
          {101, kNoHelp},
          {104, kNoHelp},
          {105, "b"},
          {106, kNoHelp},
          {10998, kNoHelp},
          {10999, "first"},
          {11000, "general"},
          {32767, "last"},
          {70000, kNoHelp}}},
        {{-32768, 32767, 11000, 11000},
         {{-32768, "lowest"}, {106, "c"}, {10999, kNoHelp}, {11000, "general"}, {32767, kNoHelp}}},
        {{102, 104, 12000, 13000}, {{102, kNoHelp}, {105, kNoHelp}, {11000, kNoHelp}, {32767, kNoHelp}}},
        {{105, 100, 32767, 10999}, {{105, kNoHelp}, {100, kNoHelp}, {32767, kNoHelp}}},
    };
    for (const auto& [ranges, expected] : loads) {
        load(ranges[0], ranges[1], ranges[2], ranges[3]);
        EXPECT_EQ(caption().text(), "");
        for (const auto& [number, message] : expected) EXPECT_EQ(shown(number), message) << number;
        EXPECT_EQ(formHelp(), "The window");
        EXPECT_EQ(
            std::to_array<int>({help.minHelpID(), help.maxHelpID(), help.minHelpIDg(), help.maxHelpIDg()}),
            ranges);
    }
    form->add("HelpContextID", 6);
    load(100, 100, 1, 0);
    EXPECT_EQ(formHelp(), "(No general help available)");
    form->add("HelpContextID", 101);
    load(100, 100, 1, 0);
    EXPECT_EQ(formHelp() + state(), kNoHelp + std::string("5000 300 True"));
}

TEST_P(HelpTest, ShowsWhatIsNew) {
    make(file, {{7, "seven"}, {8, "eight"}});
    form->add("HelpContextID", 0);
    load(7, 8, 0, 0);
    const auto write = [&] { caption() = "host"; };
    const std::pair<int, std::string> rows[] = {{0, "host"},  {7, "seven"}, {7, "host"}, {8, "eight"},
                                                {7, "seven"}, {0, "host"},  {7, "host"}};
    for (const auto& [number, expected] : rows) {
        write();
        EXPECT_EQ(shown(number), expected) << number;
    }
    EXPECT_EQ(formHelp(), "(No general help available)");  // also for 0
    write();
    EXPECT_EQ(formHelp(), "host");
    form->add("HelpContextID", 7);
    menuEntry->add("Checked", false);
    EXPECT_EQ(formHelp() + shown(8), "hosthost");
    menuEntry->add("Checked", true);
    EXPECT_EQ(shown(7), "seven");
    write();
    EXPECT_EQ(formHelp(), "host");  // a window and a control with one number count as the same
}

TEST_P(HelpTest, FoldsThePanelWhereThereAreNoTexts) {
    make(file, {{7, "seven"}});
    load(7, 7, 0, 0);
    make(path("other.db"), {});
    const std::string boxEnd =
        "'  or required table does not exist !!\r\nEnable Instant Help again after database has been "
        "recovered|Tavoru procedures|48\n";
    bool exists = true;
    help.OpenMessageDB(path("other.db"), "instanthelp", false, exists);
    EXPECT_EQ(boxes, "Message database  '" + path("other.db") + boxEnd);
    help.OpenMessageDB(path("other.db"), "InstantHelp", true, exists);
    EXPECT_TRUE(exists);
    menuEntry->add("Checked", false);
    system.write(path("broken.db"), "not looked at");
    help.LoadInstantHelp(form, 8, 9, 10, 11, path("broken.db"));
    EXPECT_EQ(state(), "4700 0 False");
    EXPECT_EQ(failureOf([&] { help.OpenMessageDB(file, "InstantHelp", true, exists); }),
              "91 (Class Module) cInstHelp::Sub OpenMessageDB");  // the load has closed it
    EXPECT_FALSE(exists);
    menuEntry->add("Checked", true);
    panel->add("Height", 200);
    boxes.clear();
    help.LoadInstantHelp(form, 8, 9, 10, 11, path("No such.db"));
    EXPECT_EQ(boxes, "Message database  '" + path("No such.db") + boxEnd);
    EXPECT_EQ(state() + std::to_string(help.minHelpIDg()), "4500 0 False10");
    menuEntry->add("Checked", true);
    EXPECT_EQ(shown(7), "seven");
}

TEST_P(HelpTest, KeepsItsTextsWhateverADatabaseHolds) {
    make(file, {{7, "seven"}});
    load(7, 7, 0, 0);
    using t_gencvf::FieldDefinition, t_gencvf::IndexDefinition;
    const FieldDefinition number{"HelpContextID"}, message{"Message"};
    const IndexDefinition index{"HelpContextID_Index", "HelpContextID"};
    struct Row {
        t_gencvf::TableDefinition table;
        std::vector<Variant> numbers;
        std::string expected;  // the number of the error, the window, and the text of 7
    };
    const std::string open = " 5000 300 True ", folded = " 4700 0 False ";
    const Row rows[] = {
        {{"InstantHelp", {number, message}, {}}, {7}, "3015" + open + "seven"},
        {{"InstantHelp", {number}, {index}}, {5}, "3265" + open + "seven"},  // of the window's own text
        {{"InstantHelp", {number, message}, {index}}, {}, "0" + open + "seven"},
        {{"instanthelp", {number, message}, {index}}, {7}, "0" + folded + "seven"},
        {{"Other", {number}, {}}, {}, "0" + folded + "seven"},
        {{"InstantHelp", {number, message}, {index}}, {"x"}, "13" + open + kNoHelp},
    };
    int files = 0;
    for (const auto& [definition, numbers, expected] : rows) {
        const std::string name = path(std::to_string(++files) + ".db");
        if (GetParam() == std::string("memory")) system.write(name, "elsewhere");
        {
            const auto database = system.platform.databases->createDatabase(name, ear->password);
            database->createTable(definition);
            const auto records = database->openTable(definition.name);
            for (const Variant& each : numbers) {
                records->addNew();
                records->let("HelpContextID", each);
                records->update();
            }
        }
        const int error = test::errorOf([&] { help.LoadInstantHelp(form, 8, 9, 10, 11, name); });
        const std::string window = state();
        panel->add("Height", 300);
        menuEntry->add("Checked", true);
        form->add("Height", 5000);
        shown(8);
        EXPECT_EQ(std::to_string(error) + ' ' + window + ' ' + shown(7), expected) << files;
        EXPECT_EQ(test::openFiles(".db"), 0) << files;
    }
    load(7, 7, 0, 0);
    const auto control = std::make_shared<MemoryObject>(), bare = std::make_shared<MemoryObject>();
    control->add("HelpContextID", 7);
    for (const char* missing : {"pnlHelp", "MenuIhelp"}) {
        EXPECT_EQ(failureOf([&] { help.LoadInstantHelp(bare, 1, 2, 3, 4, file); }),
                  "438 (Class Module) cInstHelp::Sub LoadInstantHelp")
            << missing;
        EXPECT_EQ(failureOf([&] { help.DisplayHelpBox(bare, control); }),
                  "438 (Class Module) cInstHelp::Sub DisplayHelpBox")
            << missing;
        shown(8);
        EXPECT_EQ(shown(7), "seven");
        bare->add("pnlHelp", ObjectPointer(panel));
    }
    EXPECT_EQ(help.maxHelpIDg(), 4);
}

using HelpFilesTest = HelpTest;
INSTANTIATE_TEST_SUITE_P(, HelpFilesTest, testing::Values("sqlite"));

TEST_P(HelpFilesTest, TakeNothingForAMessageDatabaseThatIsNone) {
    DatabaseEngine& engine = *system.platform.databases;
    make(file, {{7, "seven"}, {20000, "old"}});
    const std::string password = ear->password;
    load(7, 7, 20000, 20000);
    std::mt19937 random(1);
    std::string noise(4096, ' ');
    for (char& c : noise) c = static_cast<char>(random());
    system.write(path("noise.db"), noise);
    system.write(path("empty.db"), "");
    engine.createDatabase(path("plain.db"));
    engine.createDatabase(path("key.db"), std::string(32, 'k'));
    const std::pair<std::string, int> rows[] = {
        {"noise", 3031}, {"empty", 3343}, {"plain", 3031}, {"key", 3031}};
    for (const auto& row : rows) {
        const std::string name = row.first + ".db";
        EXPECT_EQ(test::errorOf([&] { help.LoadInstantHelp(form, 1, 2, 3, 4, path(name)); }), row.second);
        EXPECT_EQ(test::openFiles(".db"), 0) << name;
        EXPECT_TRUE(std::filesystem::remove(system.onDisk(name)));  // not on Windows while it is open
    }
    EXPECT_NE(reports.find("> (Class Module) cInstHelp::Sub LoadHelpRecords\n"), std::string::npos);
    EXPECT_EQ(shown(7), "seven");

    // Between the two ranges another program locks the file, or puts another one in its place.
    int emptied = 0;
    {
        sqlite::Connection other(system.platform.files->nativePath(file).value, sqlite::Opening::Existing,
                                 password);
        panel->onEmptied = [&] {
            if (++emptied == 2) other.execute("BEGIN EXCLUSIVE");
        };
        EXPECT_EQ(test::errorOf([&] { load(7, 7, 1, 2); }), 3260);
        panel->onEmptied = [] {};
    }
    EXPECT_EQ(shown(20000), "old");
    EXPECT_EQ(test::openFiles(".db"), 0);
    make(path("new.db"), {{7, "new seven"}, {20000, "new"}});
    panel->onEmptied = [&] {
        if (++emptied == 4) std::filesystem::rename(system.onDisk("new.db"), system.onDisk("Messages.db"));
    };
    load(7, 7, 20000, 20000);
    EXPECT_EQ(shown(7), "seven");
    EXPECT_EQ(shown(20000), "new");
    system.platform.databases = nullptr;
    EXPECT_EQ(test::errorOf([&] { load(1, 2, 3, 4); }), 91);
}

/// A window that has every control and tells which numbers they are given.
struct NumberedWindow : t_gencvf::Object, std::enable_shared_from_this<NumberedWindow> {
    std::string name, path, missing, numbers;

    Variant get(std::string_view member, t_gencvf::Arguments arguments) override {
        if (member == "name") return name;
        if (member == missing) throw RuntimeError(ErrorNumber::NoSuchMember);
        path = member;
        if (!arguments.empty()) path += toText(arguments[0]);
        return ObjectPointer(shared_from_this());
    }
    void let(std::string_view member, const Variant& value, t_gencvf::Arguments) override {
        numbers += path + (member == "WhatsThisHelpID" ? "?" : "") + '=' + toText(value) + ' ';
    }
    Variant call(std::string_view, t_gencvf::Arguments) override { return Empty{}; }
    std::string_view typeName() const override { return "Form"; }
};

TEST(HelpNumbersTest, AreSetInTheirOrder) {
    test::TestWorld world;
    cInstHelp help(world.library);
    using Set = std::function<void(const ObjectPointer&)>;
    const auto by = [&](auto method) {
        return [&help, method](const ObjectPointer& f) { (help.*method)(f); };
    };
    const auto edit = [&](const std::string& exit) {
        return [&help, exit](const ObjectPointer& form) { help.SetHelpID_EditButtons(form, exit); };
    };
    const std::string parameters =
        "fraParameters?=18700 chkCnR=18702 chkMSL=18703 txtKfactor=18704 optVAtype0=18705 optVAtype1=18705 "
        "optVAtype2=18705 optEDMmount0=18706 optEDMmount1=18706 optEDMmount2=18706 txtEDMoffset=18707 "
        "txtReflOffset=18708 chkTiltPrism=18709 ";
    const std::string buttons =
        "cmdSave=19005 cmdCancel=19006 cmdClearPage=19007 txtPageNo=19008 spnPage=19011 ";
    const std::tuple<Set, std::string, std::string> rows[] = {
        {by(&cInstHelp::SetHelpID_Parameters), "frmTraverse", parameters + "txtDescription=18710 "},
        {by(&cInstHelp::SetHelpID_Parameters), "frmLS_Edit", parameters + "txtDescription=18711 "},
        {by(&cInstHelp::SetHelpID_Parameters), "frmDataFile", parameters},
        {by(&cInstHelp::SetHelpID_Adjust), "",
         "fraAdjust?=18800 optAdjustMethod0=18801 optAdjustMethod1=18802 optAdjustMethod2=18803 "
         "optAdjustMethod3=18804 chkMeanObs=18805 chkUseDefSD=18810 cmdLSOptions=18811 "
         "cmdSaveSettings=18813 "},
        {by(&cInstHelp::SetHelpID_Compute), "",
         "fraCompute?=18900 chkShowLog=18901 optPtDesc0=18902 optPtDesc1=18902 optCompute0=18903 "
         "optCompute1=18903 optCompute2=18903 cmdCompute=18904 chkPtNoPrefix=18905 "},
        {by(&cInstHelp::SetHelpID_DatasetButtons), "",
         "pnlButtons?=19021 cmdNew=19022 cmdEdit=19023 cmdSave=19024 cmdCancel=19025 cmdDelete=19026 "
         "cmdExit=19027 datRecords?=19028 "},
        {by(&cInstHelp::SetHelpID_HVSpin), "", "fraDecimals?=19012 spnDecH=19013 spnDecV=19014 "},
        {edit("OK"), "", "pnlButtons?=19000 cmdExit=19001 " + buttons},
        {edit("Exit"), "", "pnlButtons?=19000 cmdExit=19002 " + buttons},
        {edit("exitsave"), "", "pnlButtons?=19000 cmdExit=19003 " + buttons},
        {edit("OKSAVE"), "", "pnlButtons?=19000 cmdExit=19004 " + buttons},
        {edit(" OK"), "", "pnlButtons?=19000 " + buttons},
    };
    const auto window = std::make_shared<NumberedWindow>();
    for (const auto& [set, name, numbers] : rows) {
        window->name = name;
        window->numbers.clear();
        set(window);
        EXPECT_EQ(window->numbers, numbers);
    }
    window->missing = "cmdCancel";
    window->numbers.clear();
    EXPECT_EQ(failureOf([&] { help.SetHelpID_EditButtons(window, "ok"); }),
              "438 (Class Module) cInstHelp::Sub SetHelpID_EditButtons");
    EXPECT_EQ(window->numbers, "pnlButtons?=19000 cmdExit=19001 cmdSave=19005 ");

    const auto label = std::make_shared<MemoryObject>(), box = std::make_shared<MemoryObject>();
    const char* const properties[] = {"BorderStyle", "BackStyle", "Top", "Left", "Height", "Width"};
    for (const char* name : properties) label->add(name, 1);
    box->add("Top", 10).add("Left", 200).add("Height", 315).add("Width", std::int32_t{40000});
    help.SetDummyCBO(label, box);
    std::string frame;
    for (const char* name : properties) frame += LateBound(label)[name].text() + ' ';
    EXPECT_EQ(frame, "0 0 -20 170 375 40060 ");
}

}  // namespace
}  // namespace t_genproc
