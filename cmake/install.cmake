# `cmake --install` gives a host what it builds against: the shared library, the host kit, the public headers,
# kestro.pc and kestro-hostkit.pc for pkg-config, and a CMake package; and the launcher with all that it shows, and
# the command kestro-keys. The components: "library" is what a built host runs with, "development" what it is
# built with, "launcher" the programs, and "documents" the licences.
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
  install(FILES ${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kestro/${folder} COMPONENT development)
endforeach()

install(TARGETS kestro kestro-hostkit EXPORT KestroTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)

# install_program(NAME): with its manual page.
function(install_program name)
  configure_file(apps/${name}/${name}.1.in apps/${name}/${name}.1 @ONLY)
  install(TARGETS ${name} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT launcher)
  install(FILES ${PROJECT_BINARY_DIR}/apps/${name}/${name}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
    COMPONENT launcher)
endfunction()
if(TARGET kestro-keys)
  install_program(kestro-keys)
endif()

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
  install(FILES ${PROJECT_BINARY_DIR}/cmake/${module}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)
endforeach()

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Kestro)
configure_package_config_file(cmake/KestroConfig.cmake.in ${PROJECT_BINARY_DIR}/cmake/KestroConfig.cmake
  INSTALL_DESTINATION ${package_folder}
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/KestroConfigVersion.cmake
  COMPATIBILITY SameMajorVersion) # as docs/abi.md promises
install(FILES
  ${PROJECT_BINARY_DIR}/cmake/KestroConfig.cmake
  ${PROJECT_BINARY_DIR}/cmake/KestroConfigVersion.cmake
  DESTINATION ${package_folder} COMPONENT development)
install(EXPORT KestroTargets NAMESPACE Kestro:: DESTINATION ${package_folder} COMPONENT development)

install(FILES LICENSE NOTICE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents)

# The launcher, which finds the library and what it shows from where it lies itself. Installed for the whole system,
# its library is where every program's is.
if(KESTRO_APPS)
  file(RELATIVE_PATH library_from_bin ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set_target_properties(navora PROPERTIES INSTALL_RPATH "$ORIGIN/${library_from_bin}")
  install_program(navora)
  install(CODE "if(CMAKE_INSTALL_PREFIX STREQUAL \"/usr\")
    file(RPATH_REMOVE FILE \"\$ENV{DESTDIR}/usr/${CMAKE_INSTALL_BINDIR}/navora\")
  endif()" COMPONENT launcher)
  set(shown ${CMAKE_INSTALL_DATADIR}/navora)
  install(DIRECTORY assets/lang assets/sample assets/skin assets/themes DESTINATION ${shown} COMPONENT launcher
    PATTERN skin-source EXCLUDE)
  install(FILES assets/navora.json ${KESTRO_RUN_FOLDER}/regular.ttf DESTINATION ${shown} COMPONENT launcher)
  install(FILES apps/navora/navora.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT launcher)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(FILES assets/icons/navora.svg DESTINATION ${icons}/scalable/apps COMPONENT launcher)
  install(FILES assets/icons/navora.png DESTINATION ${icons}/256x256/apps COMPONENT launcher)
endif()
