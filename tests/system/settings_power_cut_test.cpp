#include "support/durability_log.h"
#include "support/settings_test.h"
#include "system/system_state.h"

#include <filesystem>
#include <functional>
#include <map>

namespace fs = std::filesystem;

// The journal's promise: a power cut leaves the old settings or the new ones.

namespace {

/// The files of the settings' folder by name.
using Files = std::map<std::string, std::string>;

class PowerCutTest : public SettingsTest {
protected:
    void SetUp() override {
        SettingsTest::SetUp();
        setSettingsJournal(true);
    }

    /// The volumes that a device finds after power cuts in the middle of `save`. What is not synced yet may
    /// then be there whole, cut at any place, or empty.
    std::vector<int> volumesAfterCutsIn(const std::function<void()>& save) {
        std::vector<Files> moments;
        {
            DurabilityLog log([&](const std::string& step) { addMoments(moments, step); });
            save();
        }
        std::vector<int> volumes;
        for (const Files& files : moments)
            volumes.push_back(volumeIn(files));
        takeLog();
        return volumes;
    }

    void saveVolume(int volume) const {
        gTestHost.table[0] = volume;
        saveSystemState(&gTestHost, nullptr);
    }

    void writeCopy(const std::string& json) const { writeFile(statePath() + ".new", json); }

private:
    Files present() const {
        Files files;
        for (const auto& entry : fs::directory_iterator(onDevice("/mnt/UDISK")))
            files[entry.path().filename()] = readFile(entry.path());
        return files;
    }

    void addMoments(std::vector<Files>& moments, const std::string& step) const {
        const Files now = present();
        moments.push_back(now);
        const auto syncing = now.find(step.substr(step.find(' ') + 1));
        if (step.rfind("fsync ", 0) != 0 || syncing == now.end())
            return;
        const std::string whole = syncing->second;
        for (const size_t written : {size_t{0}, size_t{1}, whole.size() / 2, whole.size() - 1}) {
            Files cut = now;
            cut[syncing->first] = whole.substr(0, written);
            moments.push_back(cut);
        }
    }

    int volumeIn(const Files& files) const {
        fs::remove_all(onDevice("/mnt/UDISK"));
        fs::create_directory(onDevice("/mnt/UDISK"));
        for (const auto& [name, content] : files)
            writeFile(onDevice("/mnt/UDISK/") + name, content);
        gTestHost.table[0] = -99;
        loadSystemState(&gTestHost, nullptr);
        return gTestHost.table[0];
    }
};

} // namespace

using testing::AllOf;
using testing::AnyOf;
using testing::Contains;
using testing::Each;

TEST_F(PowerCutTest, InASaveLeavesTheOldSettingsOrTheNew) {
    saveVolume(3);
    EXPECT_THAT(volumesAfterCutsIn([&] { saveVolume(4); }),
                AllOf(Each(AnyOf(3, 4)), Contains(3), Contains(4)));
}

TEST_F(PowerCutTest, InSavingOneItemLeavesTheOldSettingsOrTheNew) {
    saveVolume(3);
    EXPECT_THAT(volumesAfterCutsIn([] { saveOneItemInSystemState("vol", 4); }),
                AllOf(Each(AnyOf(3, 4)), Contains(3), Contains(4)));
}

TEST_F(PowerCutTest, InTheFirstSaveLeavesTheDefaultsOrTheSettings) {
    EXPECT_THAT(volumesAfterCutsIn([&] { saveVolume(4); }),
                AllOf(Each(AnyOf(14, 4)), Contains(14), Contains(4)));
}

TEST_F(PowerCutTest, InASaveAfterAnotherCutLeavesTheCopyOrTheNewSettings) {
    writeState("{"); // the first cut came while the file was written
    writeCopy(R"({"vol": 3})");
    EXPECT_THAT(volumesAfterCutsIn([&] { saveVolume(4); }), AllOf(Each(AnyOf(3, 4)), Contains(4)));
}

TEST_F(PowerCutTest, InSavingOneItemAfterAnotherCutLeavesTheCopyOrTheNewSettings) {
    writeState("{");
    writeCopy(R"({"vol": 3})");
    EXPECT_THAT(volumesAfterCutsIn([] { saveOneItemInSystemState("vol", 4); }),
                AllOf(Each(AnyOf(3, 4)), Contains(4)));
}
