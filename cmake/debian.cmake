# Debian packages, by `cpack` in a build folder; tools/package does all of it. One for each component, for the
# processor that the compiler makes code for, and beside each what a debugger wants to know.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL library development launcher)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each has its own
set(CPACK_PACKAGE_CONTACT "The kestro authors <authors@kestro.example>")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_DEBUGINFO_PACKAGE ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(debian_version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(soname_package libkestro${PROJECT_VERSION_MAJOR})

set(architecture_of_x86_64-linux-gnu amd64)
set(architecture_of_aarch64-linux-gnu arm64)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${architecture_of_${KESTRO_MULTIARCH}})

# What the packages need besides each other: dpkg knows it from the libraries of this machine, so not when building
# for another. Then it is what it was here, and tools/package compares the two.
if(CMAKE_CROSSCOMPILING)
  file(READ cmake/debian/depends-library depends_library)
  file(READ cmake/debian/depends-launcher depends_launcher)
  string(STRIP "${depends_library}" depends_library)
  string(STRIP ", ${depends_launcher}" depends_launcher)
else()
  set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_LAUNCHER_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
endif()

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME ${soname_package})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS "${depends_library}")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_LIBRARY_DESCRIPTION "user-interface library for a handheld game console
kestro is a C++ library for the launcher of a handheld game console: a stack
of windows with one main loop, input from pads and keys, lists, pictures and
text, drawn through SDL2 on a screen of 1280 x 720.

This package holds the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkestro-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${soname_package} (= ${debian_version}), libsdl2-dev, libsdl2-ttf-dev, \
libsdl2-image-dev, libsdl2-mixer-dev, libcjson-dev, pkg-config | pkgconf")
set(CPACK_DEBIAN_DEVELOPMENT_DEBUGINFO_PACKAGE OFF) # an archive, which keeps its own
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "files to build on the kestro user-interface library
kestro is a C++ library for the launcher of a handheld game console.

This package holds the headers, the host kit, which is a ready-made host for a
program on the library, and what pkg-config and CMake need to find them.")

set(CPACK_DEBIAN_LAUNCHER_PACKAGE_NAME navora)
set(CPACK_DEBIAN_LAUNCHER_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_LAUNCHER_PACKAGE_DEPENDS
  "${soname_package} (= ${debian_version}), fonts-wqy-microhei${depends_launcher}")
set(CPACK_DEBIAN_LAUNCHER_DESCRIPTION "launcher for a handheld game console
navora shows folders of games with their pictures, finds and starts them, and
keeps favourites and what was played of late. It is made for a pad and a
screen of 1280 x 720, and speaks English, Chinese, Spanish, Portuguese,
Japanese and Korean.

This package also holds kestro-keys, which reads and writes the settings that
the launcher shares with other programs.")

# What only a package needs is put there before it is packed.
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_BINARY_DIR}/cmake/debian-files.cmake)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_READELF_EXECUTABLE ${CMAKE_READELF})
set(CPACK_OBJCOPY_EXECUTABLE ${CMAKE_OBJCOPY})
set(CPACK_OBJDUMP_EXECUTABLE ${CMAKE_OBJDUMP})
set(debian_font ../fonts/truetype/wqy/wqy-microhei.ttc)
configure_file(cmake/debian-files.cmake.in cmake/debian-files.cmake @ONLY)
include(CPack)
