#pragma once

#include "core/export.h"

/// @file
/// The colour levels of the display. A setter clamps the level, stores it and writes it to the display
/// driver; a driver that is not there is passed over without a word. A getter returns the stored level, a
/// restore sets the default. Main thread.
///
/// | level             | range  | default | driver receives   |
/// |-------------------|--------|---------|-------------------|
/// | saturation        | 0..10  | 5       | level x 10        |
/// | colour temperature| 0..20  | 10      | (level - 10) x 5  |
/// | contrast          | 1..10  | 5       | level x 10        |
/// | colour brightness | 1..10  | 5       | level x 10        |

KESTRO_API void setSaturation(int level); ///< the saturation, 0 to 10
KESTRO_API int getSaturation();           ///< the stored level
KESTRO_API void restoreSaturation();      ///< sets the default

KESTRO_API void setColorTemperature(int level); ///< the colour temperature, 0 to 20
KESTRO_API int getColorTemperature();           ///< the stored level
KESTRO_API void restoreColorTemperature();      ///< sets the default

KESTRO_API void setContrast(int level); ///< the contrast, 1 to 10
KESTRO_API int getContrast();           ///< the stored level
KESTRO_API void restoreContrast();      ///< sets the default

KESTRO_API void setColorBrightness(int level); ///< the colour brightness, 1 to 10
KESTRO_API int getColorBrightness();           ///< the stored level
KESTRO_API void restoreColorBrightness();      ///< sets the default
