#include "services/wpa_message.h"

#include "core/file_util.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

namespace kestro {

static constexpr int longestWord = 4095;

/// The word read by `format` at the first `key` of the text; "" if there is none. White space before the
/// word, line breaks included, is skipped: an empty value reads what comes next.
static std::string wordAt(const char* text, const char* key, const char* format) {
    char word[longestWord + 1] = "";
    const char* const at = strstr(text, key);
    return at && sscanf(at, format, word) == 1 ? word : "";
}

/// The number read by `format` at the first `key` of the text, which need not begin a line; else 0.
static int numberAt(const char* text, const char* key, const char* format) {
    int number = 0;
    const char* const at = strstr(text, key);
    return at && sscanf(at, format, &number) == 1 ? number : 0;
}

static int stateNamed(const std::string& name) {
    if (name == "COMPLETED")
        return 4;
    if (name == "INACTIVE")
        return 1;
    if (name == "SCANNING")
        return 2;
    return name == "4WAY_HANDSHAKE" ? 6 : 0;
}

static unsigned char byteOf(char high, char low) {
    return static_cast<unsigned char>(CharToHex(static_cast<unsigned char>(high)) * 16 +
                                      CharToHex(static_cast<unsigned char>(low)));
}

/// Turns every "\x" with two more characters into a byte. They need not be digits: CharToHex has a value for
/// everything.
static std::string decoded(const std::string& name) {
    std::string bytes;
    for (size_t i = 0; i < name.size(); ++i) {
        if (name.compare(i, 2, "\\x") == 0 && name.size() - i >= 4) {
            bytes += static_cast<char>(byteOf(name[i + 2], name[i + 3]));
            i += 3;
        } else {
            bytes += name[i];
        }
    }
    return bytes;
}

template <size_t size>
static void store(const std::string& text, char (&field)[size]) {
    memcpy(field, text.data(), std::min(text.size(), size - 1));
}

static WpaMsg parse(const char* text) {
    WpaMsg message{};
    message.state = stateNamed(wordAt(text, "wpa_state=", "wpa_state=%4095s\n"));
    store(wordAt(text, "ip_address=", "ip_address=%4095s\n"), message.ip_address);
    // The line break keeps the line of the bssid out.
    store(decoded(wordAt(text, "\nssid=", "\nssid=%4095s\n")), message.ssid);
    // Nothing keeps it out here: its tail is read when it comes first, and 0 stays if that is no number.
    message.id = numberAt(text, "id=", "id=%d\n");
    message.rssi = numberAt(text, "RSSI=", "RSSI=%d\n");
    message.noise = numberAt(text, "NOISE=", "NOISE=%d\n");
    message.linkspeed = numberAt(text, "LINKSPEED=", "LINKSPEED=%d\n");
    message.frequency = numberAt(text, "FREQUENCY=", "FREQUENCY=%d\n");
    return message;
}

WpaMsg parseWpaMessage(const char* text) {
    return parse(std::string(text, strnlen(text, longestWord)).c_str());
}

} // namespace kestro
