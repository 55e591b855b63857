#include "office_standards.h"

#include <string>

namespace tavoru {

t_gencvf::GeneralPreferences officePreferences() {
    return {
        .ListFileGrouping = 0,
        .Editor = "notepad.exe",
        .StartMaximized = true,
        .LoadLast = true,
        .ShowExtension = false,
        .RecycleBackups = true,
        .Kfactor = 0.13,  // coefficient of refraction
        .PromptMode = true,
    };
}

t_gencvf::JobConfiguration officeDataSettings() {
    return {
        .OutputDecH = 3,
        .OutputDecV = 4,
        .Projection = "Transverse Mercator",
        .Zone = 32,
        .GeodeticDatum = "ETRS89",
        .HeightDatum = "EVRF2019",
        .EarthRadius = 6381000.0,
        .ApproxLatitude = 47,
        .CoordType = 1,
        .ApplyGeoidSep = true,
        .GSseparation = 48.62,
        .DeflectNS = 4.1,
        .DeflectEW = -2.7,
        .InterpMethod = "Bilinear",
        .GeoidFile = "Alpine.gsf",
        .GeoidType = 2,
        .Spheroid = "GRS80",
        .Spheroidal = false,
        .Geographic = false,
        .ProjectGrid = true,
        .HeightInCSF = true,
        .VDatumSpheroidal = false,
        .VDatumGeoidal = true,
        .VDatumOffset = 0,
    };
}

// Tolerances, limits and centring in metres, angles in seconds of arc, confidence levels in per cent.
t_gencvf::LeastSquaresOptions officeLeastSquares() {
    return {
        .ProvPtTolH = 0.05,
        .ProvPtTolV = 0.05,
        .ConvLimitH = 0.0005,
        .ConvLimitV = 0.0005,
        .AngleSD = 3,
        .AngleCentr = 0.001,
        .DisConst = 0.002,
        .DisPPM = 2,
        .HtDiffSD = 0.002,
        .AzimuthSD = 5,
        .DirectionSD = 2,
        .SlopeDisPPM = 2,
        .SlopeDisConst = 0.002,
        .ZenAngSD = 4,
        .CoordsSD = 0.01,
        .VectorsSD = 0.005,
        .AzimuthCent = 0.001,
        .DirectionCent = 0.001,
        .HorDistCent = 0.001,
        .HtDiffCent = 0.001,
        .AngleTgtCentr = 0.001,
        .AzimuthTgtCent = 0.001,
        .DirectionTgtCent = 0.001,
        .HorDistTgtCent = 0.001,
        .HtDiffTgtCent = 0.001,
        .SlopeDistCentH = 0.001,
        .ZenAngleCentH = 0.001,
        .CoordsCentH = 0.001,
        .VectorsCentH = 0.0015,
        .SlopeDistCentV = 0.002,
        .ZenAngleCentV = 0.002,
        .CoordsCentV = 0.002,
        .VectorsCentV = 0.0015,
        .ScaleEE = true,
        .AutoRescale = true,
        .RelaxObsInErr = false,
        .Iterations = 8,
        .SDConstrFactor = 1000,
        .OutlierTest = 1,
        .Corrections = "Scale and sea level",
        .ConfLevelChiSquared = 95,
        .ConfLevelEllipses = 95,
        .ConfLevelMDE = "80",
        .ConfLevelOutliers = 99.9F,
        .SaveDBPoints = true,
        .SaveDBPtsFixed = false,
        .SavePtEntry = true,
        .SavePtEntryFixed = false,
        .SavePtEntryOpt = 1,
    };
}

}  // namespace tavoru
