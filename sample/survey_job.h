/// A survey job's file and what it says about itself: how far the observations reach and how well they close.
///
///     Title     Quarry boundary, eastern extension
///     Kind      Traverse
///     Surveyed  18 March 2026
///     # a comment
///     Q1      92 06 42     225.719
///
/// The kinds, and what a line of each holds, stand in survey_job.cpp.
#pragma once

#include <string>
#include <vector>

namespace tavoru {

struct SurveyJob {
    std::string title;
    std::string kind;
    std::string surveyed;
    std::string extent;   ///< "6 stations, 1.607 km"
    std::string closure;  ///< "angles close to 6 seconds, ..."
};

/// Sums up the lines of the file `fileName`. Throws std::runtime_error where they are no survey job.
SurveyJob readSurveyJob(const std::string& fileName, const std::vector<std::string>& lines);

}  // namespace tavoru
