# The libraries behind t_genproc_linux_desktop: for its build, and for those who link the installed archive.
find_package(Cups REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(linux_desktop REQUIRED IMPORTED_TARGET cairo pangocairo xcb)
