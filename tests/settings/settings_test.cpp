#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "host/memory_record_set.h"
#include "instanthelp/cInstHelpSettings.h"
#include "platform/file_system.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using test::failureOf;

/// What each letter of kLetters writes; a blank or a line break ends a line. "@07" and "#07" stand for the
/// seventh member of the record, as a digit and as a word. In the least-squares record the numbers are those
/// of numberedOptions.
const std::string kLetters = "JPIGDLR";
const std::string kGroups[] = {
    R"(DataPath=C:\D\ )",
    R"(ListPath=C:\L\ )",
    "Instant_Help=@01 ",
    R"(ListFile_Grouping=-2 Editor=ed Start_maximized=@03 Load_Last=@04 Show_Extension=@05 Recycle_Backups=@06
Kfactor=0.9996 Prompt_Mode=@08 )",
    R"([data] Output_Dec_H=3 Output_Dec_V=255 Projection=UTM Zone=33 Geodetic_Datum=ETRS Height_Datum=Höhe
Earth_Radius=6371.5 Approx_Latitude=-47 Coord_Type=2 Apply_Geoid_Sep=@10 G-S_Separation=-0.1
Deflect_NS=1.5 Deflect_EW=2.5 Interp_Method=cubic Geoid_File=g.bin Geoid_Type=4 Spheroid=GRS80
Spheroidal=#18 Geographic=#19 Project_Grid=#20 Height_In_CSF=#21 V_Datum_Spheroidal=#22
V_Datum_Geoidal=#23 V_Datum_Offset=8.1204E-16 )",
    R"([ls] Prov_Pt_Tolerance_H=1 Prov_Pt_Tolerance_V=2 LS_Conv_Limit_H=3 LS_Conv_Limit_V=4 LS_SD_Angles=5
LS_SD_DistConst=7 LS_SD_DistPPM=8 LS_SD_HtDiff=9 LS_CentHA=6 LS_UnitWts=@34 LS_CSD_Output=@36
LS_Matrix_Dump=@35 LS_SP1=@37 LS_Scale_ErrEllipses=@38 LS_Iterations=41 LS_SD_Azimuth=10
LS_SD_Direction=11 LS_SD_SlopeDisPPM=12 LS_SD_SlopeDisConst=13 LS_SD_ZenAng=14 LS_SD_Coords=15
LS_SD_Vectors=16 LS_CentAz=17 LS_CentDir=18 LS_CentHD=19 LS_CentHtDiff=20 LS_CentTgtHA=21 LS_CentTgtAz=22
LS_CentTgtDir=23 LS_CentTgtHD=24 LS_CentTgtHtDiff=25 LS_CentSDh=26 LS_CentZAh=27 LS_CentCoordsH=28
LS_CentVectorsH=29 LS_CentSDv=30 LS_CentZAv=31 LS_CentCoordsV=32 LS_CentVectorsV=33 LS_Constr_Factor=42
LS_AutoRescale=#39 LS_RelaxObsInErr=#40 LS_Corrections=44 LS_OutlierTest=43 LS_ConfLevel_ChiSquared=45.1
LS_ConfLevel_Ellipses=46 LS_ConfLevel_MDE=47 LS_ConfLevel_Outliers=48.1 LS_SaveDBPoints=#49
LS_SaveDBPtsFixed=#50 LS_SavePtEntry=#51 LS_SavePtEntryFixed=#52 LS_SavePtEntryOpt=53 )",
    R"([jobs] 1=C:\Jobs\Höhe 2= 3= 4=é 5=y )"};

/// Each number is that of its member.
template <class Switch>
t_gencvf::LeastSquaresOptions numberedOptions(const Switch& on) {
    return {1,  2,    3,     4,  5,    6,      7,      8,      9,      10,     11,     12,     13, 14,
            15, 16,   17,    18, 19,   20,     21,     22,     23,     24,     25,     26,     27, 28,
            29, 30,   31,    32, 33,   on(34), on(35), on(36), on(37), on(38), on(39), on(40), 41, 42,
            43, "44", 45.1F, 46, "47", 48.1F,  on(49), on(50), on(51), on(52), 53};
}

