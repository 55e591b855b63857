#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "host/memory_record_set.h"
#include "support/test_world.h"

namespace t_genproc {
namespace {

using test::failureOf;
using Record = std::vector<t_gencvf::MemoryRecordSet::Field>;

const std::vector<std::string> kDatums{"never,read", "AGD66,ANS", "GDA94,GRS80", "Höhen66789,Lost",
                                       "LOCAL,ANS"};
const std::vector<std::string> kSpheroids{"(", "GRS80 (a)", "ANS (a = 6378160, 1/f = 298.25)"};

/// What becomes of a field that is Null, or holds the text "x": J is joined, D a datum, N a number, C a code
/// that selects what follows, Z a zone, T compared with a text;
/// - is of no use.
struct Field {
    std::string name;
    char role;
    Variant value;
};
struct Transformation {
    std::vector<Field> fields;
    std::string text;
};

// clang-format off
const Transformation kTransformations[] = {
    {{{"TransType", 'C', 3}, {"Description", 'J', "zones"}, {"DatumFrom", 'D', "AGD66"}, {"DatumTo", 'T', "LOCAL"},
      {"ZZ_GridFrom", 'J', "AMG"}, {"ZZ_ZoneFrom", 'Z', 55}, {"ZZ_GridTo", 'J', "Höhe"}, {"ZZ_ZoneTo", 'Z', 0}},
     "Zone-to-Zone:  zones/"
     "Datum      : AGD66         Spheroid: ANS/Grid From  : AMG Zone55/Grid To    : Höhe (Single Zone)"},
    {{{"TransType", 'C', 2}, {"Description", 'J', Null{}}, {"DatumFrom", 'D', "AGD66"}, {"DatumTo", 'D', "GDA94"},
      {"BS_Plane", 'C', false}, {"BS_Type", 'C', 1}, {"BS_DeltaEastLat", 'N', -5.86}, {"BS_DeltaNorthLong", 'N', .28125},
      {"BS_DeltaHeight", 'N', std::int16_t{0}}},
     "Block Shift:   /"
     "Datum From : AGD66         Spheroid: ANS/Datum To   : GDA94         Spheroid: GRS80/Type             : Geographic/"
     "Shift in Latitude: -5.8600 Sec/        Longitude: 0.28125 Sec/           Height: 0.000 m"},
    {{{"TransType", 'C', 2.0}, {"Description", 'J', "plane"}, {"DatumFrom", '-', "A"}, {"DatumTo", '-', "B"}, {"BS_Plane", 'C', true}, {"BS_Type", 'C', "0"},
      {"BS_DeltaEastLat", 'N', "1.5E5 "}, {"BS_DeltaNorthLong", 'N', 0.1F}, {"BS_DeltaHeight", 'N', -0.0}},
     "Block Shift:   plane/Type             : Grid (Plane)/"
     "Shift East-West  : 150000.000 m/      North-South: 0.100 m/      Vertical   : 0.000 m"},
    {{{"TransType", 'C', 1}, {"Description", 'J', "d"}, {"DatumFrom", 'D', "Höhen66789"}, {"DatumTo", 'D', "LOCAL"},
      {"MP_Type", 'C', "0"}, {"MP_DX", 'N', 12.5}, {"MP_DY", 'N', -123456789012345.0}, {"MP_DZ", 'N', 1.234565},
      {"MP_RX_Da", 'N', -23}, {"MP_Scale_Df", 'N', -0.0000081204}},
     "Molodensky:    d/"
     "Datum From : Höhen66789    Spheroid: (not found)/Datum To   : LOCAL         Spheroid: ANS/"
     "Dx : 12.500 m              Da : -23.0000 m/Dy : -123456789012345.000 mDf : -0.0000081204/Dz : 1.234565 m"},
    {{{"TransType", 'C', 1}, {"Description", 'J', "d"}, {"DatumFrom", 'D', "GDA94"}, {"DatumTo", 'D', ""},
      {"MP_Type", 'C', 1}, {"MP_DX", 'N', -1}, {"MP_DY", 'N', 2}, {"MP_DZ", 'N', 3}, {"MP_RX_Da", 'N', 1e-5},
      {"MP_RY", 'N', 5}, {"MP_RZ", 'N', 1e9}, {"MP_Scale_Df", 'N', -0.191}, {"MP_Rotation", 'C', 1}},
     "3D Similarity: d/Datum From : GDA94         Spheroid: GRS80/Datum To   :               Spheroid: (not found)/"
     "DX : -1.000 m              Rx : 0.00001 Sec/DY : 2.000 m               Ry : 5.0000 Sec/"
     "DZ : 3.000 m               Rz : 1000000000.0000 Sec/Sc : -0.19100 ppm/"
     "Rotation convention: Pos'n vector (Bursa-Wolfe)"},
    {{{"TransType", 'C', 0}, {"Description", 'J', "d"}, {"DatumFrom", 'D', "AGD66"}, {"DatumTo", 'D', "GDA94"},
      {"GF_FileName", 'J', "a.gsb"}},
     "Distortion Grid: d/Datum From : AGD66         Spheroid: ANS/Datum To   : GDA94         Spheroid: GRS80/"
     "Grid file  : a.gsb"},
    {{{"TransType", 'C', 4}, {"Description", 'J', "d"}, {"DatumFrom", 'D', "AGD66"}, {"DatumTo", 'D', "GDA94"}},
     "d/Datum From : AGD66         Spheroid: ANS/Datum To   : GDA94         Spheroid: GRS80"},
};
// clang-format on

struct GeodesyTest : testing::Test, test::TestWorld {
    std::string from = "old", to = "old", copyright = "old";

