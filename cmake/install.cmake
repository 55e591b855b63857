# cmake --install: the archive, its headers and a package that find_package(t_genproc) finds.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(archives t_genproc)
if(T_GENPROC_SQLITE)
  list(APPEND archives t_genproc_sqlite sqlite3mc)
endif()
if(T_GENPROC_LINUX_DESKTOP)
  list(APPEND archives t_genproc_linux_desktop)
endif()
install(TARGETS ${archives} EXPORT t_genprocTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/t_genproc
        FILES_MATCHING PATTERN "*.h")

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/t_genproc)
install(EXPORT t_genprocTargets NAMESPACE t_genproc:: DESTINATION ${package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/t_genprocConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
configure_file(${PROJECT_SOURCE_DIR}/cmake/t_genprocConfig.cmake.in ${PROJECT_BINARY_DIR}/t_genprocConfig.cmake @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/t_genprocConfig.cmake ${PROJECT_BINARY_DIR}/t_genprocConfigVersion.cmake
              ${PROJECT_SOURCE_DIR}/cmake/linux_desktop.cmake DESTINATION ${package_folder})
