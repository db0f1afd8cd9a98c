# What `cmake --install` gives: library, stand-in, headers, CMake package and pkg-config file. The
# tool installs itself.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/QXMix)

install(
  TARGETS QXMIX qxmix_platform
  EXPORT QXMixTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(
  FILES src/interface/MixAlgorithm.h
        src/interface/ObjectLayout.h
        src/interface/qxmix.h
        src/interface/ResultCodes.h
        src/cashunits/CashUnitCodes.h
        src/cashunits/LittleEndian.h
        src/cashunits/RecordChecks.h
        src/cashunits/Records.h
        src/platform/linux/HostControl.h
        src/platform/linux/PlatformApi.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qxmix)
install(
  EXPORT QXMixTargets
  NAMESPACE QXMix::
  DESTINATION ${package_dir})

configure_package_config_file(cmake/QXMixConfig.cmake.in QXMixConfig.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(QXMixConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/QXMixConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/QXMixConfigVersion.cmake DESTINATION ${package_dir})

configure_file(cmake/qxmix.pc.in qxmix.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qxmix.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
