/// The values with which this office starts: what is not in the settings files yet comes from here.
#pragma once

#include "host/records.h"

namespace tavoru {

t_gencvf::GeneralPreferences officePreferences();
t_gencvf::JobConfiguration officeDataSettings();
t_gencvf::LeastSquaresOptions officeLeastSquares();

}  // namespace tavoru
