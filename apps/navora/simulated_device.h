#pragma once

#include <string>

namespace navora {

/// A folder that stands for a device, made by tools/device, and what happens on it. Files and formats are the
/// same as there: whatever one of the two writes, the other reads. Files that are not there or make no sense
/// read as off, zero or "". Main thread.
class SimulatedDevice {
public:
    enum class Wifi { off, scanning, connecting, connected, hotspot };

    /// `root` is the folder that the library sees as the device.
    explicit SimulatedDevice(std::string root);

    const std::string& root() const { return mRoot; }

    /// In percent.
    int battery() const;
    void setBattery(int percent) const;

    bool charger() const;
    void setCharger(bool on) const;

    Wifi wifi() const;

    /// Bars of signal strength, 1 to 3; 0 unless connected.
    int wifiBars() const;

    /// Connected means with three bars.
    void setWifi(Wifi state) const;

    /// Connects with 1 to 3 bars.
    void connectWifi(int bars) const;

    bool bluetooth() const;
    void setBluetooth(bool on) const;

    bool headphones() const;
    void setHeadphones(bool on) const;

    /// What the settings file says; "" where it names no language.
    std::string language() const;

    /// `file` is a language file such as "ch.lang". Returns whether there are settings to change, like the
    /// next one.
    bool setLanguage(const std::string& file) const;

    bool swapped() const;
    bool setSwapped(bool on) const;

    /// Whether the display is mounted on its side.
    bool rotated() const;
    void setRotated(bool on) const;

    /// Where the settings and the rotation are, for who waits for changes.
    std::string settingsFile() const { return path("mnt/UDISK/system.json"); }
    std::string rotationFile() const { return path("simulator/rotation"); }

private:
    std::string mRoot;

    std::string path(const std::string& name) const { return mRoot + "/" + name; }
    bool has(const std::string& name) const;
    std::string read(const std::string& name) const;
    void put(const std::string& name, const std::string& content) const;
    void switchFile(const std::string& name, bool on) const;
    std::string answer(const std::string& key) const;
    void runProcesses(bool station, bool hotspot) const;
    void answerState(const std::string& state) const;
    void forgetAnswers() const;
    std::string setting(const std::string& key) const;
    bool setSetting(const std::string& key, const std::string& json) const;
};

} // namespace navora
