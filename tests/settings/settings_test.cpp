#include <gtest/gtest.h>

#include "instanthelp/cInstHelpSettings.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using test::failureOf;

/// The groups of the user settings file; a blank ends a line. "@07" and "#07" stand for the seventh member of
/// the record, as a digit and as a word. In the least-squares record each number is that of its member.
const std::string kGroups[] = {
    "DataPath=C:\\D\\ ListPath=C:\\L\\ Instant_Help=@01 ",
    "ListFile_Grouping=-2 Editor=ed Start_maximized=@03 Load_Last=@04 Show_Extension=@05 Recycle_Backups=@06 "
    "Kfactor=0.9996 Prompt_Mode=@08 ",
    "[data] Output_Dec_H=3 Output_Dec_V=255 Projection=UTM Zone=33 Geodetic_Datum=ETRS Height_Datum=Höhe "
    "Earth_Radius=6371.5 Approx_Latitude=-47 Coord_Type=2 Apply_Geoid_Sep=@10 G-S_Separation=-0.1 "
    "Deflect_NS=1.5 Deflect_EW=2.5 Interp_Method=cubic Geoid_File=g.bin Geoid_Type=4 Spheroid=GRS80 "
    "Spheroidal=#18 Geographic=#19 Project_Grid=#20 Height_In_CSF=#21 V_Datum_Spheroidal=#22 "
    "V_Datum_Geoidal=#23 V_Datum_Offset=8.1204E-16 ",
    "[ls] Prov_Pt_Tolerance_H=1 Prov_Pt_Tolerance_V=2 LS_Conv_Limit_H=3 LS_Conv_Limit_V=4 LS_SD_Angles=5 "
    "LS_SD_DistConst=7 LS_SD_DistPPM=8 LS_SD_HtDiff=9 LS_CentHA=6 LS_UnitWts=@34 LS_CSD_Output=@36 "
    "LS_Matrix_Dump=@35 LS_SP1=@37 LS_Scale_ErrEllipses=@38 LS_Iterations=41 LS_SD_Azimuth=10 "
    "LS_SD_Direction=11 LS_SD_SlopeDisPPM=12 LS_SD_SlopeDisConst=13 LS_SD_ZenAng=14 LS_SD_Coords=15 "
    "LS_SD_Vectors=16 LS_CentAz=17 LS_CentDir=18 LS_CentHD=19 LS_CentHtDiff=20 LS_CentTgtHA=21 "
    "LS_CentTgtAz=22 "
    "LS_CentTgtDir=23 LS_CentTgtHD=24 LS_CentTgtHtDiff=25 LS_CentSDh=26 LS_CentZAh=27 LS_CentCoordsH=28 "
    "LS_CentVectorsH=29 LS_CentSDv=30 LS_CentZAv=31 LS_CentCoordsV=32 LS_CentVectorsV=33 LS_Constr_Factor=42 "
    "LS_AutoRescale=#39 LS_RelaxObsInErr=#40 LS_Corrections=44 LS_OutlierTest=43 "
    "LS_ConfLevel_ChiSquared=45.1 "
    "LS_ConfLevel_Ellipses=46 LS_ConfLevel_MDE=47 LS_ConfLevel_Outliers=48.1 LS_SaveDBPoints=#49 "
    "LS_SaveDBPtsFixed=#50 LS_SavePtEntry=#51 LS_SavePtEntryFixed=#52 LS_SavePtEntryOpt=53 ",
    "[jobs] 1=C:\\Jobs\\Höhe 2= 3= 4=é 5=x "};

struct SettingsTest : testing::Test, test::TestWorld {
    SettingsTest() {
        names = {"general", "program", "data", "ls", "jobs", "One", "Two", "ja", "nein"};
        int entry = 0;
        for (const char* caption : {"&1  C:\\Jobs\\Höhe", "&2 ", "", "&4  é", "äöü x"})
            menu->element(entry++).add("Caption", caption);
    }

    /// Saves the groups of those letters of "PTGDLR" into empty files, the record of one group missing. In
    /// each record the switch that is member n has the given bit of n.
    std::string save(const std::string& groups, int bit = 0, char missing = ' ') {
        const auto on = [bit](int member) { return (member >> bit & 1) != 0; };
        const auto has = [&](char group) { return groups.find(group) != std::string::npos; };
        cInstHelpSettings help;
        help.gDisplayIhelp(on(1));
        const t_gencvf::GeneralPreferences preferences{-2, "ed", on(3), on(4), on(5), on(6), 0.9996, on(8)};
        const t_gencvf::JobConfiguration data{
            3,   255,     "UTM",   33, "ETRS",  "Höhe", 6371.5, -47,    2,      on(10), -0.1,   1.5,
            2.5, "cubic", "g.bin", 4,  "GRS80", on(18), on(19), on(20), on(21), on(22), on(23), 8.1204e-16};
        const t_gencvf::LeastSquaresOptions ls{
            1,  2,    3,     4,  5,    6,      7,      8,      9,      10,     11,     12,     13, 14,
            15, 16,   17,    18, 19,   20,     21,     22,     23,     24,     25,     26,     27, 28,
            29, 30,   31,    32, 33,   on(34), on(35), on(36), on(37), on(38), on(39), on(40), 41, 42,
            43, "44", 45.1F, 46, "47", 48.1F,  on(49), on(50), on(51), on(52), 53};
        const auto given = [missing](char group, auto& record) {
            return group == missing ? nullptr : &record;
        };
        for (const std::string& file : {prog.userINIpath, prog.progINIpath}) system.write(file, "");
        return failureOf([&] {
            procs.INISettingsSave(has('P'), has('T'), has('G'), has('D'), has('L'), has('R'), prog,
                                  given('J', job), given('P', help), given('G', preferences),
                                  given('D', data), given('L', ls), missing == 'R' ? nullptr : form,
                                  &changes);
        });
    }

