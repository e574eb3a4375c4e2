# What the library is built on. All of it comes from the distribution; ./run and ./test install it on Debian.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
pkg_check_modules(SDL2 REQUIRED IMPORTED_TARGET GLOBAL sdl2)
pkg_check_modules(SDL2_TTF REQUIRED IMPORTED_TARGET GLOBAL SDL2_ttf)
pkg_check_modules(SDL2_IMAGE REQUIRED IMPORTED_TARGET GLOBAL SDL2_image)
pkg_check_modules(SDL2_MIXER REQUIRED IMPORTED_TARGET GLOBAL SDL2_mixer)
pkg_check_modules(CJSON REQUIRED IMPORTED_TARGET GLOBAL libcjson)

# The other packages' headers are not ours to warn about.
foreach(module SDL2 SDL2_TTF SDL2_IMAGE SDL2_MIXER CJSON)
  set_target_properties(PkgConfig::${module} PROPERTIES
    INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${${module}_INCLUDE_DIRS}")
endforeach()

add_library(kestro-dependencies INTERFACE)
target_link_libraries(kestro-dependencies INTERFACE
  PkgConfig::SDL2 PkgConfig::SDL2_TTF PkgConfig::SDL2_IMAGE PkgConfig::SDL2_MIXER PkgConfig::CJSON)
