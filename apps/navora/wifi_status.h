#pragma once

namespace navora {

/// Keeps the library's Wi-Fi record (see rx_wifi_status) up to date while it lives. `monitored` is by a
/// thread that asks every 3 seconds; otherwise the Wi-Fi client is asked at once and then by askWifi only, so
/// that a picture of the launcher is the same every time. Main thread.
class WifiStatus {
public:
    explicit WifiStatus(bool monitored);
    ~WifiStatus();
    WifiStatus(const WifiStatus&) = delete;
    WifiStatus& operator=(const WifiStatus&) = delete;
};

/// Asks the Wi-Fi client anew, unless the thread does.
void askWifi();

} // namespace navora
