/// A job's data header: the least-squares options of this job, in a database beside the job's file.
#pragma once

#include <string>

#include "tavoru.h"

namespace tavoru {

struct CompletedHeader {
    std::string fileName;
    bool isNew = false;
    Lines fields{};  ///< name, value before and after; "* " ahead of those that have changed
    int changes = 0;
};

/// Completes the header of the open job from the user's options. One that is missing, or is to be made
/// `afresh`, starts with all fields Null. `adjusting`: a least-squares run comes next.
CompletedHeader completeHeader(Tavoru& tavoru, bool afresh, bool adjusting);

}  // namespace tavoru
