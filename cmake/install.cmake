# `cmake --install` gives a host what it builds against: the shared library, the public headers, kestro.pc
# for pkg-config and a CMake package.
include(CMakePackageConfigHelpers)

# kestro.h is the list of the public headers.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS kestro.h)
file(STRINGS kestro.h public_headers REGEX "^#include \"")
list(TRANSFORM public_headers REPLACE "^#include \"(.*)\"$" "\\1")
list(APPEND public_headers kestro.h)
foreach(header ${public_headers})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kestro/${folder})
endforeach()

install(TARGETS kestro EXPORT KestroTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})

# What a host includes and links besides; both packages name it to pkg-config.
set(KESTRO_REQUIRES sdl2 SDL2_ttf SDL2_image SDL2_mixer libcjson)

# kestro.pc finds the installation from where it lies itself, so that this can be moved as a whole.
file(RELATIVE_PATH KESTRO_PREFIX_FROM_PC ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" KESTRO_PREFIX_FROM_PC ${KESTRO_PREFIX_FROM_PC})
list(JOIN KESTRO_REQUIRES " " KESTRO_PC_REQUIRES)
configure_file(cmake/kestro.pc.in cmake/kestro.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/cmake/kestro.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Kestro)
configure_package_config_file(cmake/KestroConfig.cmake.in ${PROJECT_BINARY_DIR}/cmake/KestroConfig.cmake
  INSTALL_DESTINATION ${package_folder}
  NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/KestroConfigVersion.cmake
  COMPATIBILITY SameMinorVersion) # to become SameMajorVersion with 1.0
install(FILES
  ${PROJECT_BINARY_DIR}/cmake/KestroConfig.cmake
  ${PROJECT_BINARY_DIR}/cmake/KestroConfigVersion.cmake
  DESTINATION ${package_folder})
install(EXPORT KestroTargets NAMESPACE Kestro:: DESTINATION ${package_folder})

install(FILES LICENSE NOTICE DESTINATION ${CMAKE_INSTALL_DOCDIR})
