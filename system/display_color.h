#pragma once

#include "core/export.h"

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
KESTRO_API void setSaturation(int level);
KESTRO_API int getSaturation();
KESTRO_API void restoreSaturation();

KESTRO_API void setColorTemperature(int level);
KESTRO_API int getColorTemperature();
KESTRO_API void restoreColorTemperature();

KESTRO_API void setContrast(int level);
KESTRO_API int getContrast();
KESTRO_API void restoreContrast();

KESTRO_API void setColorBrightness(int level);
KESTRO_API int getColorBrightness();
KESTRO_API void restoreColorBrightness();