    std::string details(const Record& record, bool fileMode = true, bool loaded = true) {
        t_gencvf::MemoryRecordSet table = t_gencvf::MemoryRecordSet::ofRecord(record);
        return procs.TransformationDetails(table, fileMode, loaded, kSpheroids, true, kDatums, &from, &to,
                                           &copyright);
    }
    std::string failure(const Record& record) {
        return failureOf([&] { details(record); });
    }
    static Record recordOf(const Transformation& transformation) {
        Record record;
        for (const Field& field : transformation.fields) record.push_back({field.name, field.value});
        return record;
    }
};

/// Each "/" is a line break.
std::string laidOut(std::string text, int indent) {
    for (std::size_t at = 0; (at = text.find('/', at)) != std::string::npos;)
        text.replace(at, 1, "\r\n" + std::string(static_cast<std::size_t>(indent), ' '));
    return text;
}

TEST_F(GeodesyTest, DescribesEachKindOfTransformation) {
    for (const Transformation& transformation : kTransformations) {
        EXPECT_EQ(details(recordOf(transformation)), laidOut(transformation.text, 15));
        EXPECT_EQ(copyright, transformation.text.starts_with("Dist") ? names.legalCopyright : "");
    }
    from = "Bessel";
    Record record = recordOf(kTransformations[0]);
    EXPECT_EQ(details(record, false, false),
              laidOut("Zone-to-Zone:  /Datum      : AGD66         Spheroid: Bessel/Grid From  : AMG Zone55/"
                      "Grid To    : Höhe (Single Zone)",
                      5));
    details(record);
    EXPECT_EQ(from + to, "ANSANS");
    record = recordOf(kTransformations[4]);
    for (const auto& [field, lines] : {std::pair("MP_Rotation", 6), {"MP_Type", 2}}) {
        for (auto& [name, value] : record) {
            if (name == field) value = 2;
        }
        EXPECT_EQ(std::ranges::count(details(record), '\n'), lines);
    }
}

TEST_F(GeodesyTest, ReportsFieldsThatCannotBePrinted) {
    const std::map<char, std::pair<int, int>> failures{{'J', {0, 0}},  {'D', {94, 0}}, {'N', {94, 13}},
                                                       {'C', {0, 13}}, {'Z', {0, 13}}, {'T', {0, 0}}};
    const std::string name = " (Class Module) cGenProcs::TransformationDetails";
    const auto expect = [&](const Record& record, int number) {
        EXPECT_EQ(failure(record), number == 0 ? "none" : std::to_string(number) + name) << record[0].name;
    };
    for (const Transformation& transformation : kTransformations) {
        for (std::size_t i = 0; i < transformation.fields.size(); ++i) {
            const char role = transformation.fields[i].role;
            if (role == '-') continue;
            SCOPED_TRACE(transformation.fields[i].name + " in " + transformation.text);
            Record record = recordOf(transformation);
            record[i].value = Null{};
            expect(record, failures.at(role).first);
            record[i].value = "x";
            expect(record, failures.at(role).second);
            record.erase(record.begin() + static_cast<std::ptrdiff_t>(i));
            expect(record, 3265);
        }
    }

    const auto with = [](int transformation, const std::string& field, const Variant& value) {
        Record record = recordOf(kTransformations[transformation]);
        for (auto& each : record) {
            if (each.name == field) each.value = value;
        }
        return record;
    };
    expect(with(3, "DatumTo", "Höhen667890"), 5);
    expect(with(3, "MP_DX", -1e15), 5);
    expect(with(3, "MP_DZ", -1e15), 0);  // nothing follows on its line
    expect(with(3, "MP_DZ", double{NAN}), 94);
    expect(with(0, "ZZ_ZoneTo", double{INFINITY}), 6);
    expect(with(3, "MP_DZ", double{INFINITY}), 6);
}

TEST_F(GeodesyTest, FindsTheSpheroidOfADatum) {
    struct Row {
        const char* datum;
        std::vector<std::string> datums, spheroids;
        const char* expected;
    };
    const std::string failed = "5 (Class Module) cGenProcs::Function GetSpheroidForDatum";
    const Row rows[] = {
        {"A", {}, {}, "(not found)"},
        {"LOCAL", {"LOCAL,S"}, {"S ("}, "PLANE"},  // element 0 does not count
        {"local", {""}, {""}, "(not found)"},
        {"A", {"", "a,S", "A,T", "A,S,", "A,S"}, {"", "S,)(", "S ("}, "S,"},  // any character ahead of "("
        {"é", {"", "é,Clarké"}, {"", "Clark (1)", "Clarkéü(2)(3)"}, "Clarké"},
        {"A", {"", "A,"}, {"", " ("}, ""},
        {"A", {"", "A,S", "B"}, {"", "S ("}, "S"},
        {"A", {"", "B", "A,S"}, {"", "S ("}, "5"},
        {"A", {"", "A,S"}, {"", "("}, "5"},
        {"A", {"", "A,S"}, {"", "S"}, "5"},
    };
    for (const Row& row : rows) {
        for (const bool foundBefore : {false, true}) {
            bool found = foundBefore;
            std::string spheroid;
            const std::string failure = failureOf(
                [&] { spheroid = procs.GetSpheroidForDatum(row.datum, row.datums, row.spheroids, found); });
            const std::string expected = row.expected;
            const bool isFallback = expected == "PLANE" || expected == "(not found)";
            EXPECT_EQ(failure, expected == "5" ? failed : "none") << row.datum;
            EXPECT_EQ(spheroid, expected == "5" || (isFallback && foundBefore) ? "" : expected);
            EXPECT_EQ(found, foundBefore || (!isFallback && expected != "5")) << row.datum;
        }
    }
}

TEST_F(GeodesyTest, AsksWhetherTheGeoidModelIsReady) {
    names.gridModelName1 = "Grid";
    names.gridModelName2 = "Raster";
    names.tinModelName = "TIN";
    t_gencvf::JobConfiguration job;
    t_gencvf::JobGeneral general;
    bool plot = false;
    // Of a grid: options, ready, model ready; then the same of a TIN model, each with one setting turned.
    const std::pair<bool*, std::string> rows[] = {
        {nullptr, "TTT TTT"},
        {&job.geoidEnabled, "TTF TTF"},
        {&job.geoidGridOption, "FFF TTT"},
        {&job.geoidUseOne, "FFF FFF"},
        {&job.geoidTinExcluded, "TTT FFF"},
        {&general.geoidGridLoaded, "TFF TTT"},
        {&general.geoidTinLoaded, "TTT TFT"},
        {&general.geoidTinAvailable, "TTT TTF"},
        {&general.geoidTinBlocked, "TTT FFF"},
        {&plot, "TTT FFF"},
    };
    for (const bool two : {false, true}) {
        for (const auto& [turned, expected] : rows) {
            job = {};
            job.geoidEnabled = job.geoidGridOption = job.geoidUseOne = true;
            general = {true, true, true, false};
            plot = false;
            if (turned != nullptr) *turned = !*turned;
            if (two) std::swap(job.geoidUseOne, job.geoidUseTwo);
            const auto letter = [](bool value) { return value ? 'T' : 'F'; };
            std::string answers;
            job.geoidModelType = two ? "Raster" : "Grid";
            answers += letter(procs.GeoidGRIDoptionsOK(job));
            answers += letter(procs.GeoidGRIDreadyOK(job, general));
            answers += letter(procs.GeoidModelReady(job, general, plot));
            EXPECT_FALSE(procs.GeoidTINoptionsOK(job, general, plot));
            job.geoidModelType = "TIN";
            answers += ' ';
            answers += letter(procs.GeoidTINoptionsOK(job, general, plot));
            answers += letter(procs.GeoidTINreadyOK(job, general, plot));
            answers += letter(procs.GeoidModelReady(job, general, plot));
            EXPECT_FALSE(procs.GeoidGRIDoptionsOK(job));
            EXPECT_EQ(answers, expected) << (turned == nullptr ? "all set" : "one turned");
        }
    }
}

}  // namespace
}  // namespace t_genproc
