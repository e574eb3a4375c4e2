#pragma once

#include "core/export.h"

/// @file
/// The icons at the right of the bar at the top of a page. Each draws itself into a cell of 33 x 32 pixels,
/// `used` pixels left of where the first one stands, and `offset` pixels lower than on a page that begins
/// at the top of the screen. They return how many pixels they take from the right, 0 when they draw nothing.
/// Before an icon is drawn its cell is painted with what gBackground has there. The state of the device is
/// read at every call. `flag` has no effect; the bar passes true. Main thread.

/// The level of the battery in percent and as a picture, and a mark before them while it is charged or on
/// USB power. Takes 84 to 132 pixels; always drawn.
KESTRO_API int draw_battery_icon(bool flag, int used, int offset);

/// Whether the volume, index 0 of the shared table, is above 0. Takes 42 pixels; always drawn.
KESTRO_API int draw_sound_icon(bool flag, int used, int offset);

/// A headphone that is plugged in. 42 or 0.
KESTRO_API int draw_hotplug(bool flag, int used, int offset);

/// The strength of the Wi-Fi signal while connected, or the hotspot. 42 or 0.
KESTRO_API int draw_wifi_icon(bool flag, int used, int offset);

/// A Bluetooth headphone. 42 or 0; the cell is painted over in both cases.
KESTRO_API int draw_bluetooth_icon(bool flag, int used, int offset);
