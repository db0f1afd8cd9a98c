# What `cmake --install` gives: library, stand-in, headers, CMake package and pkg-config file. The
# tool installs itself.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/QXMix)
set(install_folders ${CMAKE_INSTALL_BINDIR} ${package_dir} ${CMAKE_INSTALL_LIBDIR}/pkgconfig
                    ${CMAKE_INSTALL_INCLUDEDIR}/qxmix)

install(
  TARGETS QXMIX qxmix_platform
  EXPORT QXMixTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES include/qxmix.h src/platform/linux/HostControl.h
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

# The tree may be installed anywhere, and be moved: the file finds the prefix from where it stands.
file(RELATIVE_PATH QXMIX_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" QXMIX_PREFIX_FROM_PC ${QXMIX_PREFIX_FROM_PC})
configure_file(cmake/qxmix.pc.in qxmix.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qxmix.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# What goes with the tool: manual page, completions, and what its guide speaks of.
if(TARGET qxmix AND NOT CMAKE_CROSSCOMPILING)
  set(completions ${CMAKE_BINARY_DIR}/completions)
  set(completion_places bash-completion/completions/qxmix zsh/site-functions/_qxmix
                        fish/vendor_completions.d/qxmix.fish)
  set(completion_shells bash zsh fish)
  foreach(shell place IN ZIP_LISTS completion_shells completion_places)
    add_custom_command(
      OUTPUT ${completions}/${place}
      COMMAND ${CMAKE_COMMAND} -DTOOL=$<TARGET_FILE:qxmix> -DSHELL=${shell}
              -DOUTPUT=${completions}/${place} -P ${PROJECT_SOURCE_DIR}/cmake/Completions.cmake
      DEPENDS qxmix cmake/Completions.cmake
      VERBATIM)
    list(APPEND tool_files ${completions}/${place})
    # One by one: the folder of an older build may hold files of other names.
    cmake_path(GET place PARENT_PATH folder)
    install(FILES ${completions}/${place} DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/${folder})
    list(APPEND install_folders ${CMAKE_INSTALL_DATAROOTDIR}/${folder})
  endforeach()

  find_program(QXMIX_SCDOC scdoc)
  if(QXMIX_SCDOC)
    add_custom_command(
      OUTPUT ${CMAKE_BINARY_DIR}/qxmix.1
      COMMAND ${CMAKE_COMMAND} -DSCDOC=${QXMIX_SCDOC} -DPAGE=${PROJECT_SOURCE_DIR}/docs/qxmix.1.scd
              -DOUTPUT=${CMAKE_BINARY_DIR}/qxmix.1 -P ${PROJECT_SOURCE_DIR}/cmake/ManualPage.cmake
      DEPENDS docs/qxmix.1.scd cmake/ManualPage.cmake
      VERBATIM)
    list(APPEND tool_files ${CMAKE_BINARY_DIR}/qxmix.1)
    list(APPEND install_folders ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES ${CMAKE_BINARY_DIR}/qxmix.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  else()
    message(STATUS "no scdoc: the manual page is not made")
  endif()
  add_custom_target(tool_files ALL DEPENDS ${tool_files})
  install(
    DIRECTORY docs schema examples
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/qxmix
    PATTERN qxmix.1.scd EXCLUDE)
  set(QXMIX_PAGE "" CACHE FILEPATH "The page of scripts/lib/build-page, to be installed with the documents")
  if(QXMIX_PAGE)
    install(FILES ${QXMIX_PAGE} DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/qxmix)
  endif()
  install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/qxmix)
  list(APPEND install_folders ${CMAKE_INSTALL_DATAROOTDIR}/doc/qxmix)
endif()
configure_file(cmake/InstallFolders.cmake.in InstallFolders.cmake @ONLY)

# `cpack` makes a Debian package of a build.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qxmix)
set(CPACK_PACKAGE_CONTACT "QXMix maintainers <maintainers@qxmix.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Denomination mix of a cash dispenser, and a tool that asks it")
set(CPACK_PACKAGE_DESCRIPTION
    "The module that picks bank notes from cassettes, for hosts on Linux, and qxmix, the command
line tool that tells what a dispenser will pay, why, and where it is dangerous.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/PackedFolders.cmake)
# Packing takes what is built; it does not build the tests.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
include(CPack)
