#pragma once

#include "core/export.h"

/// Stores the name of a time zone, such as "Asia/Tokyo". Of a path into "/usr/share/zoneinfo" only what
/// follows that folder is stored. Cut to 256 bytes; null is ignored. Main thread.
KESTRO_API void setTimeZone(const char* name);

/// The name of the time zone, null when there is none. Valid until the next setTimeZone. Main thread.
KESTRO_API const char* getTimeZone();

/// Whether the clock is set from the network: 1 at load. Any value is kept as it is. Main thread.
KESTRO_API void setSyncTimeFromNetworkFlag(int flag);
KESTRO_API int getSyncTimeFromNetworkFlag(); ///< the value set or loaded last

/// Whether the clock shows 24 hours: 1 at load. Any value is kept as it is. Main thread.
KESTRO_API void set24HourClockFlag(int flag);
KESTRO_API int get24HourClockFlag(); ///< the value set or loaded last
