/// The application around the library: the records that it owns and the way it calls the library's classes.
///
///     Tavoru tavoru({"/home/ann/drive", "/usr/share/tavoru/samples"});
///     if (const auto job = tavoru.openJob("Quarry")) std::cout << job->title << '\n';
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frame/cGenProcs.h"
#include "frame/library.h"
#include "host/memory_object.h"
#include "instanthelp/cInstHelpSettings.h"
#include "platform_choice.h"
#include "survey_job.h"
#include "tavoru_host.h"

namespace tavoru {

using Lines = std::vector<std::string>;

/// Where the application keeps its files, and where a new drive gets its first ones. Absolute paths.
struct Places {
    std::filesystem::path drive;
    std::filesystem::path samples;  ///< jobs of the office; "Samples" and "Reference" are for the setup
};

struct Tavoru {
    /// Installs itself on a new drive, asks the library for its folders, brings the jobs of the office into a
    /// new data folder and reads the settings.
    explicit Tavoru(const Places& places);

    /// Opens a job and puts it on top of the recent jobs. `name` is that of a file in the data folder, with
    /// or without its extension, or a full path. None: there is no such job, and a message box has said so.
    std::optional<SurveyJob> openJob(const std::string& name);

    /// The shown entries of the recent-jobs menu: captions, from the top.
    Lines recentJobs() const;
    /// The path that entry `index`, 0 to 4, holds; empty where it holds none.
    std::string recentJob(std::int16_t index) const;
    /// Takes entry `index`, 0 to 4, off the menu.
    void removeRecentJob(std::int16_t index);

    /// Writes all settings; the result counts the writes into the program-wide file.
    std::int16_t saveSettings();

    /// All lines of a text file. None: there is no such file, and a message box has said so.
    std::optional<Lines> readFile(const std::string& fileName);

    std::string homePath() const { return drive.root + "Users\\Surveyor\\"; }
    std::string mainPath() const { return homePath() + "Tavoru\\"; }
    std::string dataPath() const { return mainPath() + "Data\\"; }
    std::string transformationsPath() const { return prog.progPath + "Transformations.db"; }
    std::string messagesPath() const { return prog.progPath + "Messages.db"; }
    std::string logPath() const { return prog.tempPath + "t_eveml"; }

    // In the order in which each needs the one before.
    Drive drive;
    TavoruHost host;
    t_genproc::Library library;
    t_genproc::cGenProcs procs;
    t_genproc::cInstHelpSettings instantHelp;

    t_gencvf::ProgramState prog;
    t_gencvf::JobItem job;
    t_gencvf::GeneralPreferences preferences;
    t_gencvf::JobConfiguration dataSettings;
    t_gencvf::LeastSquaresOptions leastSquares;
    t_genproc::ObjectPointer mainForm;

   private:
    void start(const Places& places);
    void restoreSettings();
    t_gencvf::JobItem findJob(const std::string& name);
    void saveRecentJobs();
};

}  // namespace tavoru
