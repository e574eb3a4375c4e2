#pragma once

#include "support/settings_test.h"

#include <string>
#include <utility>
#include <vector>

/// The keys of a settings file and their values as JSON, in order.
using SettingPairs = std::vector<std::pair<std::string, std::string>>;

/// A test of saving the settings: every setting has a value of its own at its start.
class SavedSettingsTest : public SettingsTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// The file after a save.
    std::string saved(const char* theme = nullptr) const;

    /// The whole file for what SetUp has set, with the theme "/themes/dark/".
    static SettingPairs everything();

    static SettingPairs without(const SettingPairs& pairs, const std::string& key);

    /// The file's text for these keys and values, as cJSON formats it.
    static std::string formatted(const SettingPairs& pairs);
};
