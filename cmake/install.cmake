# `cmake --install` gives a host what it builds against: the shared library, the host kit, the public headers,
# kestro.pc and kestro-hostkit.pc for pkg-config, and a CMake package; the command
# kestro-keys; and the launcher with all that it shows.
include(CMakePackageConfigHelpers)

# kestro.h is the list of the library's public headers, hostkit.h that of the host kit's.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS kestro.h hostkit/hostkit.h)
set(public_headers kestro.h hostkit/hostkit.h)
foreach(list kestro.h hostkit/hostkit.h)
  file(STRINGS ${list} included REGEX "^#include \"")
  list(TRANSFORM included REPLACE "^#include \"(.*)\"$" "\\1")
  list(APPEND public_headers ${included})
endforeach()
foreach(header ${public_headers})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kestro/${folder})
endforeach()

install(TARGETS kestro kestro-hostkit EXPORT KestroTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS kestro-keys RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# What a host includes and links besides; both packages name it to pkg-config.
set(KESTRO_REQUIRES sdl2 SDL2_ttf SDL2_image SDL2_mixer libcjson)

# kestro.pc finds the installation from where it lies itself, so that this can be moved as a whole.
file(RELATIVE_PATH KESTRO_PREFIX_FROM_PC ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" KESTRO_PREFIX_FROM_PC ${KESTRO_PREFIX_FROM_PC})
list(JOIN KESTRO_REQUIRES " " KESTRO_PC_REQUIRES)
list(TRANSFORM KESTRO_HOST_SYMBOLS PREPEND "-Wl,--undefined=" OUTPUT_VARIABLE KESTRO_PC_HOST_SYMBOLS)
list(JOIN KESTRO_PC_HOST_SYMBOLS " " KESTRO_PC_HOST_SYMBOLS)
foreach(module kestro kestro-hostkit)
  configure_file(cmake/${module}.pc.in cmake/${module}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/cmake/${module}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

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

# The launcher, which finds the library and what it shows from where it lies itself.
if(KESTRO_APPS)
  file(RELATIVE_PATH library_from_bin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(navora PROPERTIES INSTALL_RPATH "$ORIGIN/${library_from_bin}")
  install(TARGETS navora RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(DIRECTORY assets/lang assets/sample assets/skin assets/themes DESTINATION ${CMAKE_INSTALL_DATADIR}/navora)
  install(FILES assets/navora.json ${KESTRO_RUN_FOLDER}/regular.ttf DESTINATION ${CMAKE_INSTALL_DATADIR}/navora)
endif()
