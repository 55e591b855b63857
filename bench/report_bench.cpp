/// Transformation reports, number formatting and the options of a data header, beside the least that any way
/// to the same result must do.
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <sstream>

#include "frame/cGenProcs.h"
#include "host/memory_record_set.h"
#include "platform/sqlite/sqlite_engine.h"
#include "ratio_table.h"
#include "runtime/number_text.h"
#include "world.h"

namespace t_genproc::bench {
namespace {

using t_gencvf::FieldType;

/// A transformation, and its report by one snprintf of values already read.
struct Transformation {
    const char* name;
    std::vector<t_gencvf::MemoryRecordSet::Field> fields;
    int (*print)(char* text, std::size_t size);
};

const Transformation kTransformations[] = {
    {"zone to zone",
     {{"TransType", 3},
      {"Description", "zones"},
      {"DatumFrom", "GDA94"},
      {"DatumTo", "GDA94"},
      {"ZZ_GridFrom", "MGA94"},
      {"ZZ_ZoneFrom", 55},
      {"ZZ_GridTo", "MGA94"},
      {"ZZ_ZoneTo", 56}},
     [](char* text, std::size_t size) {
         return std::snprintf(
             text, size,
             "Zone-to-Zone:  %s\r\n%15sDatum      : %-10s    Spheroid: %s\r\n%15sGrid From  : %s Zone%d"
             "\r\n%15sGrid To    : %s Zone%d",
             "zones", "", "GDA94", "GRS80", "", "MGA94", 55, "", "MGA94", 56);
     }},
    {"block shift",
     {{"TransType", 2},
      {"Description", "shift"},
      {"DatumFrom", "Greek"},
      {"DatumTo", "GGRS87"},
      {"BS_Plane", false},
      {"BS_Type", 1},
      {"BS_DeltaEastLat", -5.86},
      {"BS_DeltaNorthLong", 0.28},
      {"BS_DeltaHeight", 0.0}},
     [](char* text, std::size_t size) {
         return std::snprintf(
             text, size,
             "Block Shift:   %s\r\n%15sDatum From : %-10s    Spheroid: %s\r\n%15sDatum To   : %-10s    "
             "Spheroid: %s\r\n%15sType             : Geographic\r\n%15sShift in Latitude: %.4f Sec\r\n"
             "%15s        Longitude: %.4f Sec\r\n%15s           Height: %.3f m",
             "shift", "", "Greek", "Bessel 1841", "", "GGRS87", "GRS80", "", "", -5.86, "", 0.28, "", 0.0);
     }},
    {"similarity",
     {{"TransType", 1},
      {"Description", "seven"},
      {"DatumFrom", "AGD84"},
      {"DatumTo", "GDA94"},
      {"MP_Type", 1},
      {"MP_DX", -117.763},
      {"MP_DY", -51.51},
      {"MP_DZ", 139.061},
      {"MP_RX_Da", -0.292},
      {"MP_RY", -0.443},
      {"MP_RZ", -0.277},
      {"MP_Scale_Df", -0.191},
      {"MP_Rotation", 0}},
     [](char* text, std::size_t size) {
         return std::snprintf(
             text, size,
             "3D Similarity: %s\r\n%15sDatum From : %-10s    Spheroid: %s\r\n%15sDatum To   : %-10s    "
             "Spheroid: %s\r\n%15sDX : %.3f m%12sRx : %.4f Sec\r\n%15sDY : %.3f m%13sRy : %.4f Sec\r\n"
             "%15sDZ : %.3f m%13sRz : %.4f Sec\r\n%15sSc : %.5f ppm\r\n"
             "%15sRotation convention: Coordinate axes",
             "seven", "", "AGD84", "Australian National", "", "GDA94", "GRS80", "", -117.763, "", -0.292, "",
             -51.51, "", -0.443, "", 139.061, "", -0.277, "", -0.191, "");
     }},
    {"distortion grid",
     {{"TransType", 0},
      {"Description", "grid"},
      {"DatumFrom", "AGD84"},
      {"DatumTo", "GDA94"},
      {"GF_FileName", "national.gsb"}},
     [](char* text, std::size_t size) {
         return std::snprintf(
             text, size,
             "Distortion Grid: %s\r\n%15sDatum From : %-10s    Spheroid: %s\r\n%15sDatum To   : %-10s    "
             "Spheroid: %s\r\n%15sGrid file  : %s",
             "grid", "", "AGD84", "Australian National", "", "GDA94", "GRS80", "", "national.gsb");
     }},
};
const std::vector<std::string> kDatums{"", "AGD84,Australian National", "GDA94,GRS80", "Greek,Bessel 1841",
                                       "GGRS87,GRS80"};
const std::vector<std::string> kSpheroids{"", "Australian National (a)", "GRS80 (a)", "Bessel 1841 (a)"};

/// The table of that one record.
std::unique_ptr<t_gencvf::RecordSet> store(Database& database, const Transformation& transformation) {
    t_gencvf::TableDefinition table{transformation.name, {}};
    for (const auto& [name, value] : transformation.fields) {
        const bool isText = std::holds_alternative<std::string>(value),
                   isDouble = std::holds_alternative<double>(value);
        table.fields.push_back({name, isText     ? FieldType::Text
                                      : isDouble ? FieldType::Double
                                                 : FieldType::Integer});
    }
    database.createTable(table);
    auto records = database.openTable(transformation.name);
    records->addNew();
    for (const auto& [name, value] : transformation.fields) records->let(name, value);
    records->update();
    records->moveFirst();
    return records;
}

void compareReports(cGenProcs& procs, Database& database) {
    for (const Transformation& each : kTransformations) {
        const std::shared_ptr<t_gencvf::RecordSet> inFile = store(database, each);
        const auto inMemory =
            std::make_shared<t_gencvf::MemoryRecordSet>(t_gencvf::MemoryRecordSet::ofRecord(each.fields));
        const auto report = [&procs](t_gencvf::RecordSet& table) {
            return procs.TransformationDetails(table, true, true, kSpheroids, true, kDatums);
        };
        static char text[1000];
        each.print(text, sizeof text);
        require(report(*inFile) == text && report(*inMemory) == text);
        row(std::string("1000 times a ") + each.name,
            {{"snprintf", [&each] { benchmark::DoNotOptimize(each.print(text, sizeof text)); }},
             {"memory", [=] { benchmark::DoNotOptimize(report(*inMemory)); }},
             {"SQLite", [=] { benchmark::DoNotOptimize(report(*inFile)); }}});
    }
}

void compareNumbers(cGenProcs& procs) {
    static char text[400];
    static const double number = -123.456785;
    static const std::string stored = reportText(number);
    row("1000 times -123.456785 with 3 decimals",
        {{"snprintf", [] { benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%.3f", number)); }},
         {"to_chars",
          [] {
              benchmark::DoNotOptimize(
                  std::to_chars(text, text + sizeof text, number, std::chars_format::fixed, 3));
          }},
         {"SetNumericField", [&] { benchmark::DoNotOptimize(procs.SetNumericField(stored, 3, false)); }},
         {"both", [&] { benchmark::DoNotOptimize(procs.SetNumericField(reportText(number), 3, false)); }}});
}

std::vector<std::string> words(const char* text) {
    std::istringstream all(text);
    return {std::istream_iterator<std::string>(all), {}};
}

const std::vector<std::string> kHeaderFields = words(
    "ProvPtTolH ProvPtTolV ConvLimitH ConvLimitV AngleSD AngleCentr DisConst DisPPM HtDiffSD UnitWts "
    "Dump CSD SP1 ScaleEE AutoRescale RelaxObsInErr Iterations AzimuthSD DirectionSD SlopeDisPPM "
    "SlopeDisConst ZenAngSD CoordsSD VectorsSD AzimuthCent DirectionCent HorDistCent HtDiffCent "
    "AngleTgtCentr AzimuthTgtCent DirectionTgtCent HorDistTgtCent HtDiffTgtCent SlopeDistCentH "
    "ZenAngleCentH CoordsCentH VectorsCentH SlopeDistCentV ZenAngleCentV CoordsCentV VectorsCentV "
    "SDConstrFactor OutlierTest Corrections ConfLevelChiSquared ConfLevelEllipses ConfLevelMDE "
    "ConfLevelOutliers SaveDBPoints SaveDBPtsFixed SavePtEntry SavePtEntryFixed SavePtEntryOpt");

/// Each field of a header that is all Null is read, and written; the edit is dropped.
void compareHeaders(cGenProcs& procs) {
    std::vector<t_gencvf::MemoryRecordSet::Field> record;
    record.reserve(kHeaderFields.size());
    for (const std::string& field : kHeaderFields) record.push_back({field, Null{}});
    const auto header =
        std::make_shared<t_gencvf::MemoryRecordSet>(t_gencvf::MemoryRecordSet::ofRecord(record));
    const auto readAndWrite = [header] {
        header->edit();
        for (const std::string& field : kHeaderFields) {
            benchmark::DoNotOptimize(header->get(field));
            header->let(field, 1.5);
        }
    };
    static const t_gencvf::LeastSquaresOptions options;
    const auto complete = [header, &procs] {
        header->edit();
        procs.CheckLSOptionDefaults(*header, options, false, true);
    };
    row("1000 headers", {{"bare", readAndWrite}, {"own", complete}});
}

}  // namespace
}  // namespace t_genproc::bench

int main(int argc, char** argv) {
    using namespace t_genproc;
    using namespace t_genproc::bench;
    benchmark::Initialize(&argc, argv);
    World world;
    cGenProcs procs(world.library);
    const auto database = sqliteEngine(*world.platform.files)->createDatabase("C:\\bench.db");
    compareReports(procs, *database);
    compareNumbers(procs);
    compareHeaders(procs);
    printTable("| reports | one snprintf | from memory | from SQLite |", "times a");
    printTable(
        "| numbers | snprintf | to_chars | SetNumericField | the number's text, then SetNumericField |",
        "decimals");
    printTable("| data headers | fields read and written | CheckLSOptionDefaults |", "headers");
}
