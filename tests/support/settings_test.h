#pragma once

#include "support/kestro_test.h"

#include <string>
#include <vector>

/// A test of the device's settings. It begins and ends with what the library holds at load: no language, no
/// languages read, default levels and flags, no journal. The folder of the settings file is there, the file
/// is not; the host's table is empty and unrecorded.
class SettingsTest : public KestroTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// The settings file inside this test's device root.
    std::string statePath() const { return onDevice("/mnt/UDISK/system.json"); }
    /// Writes it as a new file: some file systems wait for the disk when a file is emptied and written.
    void writeState(const std::string& json) const;
    std::string readState() const { return readFile(statePath()); }

    /// Writes the settings file and loads it into gTestHost.
    void load(const std::string& json) const;

    /// The same with a file of this one key. `value` is JSON.
    void loadKey(const std::string& key, const std::string& value) const;

private:
    std::string mLocale;

    void forgetSettings() const;
};

/// JSON values that are not numbers.
extern const std::vector<std::string> notNumbers;

/// JSON values that are not strings.
extern const std::vector<std::string> notStrings;