struct SettingsTest : testing::Test, test::TestWorld {
    SettingsTest() { names = {"general", "program", "data", "ls", "jobs", "One", "Two", "ja", "nein"}; }

    std::string words(const std::string& file) {
        std::string text = system.platform.files->decode(system.read(file));
        std::erase(text, '\r');
        std::ranges::replace(text, '\n', ' ');
        return text;
    }

    /// Saves the groups of those letters ("T": the program's path); a small letter is one whose record is
    /// missing. The switch that is member n of its record has the given bit of n.
    void saveAndExpect(const std::string& groups, int bit = 0) {
        const auto on = [bit](int member) { return (member >> bit & 1) != 0; };
        const auto has = [&](const char* letters) {
            return groups.find_first_of(letters) != std::string::npos;
        };
        cInstHelpSettings help;
        help.gDisplayIhelp(on(1));
        const t_gencvf::JobItem job{"", "", "C:\\D\\", ""};
        const t_gencvf::GeneralPreferences general{-2, "ed", on(3), on(4), on(5), on(6), 0.9996, on(8)};
        const t_gencvf::JobConfiguration data{
            3,   255,     "UTM",   33, "ETRS",  "Höhe", 6371.5, -47,    2,      on(10), -0.1,   1.5,
            2.5, "cubic", "g.bin", 4,  "GRS80", on(18), on(19), on(20), on(21), on(22), on(23), 8.1204e-16};
        const t_gencvf::LeastSquaresOptions ls = numberedOptions(on);
        std::int16_t changes = 0;
        for (const std::string& file : {prog.userINIpath, prog.progINIpath}) system.write(file, "");
        const std::string failure = failureOf([&] {
            procs.INISettingsSave(has("P"), has("T"), has("Gg"), has("Dd"), has("Ll"), has("Rr"), prog,
                                  has("J") ? &job : nullptr, has("i") ? nullptr : &help,
                                  has("g") ? nullptr : &general, has("d") ? nullptr : &data,
                                  has("l") ? nullptr : &ls, has("r") ? nullptr : form, &changes);
        });

        std::string user, programWide = has("i")   ? ""
                                        : has("T") ? "[program] ProgPath=C:\\P\\ One=1 Two=2 "
                                                   : "[program] One=1 Two=2 ";
        for (const char group : groups.substr(0, groups.find_first_of("igdlr"))) {
            const std::size_t index = kLetters.find(group);
            if (user.empty() && index < 4) user = "[general] ";
            if (group != 'T') user += kGroups[index];
        }
        std::ranges::replace(user, '\n', ' ');
        for (std::size_t at = 0; (at = user.find_first_of("@#")) != std::string::npos;) {
            const bool set = on(std::stoi(user.substr(at + 1, 2)));
            user.replace(at, 3, user[at] == '@' ? (set ? "1" : "0") : (set ? "ja" : "nein"));
        }
        EXPECT_EQ(failure, has("igdlr") ? "91 (Class Module) cGenProcs::Sub INISettingsSave" : "none");
        EXPECT_EQ(words(prog.userINIpath), user);
        EXPECT_EQ(words(prog.progINIpath), programWide);
        EXPECT_EQ(changes, std::ranges::count(programWide, '='));
    }
};

