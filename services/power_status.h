#pragma once

#include "core/export.h"

/// @file
/// Battery and external power. Every call reads the driver's file afresh, so that the display follows the
/// charger at once. Any thread.

/// The battery's capacity in percent: the number that the driver reports, not clamped; 0 when there is no
/// report or it is not a number.
KESTRO_API int readBatteryADC();

/// Whether USB power is present; false when the driver does not say.
KESTRO_API bool isUsbOnline();

/// Whether the battery reports that it is charging; false also when it is full or there is no report.
KESTRO_API bool ischarging();
