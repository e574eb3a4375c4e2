#include "navora/clock.h"

#include "system/clock_settings.h"

#include <cstdlib>
#include <ctime>

namespace navora {

std::string clockText() {
    const time_t now = time(nullptr);
    tm parts{};
    char text[32];
    if (!localtime_r(&now, &parts))
        return "";
    // Not by %p, which is empty in many languages.
    if (get24HourClockFlag())
        snprintf(text, sizeof text, "%02d:%02d", parts.tm_hour, parts.tm_min);
    else
        snprintf(text, sizeof text, "%d:%02d %s", parts.tm_hour % 12 ? parts.tm_hour % 12 : 12, parts.tm_min,
                 parts.tm_hour < 12 ? "AM" : "PM");
    return text;
}

const std::vector<std::string>& timeZones() {
    static const std::vector<std::string> zones = {
        "UTC",
        "Europe/London",
        "Europe/Berlin",
        "Europe/Moscow",
        "Africa/Cairo",
        "Asia/Dubai",
        "Asia/Kolkata",
        "Asia/Bangkok",
        "Asia/Shanghai",
        "Asia/Tokyo",
        "Asia/Seoul",
        "Australia/Sydney",
        "Pacific/Auckland",
        "America/Los_Angeles",
        "America/Denver",
        "America/Chicago",
        "America/New_York",
        "America/Sao_Paulo",
    };
    return zones;
}

void applyTimeZone() {
    if (const char* const zone = getTimeZone())
        setenv("TZ", zone, 1);
    else
        unsetenv("TZ");
    tzset();
}

} // namespace navora