TEST_F(SettingsTest, WriteTheGroupsThatAreAskedFor) {
    int entry = 0;
    for (const char* caption : {"&1  C:\\Jobs\\Höhe", "&2 ", "", "&4  é", "äöüx y"})
        menu->element(entry++).add("Caption", caption);
    for (int bit = 0; bit < 6; ++bit) saveAndExpect("JPITGDLR", bit);
    for (const char* groups : {"", "PI", "T", "G", "D", "L", "R", "JPiTG", "PITg", "TGd", "Dl", "Lr"})
        saveAndExpect(groups);
    EXPECT_EQ(failureOf([&] {
                  procs.INISettingsSave(false, false, false, false, false, true, prog, nullptr, nullptr,
                                        nullptr, nullptr, nullptr, menu);
              }),
              "438 (Class Module) cGenProcs::Sub INISettingsSave");
    EXPECT_EQ(failureOf([&] { procs.RegSettingsSave(true, true, true, true, true, true, &prog); }),
              "51 (Class Module) cGenProcs::Sub RegSettingsSave");
}

TEST_F(SettingsTest, RememberTheLastJob) {
    t_gencvf::JobItem job;
    const std::pair<std::string, std::string> rows[] = {
        {"Last=Dam.job ", "Dam|job"}, {"Last=a.b\\c ", "a|b\\c"}, {"Last=.job ", ".job|job"}, {"", "|"}};
    for (const auto& [last, expected] : rows) {
        system.write(prog.userINIpath, "[jobs]\n" + last);
        procs.ReadCurrentJobName(job, prog.userINIpath);
        procs.SaveCurrentJobName({"", ".job", "", ""}, prog);
        EXPECT_EQ(job.jobName + '|' + job.jobExtension, expected);
        EXPECT_EQ(words(prog.userINIpath), "[jobs] " + last);
    }
    procs.SaveCurrentJobName({"Höhe", ".job", "", ""}, prog);
    EXPECT_EQ(words(prog.userINIpath), "[jobs] Last=Höhe.job ");

    prog.userINIpath = path("none\\user.ini");  // takes no key: passed over
    const cInstHelpSettings help;
    procs.SaveCurrentJobName({"Dam", "", "", ""}, prog);
    procs.INISettingsSave(true, false, false, false, false, false, prog, &job, &help);
    EXPECT_EQ(words(prog.progINIpath), "[program] One=1 Two=2 ");
}

TEST_F(SettingsTest, ChooseTheListFolder) {
    const std::string data = path("data\\"), list = path("List\\");
    const auto expect = [&](std::int16_t grouping, const std::string& dataPath, const std::string& folder,
                            bool made) {
        EXPECT_EQ(procs.SetListPath(grouping, path(""), dataPath), folder) << grouping;
        EXPECT_EQ(folderExists(*system.platform.files, folder), made) << grouping;
    };
    expect(2, data, data, false);
    expect(2, "  ", list, false);
    expect(5, data, list, false);
    expect(-1, data, list, true);
    expect(0, data, list, true);
    expect(1, path(""), list, true);
    EXPECT_EQ(failureOf([&] { procs.SetListPath(1, "", data); }),
              "76 (Class Module) cGenProcs::Function SetListPath");
}

/// The fields of a data header in the order of the options' members, and how each is completed: N normalised,
/// D left or defaulted, O overwritten in a new header, S overwritten for least squares, s defaulted for them.
const std::string kHeader =
    "ProvPtTolH ProvPtTolV ConvLimitH ConvLimitV AngleSD AngleCentr DisConst DisPPM HtDiffSD AzimuthSD "
    "DirectionSD SlopeDisPPM SlopeDisConst ZenAngSD CoordsSD VectorsSD AzimuthCent DirectionCent HorDistCent "
    "HtDiffCent AngleTgtCentr AzimuthTgtCent DirectionTgtCent HorDistTgtCent HtDiffTgtCent SlopeDistCentH "
    "ZenAngleCentH CoordsCentH VectorsCentH SlopeDistCentV ZenAngleCentV CoordsCentV VectorsCentV UnitWts "
    "Dump "
    "CSD SP1 ScaleEE AutoRescale RelaxObsInErr Iterations SDConstrFactor OutlierTest Corrections "
    "ConfLevelChiSquared ConfLevelEllipses ConfLevelMDE ConfLevelOutliers SaveDBPoints SaveDBPtsFixed "
    "SavePtEntry SavePtEntryFixed SavePtEntryOpt ";
