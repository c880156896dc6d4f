# Installation for host engines: `cmake --install <build> --prefix <dir>` puts
# the module, the static engine, its headers and a CMake package config in
# place, so that a host writes find_package(zent_dl) and links zent_dl::core.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(ZDL_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/zent_dl)
set(ZDL_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/zent_dl)

set_target_properties(zent_dl_core PROPERTIES EXPORT_NAME core)
target_include_directories(zent_dl_core PUBLIC $<INSTALL_INTERFACE:${ZDL_INSTALL_INCLUDEDIR}>)
install(TARGETS zent_dl_core EXPORT zent_dlTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(TARGET zent_dl)
  install(TARGETS zent_dl EXPORT zent_dlTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()

# The engine's headers (and the tables they include), laid out as under src/.
foreach(dir IN LISTS ZDL_ENGINE_DIRS)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/${dir}/ DESTINATION ${ZDL_INSTALL_INCLUDEDIR}/${dir}
          FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
endforeach()

install(EXPORT zent_dlTargets NAMESPACE zent_dl:: DESTINATION ${ZDL_INSTALL_CMAKEDIR})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/zent_dlConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/zent_dlConfig.cmake INSTALL_DESTINATION ${ZDL_INSTALL_CMAKEDIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/zent_dlConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/zent_dlConfig.cmake ${CMAKE_BINARY_DIR}/zent_dlConfigVersion.cmake
        DESTINATION ${ZDL_INSTALL_CMAKEDIR})

# The test: install this build into a fresh prefix and build an engine
# example against the installed package.
if(ZDL_TESTS AND NOT ZDL_SANITIZE)
  add_test(NAME zdl_install_package
           COMMAND ${CMAKE_COMMAND} -DZDL_BUILD_DIR=${CMAKE_BINARY_DIR} -DZDL_SOURCE_DIR=${CMAKE_SOURCE_DIR}
                   -DZDL_WORK_DIR=${CMAKE_BINARY_DIR}/install-test -DZDL_GENERATOR=${CMAKE_GENERATOR}
                   -P ${CMAKE_SOURCE_DIR}/tests/install/InstallAndBuild.cmake)
endif()
