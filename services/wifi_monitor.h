#pragma once

#include "core/export.h"

/// What the Wi-Fi client last reported.
struct WpaMsg {
    int state;           ///< 0 unknown or disabled, 1 inactive, 2 scanning, 4 connected, 6 key handshake
    int reserved;        ///< always 0
    char ssid[64];       ///< the network's name, zero-terminated, in the bytes that it is broadcast in
    char ip_address[24]; ///< dotted text, zero-terminated
    int rssi;            ///< signal strength in dBm
    int linkspeed;       ///< as reported
    int noise;           ///< as reported
    int frequency;       ///< MHz
    int id;              ///< the network's number
};

/// The record that the monitor writes; all zero until its first poll. While the monitor may be running, read
/// it with readWifiStatus: a plain look at it is not synchronised.
extern KESTRO_API WpaMsg g_wpa_msg;

/// The address of g_wpa_msg, never null. Any thread.
KESTRO_API WpaMsg* rx_wifi_status();

/// A copy of g_wpa_msg that can be taken while the monitor writes: half of it may then be older than the
/// other half, but its texts always end. Any thread.
KESTRO_API WpaMsg readWifiStatus();

/// Asks the Wi-Fi client once, by two shell commands, and returns what it says; zero where it says nothing.
/// Leaves g_wpa_msg alone. Blocks until the commands end; calls take turns. Any thread.
KESTRO_API WpaMsg rx_get_wpa_msg();

/// Zeroes g_wpa_msg and starts the monitor: a thread that asks the Wi-Fi client every 3 seconds while
/// wpa_supplicant is running, and writes the answer to g_wpa_msg. While a thread is still alive, also one
/// that was told to stop, only logs "wifi monitor already started.". Any thread.
KESTRO_API void rx_wifi_monitor_start();

/// Tells the monitor to end. Does not wait: it ends after at most 3 seconds and one poll. Any thread.
KESTRO_API void rx_wifi_monitor_stop();

/// What the process list says: 1 Wi-Fi is off, 2 station (wpa_supplicant is running), 3 hotspot (only hostapd
/// is). Looks through the processes on every call. Any thread.
KESTRO_API int getWifiMode();

/// The number of bars for a signal strength in dBm: 0 below -126 and above 127, 1 below -80, 2 below -70,
/// else 3. Any thread.
KESTRO_API int rssi2Level(int rssi);
