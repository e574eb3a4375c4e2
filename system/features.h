#pragma once

#include "core/export.h"

/// Reads what hardware the device has from "/mnt/SDCARD/features.json", else
/// "/usr/kestro/features.json". What neither file says stays as it was. A "suspend" of 0 also keeps the
/// device awake by a marker file. Main thread, like everything here.
KESTRO_API void loadSystemFunction();

/// Whether Bluetooth is there and switched on: 1 when the device has it and the host's table (`shm` is its
/// handle) holds 1 at index 16, else 0.
KESTRO_API int getBluetoothFlag(void* shm);

/// Whether the device has Bluetooth: the number that the file gives, 0 at load. The spelling of the name is
/// part of the interface.
KESTRO_API int isBluetoothEanbled();
KESTRO_API int isSuspendEnabled();     ///< whether it can suspend: the file's number, 1 at load
KESTRO_API int isBatteryTempEnabled(); ///< whether it tells the battery's temperature; 0 at load
