/// The host's standard picture: an object with the members `Handle` and `hPal` (its bitmap and palette),
/// `Type` (1: a bitmap), `Width` and `Height` (hundredths of a millimetre). They can only be read (error
/// 383).
#pragma once

#include <string>

#include "host/object.h"

namespace t_genproc {

class Picture : public t_gencvf::Object {
   public:
    std::string_view typeName() const override { return "Picture"; }

    /// Writes the picture into a file, as PNG. The errors of writing a file, where that fails.
    virtual void saveAsPng(const std::string& fileName) = 0;
};

}  // namespace t_genproc
