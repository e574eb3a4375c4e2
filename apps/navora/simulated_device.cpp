#include "navora/simulated_device.h"

#include "services/wifi_monitor.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <unistd.h>
#include <utility>

namespace fs = std::filesystem;

namespace navora {

static const std::string sSettings = "mnt/UDISK/system.json";
static const std::string sCapacity = "sys/class/power_supply/axp2202-battery/capacity";
static const std::string sCharging = "sys/class/power_supply/axp2202-battery/status";
static const std::string sOnline = "sys/class/power_supply/axp2202-usb/online";
static const std::string sStation = "proc/301";
static const std::string sHotspot = "proc/302";
static const std::string sAnswers = "simulator/wifi";
static const std::string sRotation = "simulator/rotation";

static constexpr int sStrengths[] = {-90, -75, -55}; // in dBm, for one to three bars

SimulatedDevice::SimulatedDevice(std::string root) : mRoot(std::move(root)) {}

bool SimulatedDevice::has(const std::string& name) const {
    std::error_code ignored;
    return fs::exists(path(name), ignored);
}

std::string SimulatedDevice::read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// All at once, so that no reader sees half a file.
void SimulatedDevice::put(const std::string& name, const std::string& content) const {
    std::error_code ignored;
    const fs::path file = path(name);
    const fs::path fresh = file.string() + "." + std::to_string(getpid());
    fs::create_directories(file.parent_path(), ignored);
    std::ofstream(fresh, std::ios::binary) << content;
    fs::rename(fresh, file, ignored);
}

void SimulatedDevice::switchFile(const std::string& name, bool on) const {
    std::error_code ignored;
    if (on)
        put(name, "");
    else
        fs::remove(path(name), ignored);
}

int SimulatedDevice::battery() const {
    return atoi(read(sCapacity).c_str());
}

void SimulatedDevice::setBattery(int percent) const {
    put(sCapacity, std::to_string(percent) + "\n");
}

bool SimulatedDevice::charger() const {
    return read(sOnline).rfind('1', 0) == 0;
}

void SimulatedDevice::setCharger(bool on) const {
    put(sCharging, on ? "Charging\n" : "Discharging\n");
    put(sOnline, on ? "1\n" : "0\n");
}

/// What the Wi-Fi client would say for `key`; "" where it says nothing.
std::string SimulatedDevice::answer(const std::string& key) const {
    const std::string text =
        "\n" + read(sAnswers + "/status") + "\n" + read(sAnswers + "/signal_poll") + "\n";
    const size_t found = text.find("\n" + key + "=");
    if (found == std::string::npos)
        return "";
    const size_t begin = found + key.size() + 2;
    return text.substr(begin, text.find('\n', begin) - begin);
}

SimulatedDevice::Wifi SimulatedDevice::wifi() const {
    if (!has(sStation + "/cmdline"))
        return has(sHotspot + "/cmdline") ? Wifi::hotspot : Wifi::off;
    const std::string state = answer("wpa_state");
    if (state == "COMPLETED")
        return Wifi::connected;
    return state == "SCANNING" ? Wifi::scanning : Wifi::connecting;
}

int SimulatedDevice::wifiBars() const {
    return wifi() == Wifi::connected ? rssi2Level(atoi(answer("RSSI").c_str())) : 0;
}

/// The files of processes hold their words, each with a zero after it.
static std::string commandLine(std::initializer_list<std::string> words) {
    std::string line;
    for (const std::string& word : words)
        line += word + '\0';
    return line;
}

void SimulatedDevice::runProcesses(bool station, bool hotspot) const {
    std::error_code ignored;
    fs::remove_all(path(sStation), ignored);
    fs::remove_all(path(sHotspot), ignored);
    if (station)
        put(sStation + "/cmdline", commandLine({"/usr/sbin/wpa_supplicant", "-B", "-i", "wlan0", "-c",
                                                "/etc/wifi/wpa_supplicant.conf"}));
    if (hotspot)
        put(sHotspot + "/cmdline", commandLine({"/usr/sbin/hostapd", "-B", "/etc/wifi/hostapd.conf"}));
}

void SimulatedDevice::answerState(const std::string& state) const {
    put(sAnswers + "/status", "wpa_state=" + state + "\naddress=02:00:00:00:02:00\n");
    put(sAnswers + "/signal_poll", "FAIL\n");
}

void SimulatedDevice::forgetAnswers() const {
    std::error_code ignored;
    for (const char* command : {"/status", "/signal_poll"})
        fs::remove(path(sAnswers + command), ignored);
}

void SimulatedDevice::setWifi(Wifi state) const {
    switch (state) {
    case Wifi::scanning:
        answerState("SCANNING");
        break;
    case Wifi::connecting:
        answerState("4WAY_HANDSHAKE");
        break;
    case Wifi::connected:
        return connectWifi(3);
    case Wifi::off:
    case Wifi::hotspot:
        forgetAnswers();
        break;
    }
    runProcesses(state == Wifi::scanning || state == Wifi::connecting, state == Wifi::hotspot);
}

void SimulatedDevice::connectWifi(int bars) const {
    put(sAnswers + "/status", R"(bssid=a2:00:00:00:01:00
freq=2437
ssid=home
id=0
mode=station
pairwise_cipher=CCMP
group_cipher=CCMP
key_mgmt=WPA2-PSK
wpa_state=COMPLETED
ip_address=192.168.1.23
address=02:00:00:00:02:00
)");
    put(sAnswers + "/signal_poll",
        "RSSI=" + std::to_string(sStrengths[bars - 1]) + "\nLINKSPEED=65\nNOISE=-95\nFREQUENCY=2437\n");
    runProcesses(true, false);
}

bool SimulatedDevice::bluetooth() const {
    return has("tmp/btdev_addr");
}

void SimulatedDevice::setBluetooth(bool on) const {
    switchFile("tmp/btdev_addr", on);
    switchFile("tmp/bluetooth_ready", on);
}

bool SimulatedDevice::headphones() const {
    return has("dev/dsp1");
}

void SimulatedDevice::setHeadphones(bool on) const {
    switchFile("dev/dsp1", on);
}

static std::regex settingPattern(const std::string& key) {
    return std::regex("\"" + key + R"("\s*:\s*("[^"]*"|[-+.0-9eE]+))");
}

std::string SimulatedDevice::setting(const std::string& key) const {
    const std::string text = read(sSettings);
    std::smatch found;
    return std::regex_search(text, found, settingPattern(key)) ? found[1].str() : "";
}

/// Changes this one value, and nothing else that its owner may have written there.
bool SimulatedDevice::setSetting(const std::string& key, const std::string& json) const {
    std::string text = read(sSettings);
    text.erase(text.find_last_not_of('\n') + 1);
    const size_t brace = text.find_first_not_of(" \t\n\r\f\v");
    const std::string item = "\"" + key + "\": " + json;
    std::smatch found;
    if (std::regex_search(text, found, settingPattern(key)))
        text = found.prefix().str() + item + found.suffix().str();
    else if (brace == std::string::npos || text[brace] != '{')
        return false;
    else if (std::regex_match(text, std::regex(R"(\s*\{\s*\}\s*)")))
        text = "{ " + item + " }";
    else
        text = "{ " + item + "," + text.substr(brace + 1);
    put(sSettings, text + "\n");
    return true;
}

std::string SimulatedDevice::language() const {
    const std::string quoted = setting("language");
    return quoted.size() >= 2 && quoted.front() == '"' ? quoted.substr(1, quoted.size() - 2) : "";
}

bool SimulatedDevice::setLanguage(const std::string& file) const {
    return setSetting("language", "\"" + file + "\"");
}

bool SimulatedDevice::swapped() const {
    return atoi(setting("bconfirm").c_str()) != 0;
}

bool SimulatedDevice::setSwapped(bool on) const {
    return setSetting("bconfirm", on ? "1" : "0");
}

bool SimulatedDevice::rotated() const {
    return read(sRotation).rfind('1', 0) == 0;
}

void SimulatedDevice::setRotated(bool on) const {
    put(sRotation, on ? "1\n" : "0\n");
}

} // namespace navora
