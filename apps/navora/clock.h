#pragma once

#include <string>
#include <vector>

namespace navora {

/// The time of day in the time zone and the form of the settings, such as "21:07" or "9:07 PM".
std::string clockText();

/// The time zones that the settings offer, by their names in the zone database.
const std::vector<std::string>& timeZones();

/// Puts the time zone of the settings into force for this process.
void applyTimeZone();

} // namespace navora
