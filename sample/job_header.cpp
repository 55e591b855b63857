#include "job_header.h"

#include <map>

#include "databases.h"
#include "screen.h"
#include "table_fields.h"

namespace tavoru {
namespace {

const t_gencvf::TableDefinition& headerTable() {
    using enum t_gencvf::FieldType;
    static const t_gencvf::TableDefinition kTable{
        "Header", fieldsOf({
                      {Double, "ProvPtTolH ProvPtTolV ConvLimitH ConvLimitV"},
                      {Double, "AngleSD AngleCentr DisConst DisPPM HtDiffSD"},
                      {Boolean, "UnitWts Dump CSD SP1 ScaleEE AutoRescale RelaxObsInErr"},
                      {Integer, "Iterations"},
                      {Double, "AzimuthSD DirectionSD SlopeDisPPM SlopeDisConst ZenAngSD CoordsSD VectorsSD"},
                      {Double, "AzimuthCent DirectionCent HorDistCent HtDiffCent"},
                      {Double, "AngleTgtCentr AzimuthTgtCent DirectionTgtCent HorDistTgtCent HtDiffTgtCent"},
                      {Double, "SlopeDistCentH ZenAngleCentH CoordsCentH VectorsCentH"},
                      {Double, "SlopeDistCentV ZenAngleCentV CoordsCentV VectorsCentV"},
                      {Long, "SDConstrFactor"},
                      {Integer, "OutlierTest"},
                      {Text, "Corrections"},
                      {Single, "ConfLevelChiSquared"},
                      {Long, "ConfLevelEllipses"},
                      {Text, "ConfLevelMDE"},
                      {Single, "ConfLevelOutliers"},
                      {Boolean, "SaveDBPoints SaveDBPtsFixed SavePtEntry SavePtEntryFixed"},
                      {Integer, "SavePtEntryOpt"},
                  })};
    return kTable;
}

void makeHeader(Tavoru& tavoru, const std::string& fileName) {
    tavoru.drive.platform.files->DeleteFileA(fileName);
    const auto database = tavoru.drive.platform.databases->createDatabase(fileName);
    database->beginTransaction();
    database->createTable(headerTable());
    const auto header = database->openTable(headerTable().name);
    header->addNew();
    header->update();
    database->commitTransaction();
}

std::string shown(const t_genproc::Variant& value) {
    return t_genproc::isNull(value) ? "Null" : t_genproc::toText(value);
}

}  // namespace

CompletedHeader completeHeader(Tavoru& tavoru, bool afresh, bool adjusting) {
    CompletedHeader completed{tavoru.job.jobDataPath + tavoru.job.jobName + ".tdh"};
    completed.isNew = afresh || !tavoru.procs.FileExist(completed.fileName);
    withDatabase(completed.fileName, [&] {
        if (completed.isNew) makeHeader(tavoru, completed.fileName);
        const auto header =
            tavoru.drive.platform.databases->openDatabase(completed.fileName)->openTable(headerTable().name);

        std::map<std::string, t_genproc::Variant> before;
        for (const auto& field : headerTable().fields) before[field.name] = header->get(field.name);
        header->edit();
        tavoru.procs.CheckLSOptionDefaults(*header, tavoru.leastSquares, !completed.isNew, adjusting);
        header->update();
        for (const auto& [name, type] : headerTable().fields) {
            const t_genproc::Variant after = header->get(name);
            const bool isChanged = before[name] != after;
            completed.fields.push_back((isChanged ? "* " : "  ") + padded(name, 21) +
                                       padded(shown(before[name]), 21) + shown(after));
            completed.changes += isChanged ? 1 : 0;
        }
    });
    return completed;
}

}  // namespace tavoru