const std::string kTreatments = "NNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNOOOOODDDDDDDDDDSSSSs";

struct DataHeaderTest : SettingsTest {
    std::vector<std::string> fields;
    const t_gencvf::LeastSquaresOptions options = numberedOptions([](int member) { return member % 2 != 0; });

    DataHeaderTest() {
        std::istringstream words(kHeader);
        for (std::string name; words >> name;) fields.push_back(name);
    }
    t_gencvf::MemoryRecordSet header(const Variant& value, const std::string& without = {}) {
        std::vector<t_gencvf::MemoryRecordSet::Field> record;
        for (const std::string& name : fields) {
            if (name != without) record.push_back({name, value});
        }
        auto set = t_gencvf::MemoryRecordSet::ofRecord(record);
        set.edit();
        return set;
    }
};

TEST_F(DataHeaderTest, IsCompletedFromTheOptions) {
    const std::string optionTexts[] = {"44", "45.1", "46", "47", "48.1"};
    for (const Variant& stored : {Variant(Null{}), Variant(Empty{}), Variant(" 7.5")}) {
        const bool isNew = !std::holds_alternative<std::string>(stored);
        for (const int mode : {0, 1, 2, 3}) {
            t_gencvf::MemoryRecordSet set = header(stored);
            procs.CheckLSOptionDefaults(set, options, (mode & 1) != 0, (mode & 2) != 0);
            for (std::size_t i = 0; i < fields.size(); ++i) {
                const auto number = static_cast<int>(i) + 1;
                const char treatment = kTreatments[i];
                const std::string option =
                    treatment == 'O' || treatment == 'S' || number == 39 || number == 40
                        ? (number % 2 != 0 ? "True" : "False")
                    : number >= 44 && number <= 48 ? optionTexts[number - 44]
                                                   : std::to_string(number);
                const bool runs = treatment == 'O' ? (mode & 1) == 0
                                                   : treatment == 'N' || treatment == 'D' || (mode & 2) != 0;
                std::string expected = isNew ? "" : " 7.5";
                if (runs && treatment == 'N') expected = isNew ? std::to_string(number * 100 - 5) : "745";
                if (runs && treatment != 'N' && (isNew || treatment == 'O' || treatment == 'S'))
                    expected = option;
                const Variant value = set.get(fields[i]);
                EXPECT_EQ(isNull(value) ? "" : toText(value), expected) << fields[i] << " in mode " << mode;
            }
        }
    }
}

TEST_F(DataHeaderTest, KeepsWhatWasWrittenAheadOfAFailure) {
    const auto complete = [&](t_gencvf::RecordSet& set) {
        return failureOf([&] { procs.CheckLSOptionDefaults(set, options, true); });
    };
    t_gencvf::MemoryRecordSet lacking = header(Null{}, "DirectionSD");
    EXPECT_EQ(complete(lacking), "3265 (Class Module) cGenProcs::Sub CheckLSOptionDefaults");
    EXPECT_EQ(lacking.get("azimuthsd"), Variant(995.0));
    EXPECT_EQ(lacking.get("SlopeDisPPM"), Variant(Null{}));

    t_gencvf::MemoryRecordSet wrong = header(Null{});
    wrong.let("ConvLimitH", "wide");
    EXPECT_EQ(complete(wrong), "13 (Class Module) cGenProcs::Sub CheckLSOptionDefaults");
    EXPECT_EQ(wrong.get("ProvPtTolV"), Variant(195.0));
    wrong.cancelUpdate();
    EXPECT_EQ(complete(wrong), "3020 (Class Module) cGenProcs::Sub CheckLSOptionDefaults");
    EXPECT_EQ(procs.SetDefaultIfNull(Null{}, Null{}), Variant(Null{}));
    EXPECT_EQ(procs.SetDefaultIfNull("", 1), Variant(""));
}

}  // namespace
}  // namespace t_genproc
