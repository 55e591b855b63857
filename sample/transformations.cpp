#include "transformations.h"

#include <sstream>

#include "databases.h"

namespace tavoru {

using t_genproc::toText;

TransformationTables::TransformationTables(Tavoru& tavoru) : procs(tavoru.procs) {
    withDatabase(tavoru.transformationsPath(), [&] {
        const auto database = tavoru.drive.platform.databases->openDatabase(tavoru.transformationsPath());
        const auto spheroid = database->openTable("Spheroids");
        for (; !spheroid->atEnd(); spheroid->moveNext()) {
            const auto axis = procs.SetNumericField(toText(spheroid->get("SemiMajorAxis")), 3, true);
            spheroids.push_back(toText(spheroid->get("Name")) + " (a = " + toText(axis) +
                                ", 1/f = " + toText(spheroid->get("InverseFlattening")) + ")");
        }
        const auto datum = database->openTable("Datums");
        for (; !datum->atEnd(); datum->moveNext()) {
            datums.push_back(toText(datum->get("Name")) + "," + toText(datum->get("Spheroid")));
        }
        transformations = database->openTable("Transformations");
        transformations->setIndex("Number");
    });
}

TransformationTables::Report TransformationTables::report(bool forFile) {
    Report report;
    std::istringstream text(procs.TransformationDetails(*transformations, forFile, true, spheroids, true,
                                                        datums, nullptr, nullptr, &report.copyright));
    for (std::string line; std::getline(text, line);) {
        if (line.ends_with('\r')) line.pop_back();
        report.lines.push_back(line);
    }
    return report;
}

}  // namespace tavoru
