# Warnings are errors in everything that is written here.
add_library(t_genproc_warnings INTERFACE)
target_compile_options(t_genproc_warnings INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)  # GCC 12 at -O3 suspects std::string's own operator+
