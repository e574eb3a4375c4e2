// What the Wi-Fi client prints.
#include "fuzz/support/device.h"
#include "services/wpa_message.h"

#include <cstdlib>
#include <cstring>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const WpaMsg message = kestro::parseWpaMessage(fuzz::textOf(data, size).c_str());
    if (!memchr(message.ssid, 0, sizeof message.ssid) ||
        !memchr(message.ip_address, 0, sizeof message.ip_address))
        abort();
    return 0;
}
