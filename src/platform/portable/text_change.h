/// A piece of a text and what takes its place; every other byte stays.
#pragma once

#include <cstddef>
#include <string>

namespace t_genproc::portable {

struct TextChange {
    std::size_t position = 0;  // zero-based
    std::size_t length = 0;
    std::string replacement;
};

}  // namespace t_genproc::portable
