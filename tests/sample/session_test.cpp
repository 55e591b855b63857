#include <gmock/gmock.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>

#include "instanthelp/message_database.h"
#include "runtime/text.h"

namespace {

namespace fs = std::filesystem;
using testing::ContainsRegex;

std::string contents(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The sample host as a user runs it, in a folder of its own.
class SampleHost : public testing::Test {
   protected:
    SampleHost() { fs::create_directory(folder_); }
    ~SampleHost() override { fs::remove_all(folder_); }

    int run(const std::string& words, const std::string& program = TAVORU_PROGRAM " --drive drive ") {
        const std::string here = "cd " + folder_.string() + "; " + program;
        const int status = std::system((here + words + " >out 2>err").c_str());
        out_ = contents(folder_ / "out");
        err_ = contents(folder_ / "err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    fs::path folder_ = fs::temp_directory_path() / ("tavoru_session_" + std::to_string(::getpid()));
    std::string out_;
    std::string err_;
};

TEST_F(SampleHost, TellsASessionAndRemembersIt) {
    ASSERT_EQ(run("session"), 0) << err_;
    const std::size_t start = out_.find("Six jobs");
    const std::string jobs = out_.substr(start, out_.find("The menu follows") - start);
    const std::regex menu("File\n      \\[1\\]");
    EXPECT_EQ(std::distance(std::sregex_iterator(jobs.begin(), jobs.end(), menu), std::sregex_iterator()), 6);
    EXPECT_TRUE(jobs.ends_with("[5]  C:\\Users\\Surveyor\\Tavoru\\Data\\Harbour.job\n\n\n")) << jobs;
    EXPECT_THAT(out_, ContainsRegex("[0-9-]{10}  [0-9:]{8} : Error in [^\n]* 2 \\[16\\]\n"));

    EXPECT_THAT(out_,
                ContainsRegex("2026-03-29 02:30:00 by the watch\n    None: .*2025-10-26 .*\n    Two: "));
    EXPECT_THAT(out_, ContainsRegex("Remarks, 4109\n +.No help [^\n]*\n.* !!\n.*\n    after   Height 5700"));

    const std::regex sameDrive("drive before it +([0-9]+)\n.*after it +\\1\n.* time +\\1\n");
    EXPECT_TRUE(std::regex_search(out_, sameDrive)) << out_;

    ASSERT_EQ(run("open quarry"), 0) << err_;
    ASSERT_EQ(run("recent"), 0) << err_;
    EXPECT_THAT(out_, ContainsRegex("  \\[1\\]  [^\n]*Quarry.job\n  \\[2\\]  [^\n]*Church.job\n"));
}

TEST_F(SampleHost, StartsAndShowsTheSystem) {
    const std::pair<std::string, std::string> cases[] = {
        {"start", R"(tempPath +C:\\Users\\Surveyor\\AppData\\Local\\Temp\\)"},
        {"folders", R"(PERSONAL +C:\\Users\\Surveyor\\Documents\\.*10  CSIDL_BITBUCKET +virtual)"},
        {R"(registry get 'HKEY_LOCAL_MACHINE\Software\Tavoru' programfolder)",
         R"(^C:\\Programs\\Tavoru Survey\\.$)"},
        {R"(registry set 'HKLM\Software\Classes\Desk' Colour 'dark green')", "^$"},
        {R"(registry get 'hkcr\Desk' Colour)", "^dark green\n$"},
        {"launch sh -c 'echo first; sleep 0.5'", "^first\nThe result is 0, after [0-9]{3,} ms; .* [1-9]"},
        {R"(dates 'C:\Users\Surveyor\Tavoru\Data\Dam.job')", "last write .*-[A-Z][a-z]{2}-20[0-9]{2}\n$"},
        {R"(recycle 'C:\Users\Surveyor\Tavoru\Data\Dam.job')", "^$"},
        {"environment COLOUR", "^dark blue\n$"},
        {"environment", "(^|\n)COLOUR=dark blue\n"},
        {"sysinfo", "^Windows NT v[0-9.]+ Build [0-9]+\n[0-9]{3,} MB"},
        {"time now --zone 'LHST-10:30LHDT-11,M10.1.0,M4.1.0/24'",
         "[.][0-9]{3}\n.*[.][0-9]{3}\n.* (37800|39600) seconds\nBias +-630 minutes\n"
         "StandardDate +first Sunday of April, 24:00\nDaylightDate +first Sunday of October, 02:00\n"
         "DaylightBias +-30 minutes\n.* (True|False)\n$"},
        {"time now --zone Asia/Kolkata", " 19800 seconds\n.*StandardDate +none\nDaylightDate +none\n.*False"},
        {"time parse 'Thu, 04 Mar 2021 12:34:56 EST' --zone XXX-3", "^2021-03-04 20:34:56\n$"},
        {"time parse 2021-03-04T12:34:56Z --zone XXX-3", "^2021-03-04 15:34:56\n$"},
        {"time local '2026-07-01 23:00:00' --zone Europe/Berlin", "^2026-07-02 01:00:00\n$"},
        {"time utc '2026-03-29 02:30:00' --zone Europe/Berlin", "^None: [^\n]*\n$"},
        {"time utc '2026-03-29 03:30:00' --zone Europe/Berlin", "^One: .*\n  2026-03-29 01:30:00 UTC\n$"},
        {"time utc '2026-10-25 02:30:00' --zone Europe/Berlin",
         "^Two: .*\n  2026-10-25 00:30:00 UTC\n  2026-10-25 01:30:00 UTC\n$"},
        {"time sql '25/12/2021 08:30:00'", "^2021-12-25 08:30:00\n$"},
        {"start --trace <answer", R"(\*\*\* START - .*4b - .*\*\*\* END)"},
    };
    std::ofstream(folder_ / "answer") << "yes\n";
    ::setenv("COLOUR", "dark blue", 1);
    ::setenv("XDG_DATA_HOME", folder_.c_str(), 1);  // for the recycle bin
    for (const auto& [words, output] : cases) {
        EXPECT_EQ(run(words), 0) << words << err_;
        EXPECT_THAT(out_, ContainsRegex(output)) << words;
    }
    EXPECT_FALSE(fs::exists(folder_ / "drive/Users/Surveyor/Tavoru/Data/Dam.job"));
    EXPECT_TRUE(fs::exists(folder_ / "Trash/files/Dam.job"));
    EXPECT_FALSE(fs::exists(folder_ / "drive/Users/Surveyor/AppData/Local/TestFile - SystemConstants.txt"));
}

TEST_F(SampleHost, DescribesAndDisplays) {
    const std::pair<std::string, std::string> cases[] = {
        {"transform list", "^ 1  AGD66 .*\n23  NZGD2000 [^\n]*\n$"},  // describes every record
        {"transform show 6 --file grid.txt", R"(^C:\\Users\\Surveyor\\Tavoru\\List\\grid.txt.$)"},
        {"transform show 10",
         "^Molodensky:    \n     Datum From : NAD27         Spheroid: Clarke 1866\n"
         "     Datum To   : WGS84         Spheroid: WGS84\n"
         "     Dx : -8.000 m              Da : -69.4000 m\n"
         "     Dy : 160.000 m             Df : -0.000037264639\n     Dz : 176.000 m\n$"},
        {"transform show 13", "Rx : -0.0394924 Sec\n.*Sc : -0.009994 ppm\n.*Coordinate axes\n$"},
        {"transform show 18", "Geographic\n     Shift in Latitude: 0.0000 Sec\n *Longitude: 10.4050 Sec\n"},
        {"transform show 20", "^Block Shift:   \n     Type             : Grid .Plane.\n[^\n]*155000.000 m\n"},
        {"transform show 23", "NZTM2000 .Single Zone.\n     Grid To    : Mount Eden 2000 .Single Zone.\n$"},
        {"spheroid OSGB36", "^Airy 1830\n$"},
        {"spheroid LOCAL", "^PLANE\n$"},
        {"header Quarry", "tdh, new\n.*\n[*] AngleSD +Null +3\n.*\n  SaveDBPoints +Null +Null\n"},
        {"header Quarry --adjust", "^[^*]*tdh\n[^*]*\n[*] SaveDBPoints +Null +True\n"},
        {"header Quarry --new", "tdh, new\n.*\n[*] AngleSD +Null +3\n"},
        {"geoid geoidModelType=TIN geoidUseOne",
         "GeoidTINreadyOK +False  turned by geoidTinLoaded\n.*geoidEnabled with geoidTinAvailable\n"},
        {"form <steps",
         "\\[P1] .*\\[<12.500>] +\\[7.1234] +\\[]\n"
         "\\[] +\\[] +\\(5319406.250\\)\n\\[] +\\[] +\\[] +\\[]\n"
         "Focus: East 1, selected: \"12.500\"\n$"},
        {R"(abbreviate 'C:\a\bM\c.txt' 815)",
         "^954 [^\n]*txt [|]\n909 [^\n]*txt[|]\n"
         R"(765 +[|]C:\\a[.]{3}\\c.txt[|].result +[|]C:\\a[.]{3}\\c.txt[|].$)"},
        {"combine 12 Road 10", "^[|]12/Road   [|]\n$"},
        {"combine '' Road 5", "^[|]Road [|]\n$"},
        {"sort <list", "^-10\nA\na\nb\n$"},
        {"sort --numbers <numbers", "^-10\n9\n10\n$"},
        {"prompt ' Pick a point'",
         "Prompt +hidden .*shown .*shown .*\nwith.*\n +pnlPrompt +shown +&H80000018   Pick"
         ".*hidden .*hidden .*\nafter.*\n +pnlPrompt +hidden +&HC0C0C0\n.*shown .*shown "},
        {"topic 4104", "file .*Tavoru.chm\n.* 15,.*4104\n$"},
        {"page 3", "page 3\nonce +yes +no +no\non every page +yes +yes +yes\n$"},
    };
    std::ofstream(folder_ / "steps") << "P1\nenter\n12.5\nenter\n7.1234\ndown\n   \ntrim\nup\nup\nenter\n"
                                     << "enter\nenter\nup\n12.5\ndown\nup\n";
    std::ofstream(folder_ / "list") << "b\r\nA\n-10\na\n";
    std::ofstream(folder_ / "numbers") << "10\n 9\n-10\n";
    for (const auto& [words, output] : cases) {
        EXPECT_EQ(run(words), 0) << words << err_;
        EXPECT_THAT(out_, ContainsRegex(output)) << words;
    }
    EXPECT_EQ(run("topic 7110 --open </dev/null", "PATH=/no " TAVORU_PROGRAM " --drive drive "), 0);
    EXPECT_THAT(err_, ContainsRegex("xdg-open to show the help page C:[^\n]*contents.html"));
    const std::string report = contents(folder_ / "drive/Users/Surveyor/Tavoru/List/grid.txt");
    EXPECT_TRUE(report.starts_with("Distortion Grid: Great Britain\r\n               Datum From")) << report;
    EXPECT_THAT(report, ContainsRegex("OSGBtoETRS.gsb\r\nCopyright [^\n]*\n$"));
}

TEST_F(SampleHost, PrintsDocuments) {
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"transformations --project 'Quarry 7' --to a.pdf", "^3 pages in /[^\n]*/a.pdf\n$",
         "^ {60,}Quarry 7\n+Datum transformations\n+Distortion Grid: Australia.*\f {60,}Quarry 7\n.*\f {60,}"
         "Quarry 7\n.*Auckland.*Copyright [^\n]*\n*\f$"},
        {"field_notes.rtf --to 'C:\\a.pdf'", "^2 pages in /[^\n]*/drive/a.pdf\n$",
         "^ {20,}Field notes\n.*no number[)].\n*\f3 +Levels.* {40,}M. Lind, 18 March 2026\n*\f$"},
        {"field_notes.rtf --selection 1,11 --to a.pdf", "^1 page ", "^ *Field notes\n*\f$"},
        {"wide --to a.pdf", "^1 page ", "^7{80}\n*é +[{]b[}]\n*\f$"},
        {"settings <answers", "^1 page in /[^\n]*/a.pdf\n$",
         "[[]Printing[]]\nOrientation=Landscape\nPaper=A5\nMargins=100,3000,2000,2000\n*\f$"},
    };
    std::ofstream(folder_ / "wide") << std::string(80, '7') << "\r\né  {b}\n";
    std::ofstream(folder_ / "answers") << "PDF file\n" << ("Z:" + folder_.string() + "/a.pdf") << "\n\n\n";
    for (const auto& [words, told, pages] : cases) {
        if (words.starts_with("settings")) {
            ASSERT_EQ(run("page-setup --landscape --paper a5 --margins 100,3000,2000,2000"), 0) << err_;
        }
        ASSERT_EQ(run("print " + words), 0) << words << err_;
        EXPECT_THAT(out_, ContainsRegex(told)) << words;
        const std::string file = out_.substr(out_.find('/'), out_.find('\n') - out_.find('/'));
        ASSERT_EQ(run("pdftotext -layout " + (file.empty() ? "a.pdf" : file) + " -", ""), 0) << err_;
        EXPECT_THAT(out_, ContainsRegex(pages)) << words;
    }
    ASSERT_EQ(run("pdfinfo a.pdf", ""), 0);
    EXPECT_THAT(out_, ContainsRegex("Page size: +59[45][.0-9]* x (419|420)"));
}

TEST_F(SampleHost, MakesListsAndChecksMessages) {
    const std::tuple<const char*, const char*, int, const char*> cases[] = {
        {"5 | a|b\r\n-32768 | z\n\n5 | a|b", "$M s m.db", 0, "^$"},
        {"5 | a\n7 | z\n5 | b", "$M s m.db", 1, "s, line 3: 5 has another text in line 1\n$"},
        {"#\n32768 | a", "$M s m.db", 1, "s, line 2: 32768 is not from -32768 to 32767\n$"},
        {"5 | ", "$M s m.db", 1, "s, line 1: there is no text behind the |\n$"},
        {"", "$M --list m.db", 0, "^-32768 [|] z\n5 [|] a[|]b\n$"},
        {"4555 | a", "$M --check options s", 1, "^frmLSO[^\n]* 4500, .*No control [^\n]* 4555: a\n$"},
        {"", "for w in traverse network file dataset options; do $M --check $w drive/P*/T*/M*.db; done", 0,
         "^txtRemarks has the number 4109, which has no text\n$"},
    };
    ::setenv("M", MAKE_MESSAGES, 1);
    EXPECT_EQ(run("help dataset CBOdatum"), 0);
    for (const auto& [source, words, exitCode, told] : cases) {
        std::ofstream(folder_ / "s") << source;
        EXPECT_EQ(run(words, ""), exitCode) << words;
        EXPECT_THAT(out_ + err_, ContainsRegex(told)) << words;
    }
}

/// Hears the password, and opens nothing.
struct Ear : t_genproc::DatabaseEngine {
    using Opened = std::unique_ptr<t_genproc::Database>;
    using Text = const std::string&;
    Opened openDatabase(Text, Text heard) override { return password = heard, nullptr; }
    Opened createDatabase(Text, Text) override { return nullptr; }
    std::string password;
};

TEST(Password, IsNotInTheProgram) {
    Ear ear;
    t_genproc::openMessageDatabase(ear, "");
    ASSERT_EQ(ear.password.size(), 32U);
    std::string digits;
    for (const char character : ear.password) {
        const auto byte = static_cast<unsigned char>(character);
        digits += {"0123456789abcdef"[byte / 16], "0123456789abcdef"[byte % 16]};
    }
    for (const char* file : {"/proc/self/exe", TAVORU_PROGRAM, MAKE_MESSAGES}) {
        const std::string program = contents(file);
        EXPECT_NE(program.find("HelpContextID_Index"), std::string::npos) << file;
        for (const std::string& secret : {ear.password, digits, t_genproc::text::upper(digits)}) {
            for (std::size_t quarter = 0; quarter < 4; ++quarter) {
                const std::string part = secret.substr(quarter * secret.size() / 4, secret.size() / 4);
                EXPECT_EQ(program.find(part), std::string::npos) << file;
            }
        }
    }
}

TEST_F(SampleHost, AnswersWrongUseAndFailuresInOneLine) {
    const std::pair<std::string, int> uses[] = {
        {"paint", 2},
        {"setting get General", 2},
        {"recent remove 6", 2},
        {"recent remove 5", 1},
        {"start --quickly", 2},
        {"launch", 2},
        {"launch nosuch", 1},
        {"dates 'C:\\no'", 1},
        {"registry get HKXX Name", 2},
        {"registry get HKCU Name", 1},
        {"recycle 'C:\\n'", 1},
        {"environment NO_SUCH", 1},
        {"transform show two", 2},
        {"transform show 99", 1},
        {"transform show 1 --file", 2},
        {"header", 2},
        {"geoid geoidUse", 2},
        {"geoid geoidUseOne=yes", 2},
        {"transform show 1.5", 2},
        {"time local '2026-02-29 10:00:00'", 2},
        {"time utc 2026-02-28", 2},
        {"time parse yesterday", 1},
        {"time parse 2021-13-04T12:34:56Z", 1},
        {"time now --zone No/Where", 1},
        {"help house", 2},
        {"help file txtRemarks", 2},
        {"abbreviate C: wide", 2},
        {"combine a b 40000", 2},
        {"combine Road b 3", 1},
        {"sort --numbers </proc/self/comm", 1},
        {"topic 1.5", 2},
        {"print transformations </dev/null", 1},
        {"print nowhere.txt --to a.pdf", 1},
        {"print transformations --printer Nobody", 1},
        {"print transformations --to /proc/none/a.pdf", 1},
        {"print transformations --selection 5", 2},
        {"print transformations --selection 90000,90001 --to a.pdf", 1},
        {"page-setup </dev/null", 1},
        {"page-setup --paper A99", 2},
        {"page-setup --margins 1,2,3", 2},
        {"capture Nobody a.png", 1},
    };
    for (const auto& [use, exitCode] : uses) {
        EXPECT_EQ(run(use), exitCode) << use;
        EXPECT_THAT(err_, ContainsRegex("(^|: )tavoru: [^\n]+\n$")) << use;
        EXPECT_EQ(out_, "") << use;
    }
}

}  // namespace
