#pragma once

/// The one place that fixes the order in which the library's load-time objects are made. Each object
/// lives in the file of its concept and is marked with its place here; at exit they are destroyed in
/// reverse. Lower runs first; the compiler keeps 0 to 100 for itself.
#define KESTRO_LOADED(place) __attribute__((init_priority(place)))

#define KESTRO_LOADED_ICON_CACHE KESTRO_LOADED(201)
#define KESTRO_LOADED_POPUP_LIST KESTRO_LOADED(202)
#define KESTRO_LOADED_DEFAULT_STRINGS KESTRO_LOADED(203)
#define KESTRO_LOADED_TEXT_CACHE KESTRO_LOADED(204)
#define KESTRO_LOADED_PINYIN_MAP KESTRO_LOADED(205)
#define KESTRO_LOADED_LANGUAGE_TABLE KESTRO_LOADED(206)
#define KESTRO_LOADED_LANGUAGE_LIST KESTRO_LOADED(207)
