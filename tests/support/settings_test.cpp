#include "support/settings_test.h"

#include "system/current_language.h"
#include "system/features.h"
#include "system/language.h"
#include "system/system_state.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

const std::vector<std::string> notNumbers = {R"("1")", "true", "false", "null", "[1]", R"({"vol": 1})"};
const std::vector<std::string> notStrings = {"1", "true", "false", "null", R"(["x"])", R"({"vol": "x"})"};

void SettingsTest::SetUp() {
    KestroTest::SetUp();
    const char* const locale = getenv("LANG");
    mLocale = locale ? locale : "C";
    fs::create_directories(onDevice("/mnt/UDISK"));
    forgetSettings();
}

void SettingsTest::TearDown() {
    fs::remove_all(onDevice("/mnt"));
    forgetSettings();
    setenv("LANG", mLocale.c_str(), 1);
    KestroTest::TearDown();
}

void SettingsTest::forgetSettings() const {
    setSettingsJournal(false);
    setSystemLanguage("");
    gLangTable.clear();
    gDefaultStringList.resize(8);
    loadSystemState(&gTestHost, nullptr); // there is no file: everything becomes its default
    const std::string features = onDevice("/mnt/SDCARD/features.json");
    writeFile(features, R"({"bluetooth": 0, "suspend": 1, "battemp": 0})");
    loadSystemFunction();
    fs::remove(features);
    gTestHost = {};
}

void SettingsTest::writeState(const std::string& json) const {
    fs::remove(statePath());
    writeFile(statePath(), json);
}

void SettingsTest::load(const std::string& json) const {
    writeState(json);
    loadSystemState(&gTestHost, nullptr);
}

void SettingsTest::loadKey(const std::string& key, const std::string& value) const {
    load("{\"" + key + "\": " + value + "}");
}
