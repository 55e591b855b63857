/// The host's standard picture: an object with the members `Handle` and `hPal` (its bitmap and palette),
/// `Type` (1: a bitmap), `Width` and `Height` (hundredths of a millimetre). They can only be read (error
/// 383).
#pragma once

#include <cstdint>
#include <string>

#include "host/object.h"

namespace t_genproc {

class Picture : public t_gencvf::Object {
   public:
    struct Members {
        std::int32_t handle = 0;
        std::int32_t palette = 0;
        std::int16_t type = 0;
        std::int32_t width = 0;
        std::int32_t height = 0;
    };

    Variant get(std::string_view member, t_gencvf::Arguments arguments) final;
    void let(std::string_view member, const Variant& value, t_gencvf::Arguments arguments) final;
    Variant call(std::string_view member, t_gencvf::Arguments arguments) final;
    std::string_view typeName() const final { return "Picture"; }

    /// Writes the picture into a file, as PNG. The errors of writing a file, where that fails.
    virtual void saveAsPng(const std::string& fileName) = 0;

   protected:
    explicit Picture(const Members& members) : members_(members) {}

   private:
    Members members_;
};

}  // namespace t_genproc
