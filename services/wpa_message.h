#pragma once

#include "services/wifi_monitor.h"

namespace kestro {

/// Reads what the Wi-Fi client printed for "status" and "signal_poll". A text longer than 4095 bytes is cut
/// there. What is missing or cannot be read stays zero; names and addresses that are too long are cut. Never
/// null. Any thread.
WpaMsg parseWpaMessage(const char* text);

} // namespace kestro
