# The host kit: an archive with a default for every host symbol, each in an object of its own, so that a
# program's own definition keeps the kit's out.
add_library(kestro-hostkit STATIC
  hostkit/close_request.cpp
  hostkit/event_filter.cpp
  hostkit/file_filter.cpp
  hostkit/file_handler.cpp
  hostkit/file_rows.cpp
  hostkit/files.cpp
  hostkit/get_key_shm.cpp
  hostkit/init_joy_stick.cpp
  hostkit/key_table.cpp
  hostkit/key_tone.cpp
  hostkit/menu_window.cpp
  hostkit/pads.cpp
  hostkit/presented_pad.cpp
  hostkit/rotation.cpp
  hostkit/session.cpp
  hostkit/set_key_shm.cpp
  hostkit/settings.cpp
  hostkit/shm_info.cpp
  hostkit/theme.cpp
  hostkit/theme_path.cpp
  hostkit/unattended.cpp)
kestro_precompile(kestro-hostkit)
add_library(Kestro::hostkit ALIAS kestro-hostkit)
set_target_properties(kestro-hostkit PROPERTIES EXPORT_NAME hostkit POSITION_INDEPENDENT_CODE ON)
target_link_libraries(kestro-hostkit PUBLIC kestro rt PRIVATE $<BUILD_INTERFACE:kestro-options> $<BUILD_INTERFACE:kestro-hardening>
  $<BUILD_INTERFACE:kestro-coverage>)
target_compile_options(kestro-hostkit PRIVATE ${KESTRO_COVERAGE_WITHOUT_EXCEPTIONS})

# The library asks for the host's symbols only after the archive was searched: ask before. Mangled, as the linker
# knows them.
set(KESTRO_HOST_SYMBOLS
  gShmInfo gThemePath _Z9GetKeyShmPvi _Z9SetKeyShmPvii _Z12initJoyStickv _Z11file_filterPKcS0_
  _Z12file_handlerPKcS0_i)
foreach(symbol ${KESTRO_HOST_SYMBOLS})
  target_link_options(kestro-hostkit INTERFACE LINKER:--undefined=${symbol})
endforeach()
