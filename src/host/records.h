/// The host's state records. The host owns and fills them; the library reads and updates the members below.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/variant.h"

namespace t_gencvf {

/// Program-wide state. Folder paths end in "\".
struct ProgramState {
    std::string progPath;  ///< the program's folder
    std::string
        userHomeOverride;     ///< where the user's folder is to be instead of the home; empty: in the home
    std::string listPath;     ///< the folder that takes the list files
    std::string tempPath;     ///< the system's temporary folder; the error log stands here
    std::string userINIpath;  ///< the user settings file, with its full path
    std::string progINIpath;  ///< the program-wide settings file, with its full path

    /// Two values of the host's own that are kept in the program-wide settings file, under the key names
    /// Application::programKeyOne and programKeyTwo.
    std::string programValueOne;
    std::string programValueTwo;

    // What depends on machine and user, filled by cStartProcs::SystemConstants
    bool isWin9x = false;
    bool isWinNT = false;
    std::string osVersion;  ///< "Windows NT v6.1 Build 7601"
    std::string winDir;
    std::string winSysDir;
    std::string commonAppData;     ///< application data of all users
    std::string AllUserDocuments;  ///< documents of all users
    std::string ThisUsersDocuments;
    std::string LocalSettingsTemp;  ///< this user's folder for what need not be kept

    bool errorLogBrief = false;     ///< error-log lines end with their message
    std::int32_t errorLogCode = 0;  ///< 1 to 45: logged as that power of two; any other value as it is
};

/// A job.
struct JobItem {
    std::string jobName;       ///< the file name without its extension
    std::string jobExtension;  ///< the extension as it follows the name
    std::string jobDataPath;   ///< the folder of the job's data, ending in "\"
    std::string jobPath;  ///< the full name of the job's file or folder, as the recent-jobs menu shows it
};

/// The General preferences record.
struct GeneralPreferences {
    std::int16_t ListFileGrouping = 0;  ///< which list folder: see cGenProcs::SetListPath
    std::string Editor;
    bool StartMaximized = false;
    bool LoadLast = false;
    bool ShowExtension = false;
    bool RecycleBackups = false;
    double Kfactor = 0;
    bool PromptMode = false;
};

/// The Job configuration record.
struct JobConfiguration {
    std::uint8_t OutputDecH = 0;  ///< decimals of horizontal values
    std::uint8_t OutputDecV = 0;  ///< decimals of heights
    std::string Projection;
    std::int16_t Zone = 0;
    std::string GeodeticDatum;
    std::string HeightDatum;
    t_genproc::Variant EarthRadius;
    std::int16_t ApproxLatitude = 0;
    std::int16_t CoordType = 0;
    bool ApplyGeoidSep = false;
    double GSseparation = 0;  ///< geoid to spheroid
    double DeflectNS = 0;     ///< deflection of the vertical, north-south
    double DeflectEW = 0;     ///< and east-west
    std::string InterpMethod;
    std::string GeoidFile;
    std::int16_t GeoidType = 0;
    std::string Spheroid;
    bool Spheroidal = false;
    bool Geographic = false;
    bool ProjectGrid = false;
    bool HeightInCSF = false;  ///< heights count in the combined scale factor
    bool VDatumSpheroidal = false;
    bool VDatumGeoidal = false;
    double VDatumOffset = 0;

    // The job's geoid model and what is to be done with it
    std::string geoidModelType{};  ///< one of the names in Application
    bool geoidEnabled = false;     ///< geoid heights are in use
    bool geoidGridOption = false;
    bool geoidUseOne = false;
    bool geoidUseTwo = false;
    bool geoidTinExcluded = false;
};

/// The Job general record: what is loaded for the job.
struct JobGeneral {
    bool geoidGridLoaded = false;
    bool geoidTinLoaded = false;
    bool geoidTinAvailable = false;
    bool geoidTinBlocked = false;
};

/// The Least-squares option record. Its members carry the names of the fields of a job's data header.
struct LeastSquaresOptions {
    // Tolerances, convergence limits, standard deviations and centring
    double ProvPtTolH = 0;
    double ProvPtTolV = 0;
    double ConvLimitH = 0;
    double ConvLimitV = 0;
    double AngleSD = 0;
    double AngleCentr = 0;
    double DisConst = 0;
    double DisPPM = 0;
    double HtDiffSD = 0;
    double AzimuthSD = 0;
    double DirectionSD = 0;
    double SlopeDisPPM = 0;
    double SlopeDisConst = 0;
    double ZenAngSD = 0;
    double CoordsSD = 0;
    double VectorsSD = 0;
    double AzimuthCent = 0;
    double DirectionCent = 0;
    double HorDistCent = 0;
    double HtDiffCent = 0;
    double AngleTgtCentr = 0;
    double AzimuthTgtCent = 0;
    double DirectionTgtCent = 0;
    double HorDistTgtCent = 0;
    double HtDiffTgtCent = 0;
    double SlopeDistCentH = 0;
    double ZenAngleCentH = 0;
    double CoordsCentH = 0;
    double VectorsCentH = 0;
    double SlopeDistCentV = 0;
    double ZenAngleCentV = 0;
    double CoordsCentV = 0;
    double VectorsCentV = 0;

    // Output and weighting switches
    bool UnitWts = false;
    bool Dump = false;
    bool CSD = false;
    bool SP1 = false;
    bool ScaleEE = false;

    // The adjustment and its tests
    bool AutoRescale = false;
    bool RelaxObsInErr = false;
    std::int16_t Iterations = 0;
    std::int32_t SDConstrFactor = 0;
    std::int16_t OutlierTest = 0;
    std::string Corrections;
    float ConfLevelChiSquared = 0;
    std::int32_t ConfLevelEllipses = 0;
    std::string ConfLevelMDE;
    float ConfLevelOutliers = 0;

    // Saving of points
    bool SaveDBPoints = false;
    bool SaveDBPtsFixed = false;
    bool SavePtEntry = false;
    bool SavePtEntryFixed = false;
    std::int16_t SavePtEntryOpt = 0;
};

}  // namespace t_gencvf
