/// The database of datum transformations as the library asks for it.
///
///     TransformationTables tables(tavoru);
///     if (tables.transformations->seek(SeekComparison::Equal, 12)) print(tables.report(false).lines);
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tavoru.h"

namespace tavoru {

struct TransformationTables {
    explicit TransformationTables(Tavoru& tavoru);

    struct Report {
        Lines lines;
        std::string copyright;  ///< belongs under them, unless empty
    };
    /// Describes the current transformation, for a file or for the screen.
    Report report(bool forFile);

    t_genproc::cGenProcs& procs;
    std::unique_ptr<t_gencvf::RecordSet> transformations;  ///< in the order of their numbers
    // From element 1 on.
    Lines spheroids{""};  ///< "GRS80 (a = 6378137.000, 1/f = 298.257222101)"
    Lines datums{""};     ///< "GDA94,GRS80"
};

}  // namespace tavoru
