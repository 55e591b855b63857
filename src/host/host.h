/// What a host supplies beside its records: names and words of its own, a few services, and the error
/// reporter.
///
/// Derive from Host and hand it to the Library. The Library asks for the utility object and the error
/// reporter when it first needs them and keeps both for its whole life.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/records.h"
#include "runtime/variant.h"

namespace t_gencvf {

using t_genproc::ObjectPointer;

/// What the start-up needs to know of the product.
struct StartUpNames {
    /// Where the installation has left the program's folder, below HKEY_LOCAL_MACHINE or HKEY_CLASSES_ROOT.
    std::string registryKey{};
    std::string registryValue{};
    std::string programFolderName{};  ///< the program's folder without its path: "Tavoru"

    std::string appDataSubPath{};     ///< below the data folder of all users: "Tavoru\\"
    bool appDataIsEssential = false;  ///< the start fails where that folder cannot be made

    // In "Samples\\" of the program's folder
    std::string sampleJob{};                   ///< tells whether there are samples at all
    std::array<std::string, 3> sampleFiles{};  ///< are copied: the first always, the others where not empty
};

/// The host application object: the names and words that stand in the settings files.
struct Application {
    // Section names
    std::string generalSection{};       ///< data and list paths, Instant Help, the preferences
    std::string programSection{};       ///< ProgPath and the two keys below, in the program-wide file
    std::string dataSettingsSection{};  ///< a job's data settings
    std::string leastSquaresSection{};  ///< the least-squares options
    std::string settingsSection{};      ///< "Last" and the recent jobs

    // Keys of the two values that the host keeps in the program-wide file
    std::string programKeyOne{};
    std::string programKeyTwo{};

    // The words for a Boolean in those settings that are written as words
    std::string wordTrue = "True";
    std::string wordFalse = "False";

    // The kinds of geoid models, as JobConfiguration::geoidModelType names them
    std::string gridModelName1{};
    std::string gridModelName2{};
    std::string tinModelName{};

    std::string title{};     ///< the program's name, ahead of the title of what it prints
    std::string helpFile{};  ///< the path of the user's help

    /// Printed under a report that rests on a distortion grid.
    std::string legalCopyright = "Copyright (C) 2026 the authors of t_genproc";

    StartUpNames startUp{};
};

/// The host utility object.
class Utility {
   public:
    virtual ~Utility() = default;
    virtual bool FolderExists(std::string_view folder) = 0;
    /// The current local date and time, as a Date value.
    virtual double Now() = 0;
    /// A tolerance or standard deviation as the host keeps it. The library asks with `rule` -5.
    virtual double Normalise(double value, std::int16_t rule) = 0;
};

/// The host's error reporter: it receives one (source, procedure) pair for each procedure that an error
/// leaves.
class ErrorReporter {
   public:
    virtual ~ErrorReporter() = default;
    /// While set, the library leaves the next report out and clears it.
    virtual bool suppressNextReport() = 0;
    virtual void suppressNextReport(bool suppress) = 0;
    virtual void ReportError(const std::string& source, const std::string& procedureName) = 0;
};

namespace MousePointer {
inline constexpr std::int16_t Default = 0;
inline constexpr std::int16_t Hourglass = 11;
}  // namespace MousePointer

class Host {
   public:
    virtual ~Host() = default;
    virtual const Application& application() = 0;
    virtual std::unique_ptr<Utility> createUtility() = 0;
    virtual std::unique_ptr<ErrorReporter> createErrorReporter() = 0;

    /// The windows that are open: an object with `Count` and the elements from 0 on, as a form's `Controls`.
    /// Nothing where the host keeps no such list.
    virtual ObjectPointer loadedForms() { return nullptr; }

    /// The program's state, for members that write to the error log without being given it. Null: they log
    /// into the system's temporary folder.
    virtual const ProgramState* programState() { return nullptr; }

    /// Sets the shape of the mouse pointer, a MousePointer.
    virtual void mousePointer(std::int16_t /*shape*/) {}
};

}  // namespace t_gencvf