    /// What the user settings file then holds, and the program-wide one behind it.
    void expectSaved(const std::string& groups, int bit = 0) {
        std::string text, programWide = "[program] ";
        for (const char group : groups) {
            if (group == 'T') programWide += "ProgPath=C:\\P\\ ";
            const std::size_t index = std::string("PGDLR").find(group);
            if ((group == 'P' || group == 'G') && text.empty()) text = "[general] ";
            if (index != std::string::npos) text += kGroups[index];
        }
        for (std::size_t at = 0; (at = text.find_first_of("@#")) != std::string::npos;) {
            const bool on = (std::stoi(text.substr(at + 1, 2)) >> bit & 1) != 0;
            text.replace(at, 3, text[at] == '@' ? (on ? "1" : "0") : (on ? "ja" : "nein"));
        }
        const auto lines = [](const std::string& words) {
            return std::regex_replace(words, std::regex(" "), "\r\n");
        };
        EXPECT_EQ(system.read(prog.userINIpath), system.stored(lines(text)));
        EXPECT_EQ(system.read(prog.progINIpath), lines(programWide + "One=1 Two=2 "));
    }

    t_gencvf::JobItem job{.jobName = "", .jobExtension = "", .jobDataPath = "C:\\D\\", .jobPath = ""};
    std::int16_t changes = 0;
};

TEST_F(SettingsTest, WriteTheGroupsThatAreAskedFor) {
    for (const std::string groups : {"", "P", "T", "G", "D", "L", "R"}) {
        changes = 0;
        EXPECT_EQ(save(groups), "none");
        expectSaved(groups);
        EXPECT_EQ(changes, groups == "T" ? 3 : 2);
    }
    for (int bit = 0; bit < 6; ++bit) {
        EXPECT_EQ(save("PTGDLR", bit), "none");
        expectSaved("PTGDLR", bit);
    }
    EXPECT_EQ(save("P", 0, 'J'), "none");
    EXPECT_EQ(system.read(prog.userINIpath), "[general]\r\nListPath=C:\\L\\\r\nInstant_Help=1\r\n");
    prog.userINIpath = path("");  // takes nothing
}

TEST_F(SettingsTest, KeepWhatIsWrittenBeforeAFailure) {
    const std::string all = "PTGDLR", in = " (Class Module) cGenProcs::Sub ";
    for (const char missing : std::string("GDLR")) {
        EXPECT_EQ(save(all, 1, missing), "91" + in + "INISettingsSave");
        expectSaved(all.substr(0, all.find(missing)), 1);
    }
    EXPECT_EQ(save("P", 0, 'P'), "91" + in + "INISettingsSave");
    EXPECT_EQ(system.read(prog.userINIpath) + system.read(prog.progINIpath),
              "[general]\r\nDataPath=C:\\D\\\r\nListPath=C:\\L\\\r\n");
    form = std::make_shared<t_gencvf::MemoryObject>();
    EXPECT_EQ(save("R"), "438" + in + "INISettingsSave");
    EXPECT_EQ(failureOf([&] { procs.RegSettingsSave(true, true, true, true, true, true, &prog); }),
              "51" + in + "RegSettingsSave");
}

TEST_F(SettingsTest, RememberTheLastJob) {
    std::string all;
    for (const std::string last : {"[jobs] Last=Dam.job ", "[jobs] Last=a.b\\Höhe ", "[jobs] Last=.job ",
                                   "[jobs] Last=Dam. ", "[jobs] "}) {
        system.write(prog.userINIpath, system.stored(lines(last)));
        procs.ReadCurrentJobName(job, prog.userINIpath);
        all += job.jobName + '|' + job.jobExtension + ' ';
        EXPECT_EQ(system.read(prog.userINIpath), system.stored(lines(last)));
    }
    EXPECT_EQ(all, "Dam|job a|b\\Höhe .job|job Dam.| | ");
    procs.SaveCurrentJobName({.jobName = "", .jobExtension = ".job"}, prog);
    EXPECT_EQ(system.read(prog.userINIpath), "[jobs]\r\n");
    procs.SaveCurrentJobName({.jobName = "Dam"}, prog);
}

TEST_F(SettingsTest, ChooseTheListFolder) {
    struct Row {
        std::int16_t grouping;
        std::string dataPath, folder;
        bool made;
    };
    const std::string data = path("data\\"), list = path("List\\");
    const Row rows[] = {{2, data, data, false},
                        {2, "  ", list, false},
                        {5, data, list, false},
                        {-1, data, list, true},
                        {1, path("x\\")}};
}

}  // namespace
}  // namespace t_genproc
