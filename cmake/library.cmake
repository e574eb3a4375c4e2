# The library: compiled once, as objects, for the shared library that ships and for the few tests that look
# at what it hides.
add_library(kestro-objects OBJECT
  core/clock.cpp
  core/dialog_window.cpp
  core/file_util.cpp
  core/float_window.cpp
  core/frame_rate.cpp
  core/input.cpp
  core/key_repeat.cpp
  core/log.cpp
  core/popup_window.cpp
  core/window.cpp
  core/window_stack.cpp
  core/window_state.cpp
  gfx/fill.cpp
  gfx/image.cpp
  gfx/opacity.cpp
  gfx/picture_bomb.cpp
  gfx/picture_child.cpp
  gfx/picture_file.cpp
  gfx/picture_size.cpp
  gfx/picture_size_chunks.cpp
  gfx/picture_size_fixed.cpp
  gfx/picture_size_svg.cpp
  gfx/picture_size_text.cpp
  gfx/picture_size_tiff.cpp
  gfx/scale.cpp
  gfx/scale_avx2.cpp
  gfx/scale_avx512.cpp
  gfx/scale_bilinear.cpp
  gfx/scale_error_term.cpp
  gfx/scale_nearest.cpp
  gfx/scale_neon.cpp
  gfx/scale_sse2.cpp
  gfx/screen.cpp
  gfx/surface.cpp
  gfx/surface_cache.cpp
  gfx/text.cpp
  gfx/text_key.cpp
  gfx/transform.cpp
  gfx/truncate_memo.cpp
  menu/action.cpp
  menu/count_number.cpp
  menu/dir_browser.cpp
  menu/file_browser_menu.cpp
  menu/label_highlight.cpp
  menu/label_sort.cpp
  menu/list_menu.cpp
  menu/menu_item.cpp
  menu/row_order.cpp
  menu/setting_item.cpp
  menu/setting_menu.cpp
  menu/setting_switch_item.cpp
  menu/setting_value_item.cpp
  menu/text_menu.cpp
  menu/text_menu_drawer.cpp
  menu/text_menu_drawer_draw.cpp
  platform/device_path.cpp
  services/lru_cache.cpp
  services/power_status.cpp
  services/process_list.cpp
  services/wifi_monitor.cpp
  services/work_thread.cpp
  services/wpa_message.cpp
  shell/bar_layout.cpp
  shell/bars.cpp
  shell/icon_cache.cpp
  shell/skin.cpp
  shell/status_icons.cpp
  system/clock_settings.cpp
  system/content.cpp
  system/current_language.cpp
  system/display_color.cpp
  system/features.cpp
  system/json_file.cpp
  system/json_lookup.cpp
  system/language.cpp
  system/language_files.cpp
  system/osd_shortcuts.cpp
  system/settings_journal.cpp
  system/system_state.cpp
  system/system_state_load.cpp
  system/system_state_save.cpp
  text/pinyin.cpp
  text/pinyin_table.cpp
  text/utf8.cpp)
# Each of these is chosen at run time; they are empty for other processors.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$")
  set_source_files_properties(gfx/scale_avx2.cpp PROPERTIES COMPILE_OPTIONS "-mavx2;-mfma")
  set_source_files_properties(gfx/scale_avx512.cpp PROPERTIES COMPILE_OPTIONS
    "-mavx2;-mfma;-mavx512f;-mavx512bw;-mavx512vl;$<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>") # its own header's
endif()
set_source_files_properties(gfx/scale_avx2.cpp gfx/scale_avx512.cpp PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
kestro_precompile(kestro-objects)
set_target_properties(kestro-objects PROPERTIES
  POSITION_INDEPENDENT_CODE ON
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)
if(KESTRO_SANITIZE)
  target_compile_options(kestro-objects PRIVATE -O1) # the tests can do without, and compile faster
endif()
target_include_directories(kestro-objects PUBLIC ${PROJECT_SOURCE_DIR})
target_link_libraries(kestro-objects PUBLIC kestro-dependencies Threads::Threads
  PRIVATE kestro-options kestro-hardening kestro-coverage
  INTERFACE $<$<BOOL:${KESTRO_COVERAGE}>:--coverage>)

add_library(kestro SHARED)
add_library(Kestro::kestro ALIAS kestro)
set_target_properties(kestro PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/hidden-symbols.map)
target_compile_features(kestro PUBLIC cxx_std_17)
target_include_directories(kestro PUBLIC
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kestro>)
target_link_libraries(kestro
  PRIVATE kestro-objects kestro-options kestro-hardening kestro-coverage Threads::Threads
  PUBLIC $<BUILD_INTERFACE:kestro-dependencies>)
target_link_options(kestro PRIVATE
  -Wl,-z,nodelete # threads and exit handlers run in it to the end
  -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/hidden-symbols.map)
