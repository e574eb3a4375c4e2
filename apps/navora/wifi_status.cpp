#include "navora/wifi_status.h"

#include "services/wifi_monitor.h"

namespace navora {

static bool sMonitored = false;

WifiStatus::WifiStatus(bool monitored) {
    sMonitored = monitored;
    if (monitored)
        rx_wifi_monitor_start();
    else
        askWifi();
}

WifiStatus::~WifiStatus() {
    if (sMonitored)
        rx_wifi_monitor_stop();
}

void askWifi() {
    constexpr int station = 2;
    if (!sMonitored)
        *rx_wifi_status() = getWifiMode() == station ? rx_get_wpa_msg() : WpaMsg{};
}

} // namespace navora
