# Installing the engine as a library that games find: the library and its
# public headers, a copy of the font, a CMake package with a version file, a
# pkg-config file, and a Debian package of all of it (cpack -G DEB).
include(CMakePackageConfigHelpers)

set(MORVANE_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Morvane)
install(EXPORT MorvaneTargets NAMESPACE Morvane:: DESTINATION ${MORVANE_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/MorvaneConfig.cmake.in
  ${PROJECT_BINARY_DIR}/MorvaneConfig.cmake INSTALL_DESTINATION ${MORVANE_CMAKE_DIR})
# A game that asks for an older version takes this one too.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/MorvaneConfigVersion.cmake
  COMPATIBILITY AnyNewerVersion)
install(FILES ${PROJECT_BINARY_DIR}/MorvaneConfig.cmake ${PROJECT_BINARY_DIR}/MorvaneConfigVersion.cmake
  DESTINATION ${MORVANE_CMAKE_DIR})

# The file finds the prefix from where it lies, so the engine may be installed anywhere.
file(RELATIVE_PATH MORVANE_PC_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
configure_file(${PROJECT_SOURCE_DIR}/cmake/morvane.pc.in ${PROJECT_BINARY_DIR}/morvane.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/morvane.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES ${MORVANE_FONT_SOURCE} DESTINATION ${CMAKE_INSTALL_DATADIR}/morvane
  RENAME mv-font.ttf)

set(CPACK_PACKAGE_NAME libmorvane-dev)
set(CPACK_PACKAGE_VENDOR "Morvane")
set(CPACK_PACKAGE_CONTACT "Morvane's developers <morvane@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Morvane, a text-mode game engine drawn with SFML")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libsfml-dev (>= 2.5), fonts-dejavu-core, libx11-dev, libgl-dev")
# The package installs where the engine was built to look for its font.
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
include(CPack)
