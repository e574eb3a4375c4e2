#include "core/window_state.h"
#include "support/durability_log.h"
#include "support/failing_json_memory.h"
#include "support/kestro_test.h"
#include "support/recorded_window.h"
#include "system/system_state.h"

#include <filesystem>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>

// The settings' journal also stands behind the window-state file.

namespace fs = std::filesystem;

namespace {

class WindowStateJournalTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        setSettingsJournal(true);
    }
    void TearDown() override {
        setSettingsJournal(false);
        KestroTest::TearDown();
    }

    /// Saves a stack of one window of the kind `type`.
    void save(int type, const char* path = "state.json") {
        std::vector<KestroWindow*> windows{&window};
        window.type = type;
        saveWindowsState(windows, path);
        takeLog();
    }

    /// The kind of the one window that a device would open after a restart; -1 for none.
    static int typeAfterRestart(const char* path = "state.json") {
        const std::unique_ptr<cJSON, void (*)(cJSON*)> state(loadWindowsState(path), cJSON_Delete);
        const cJSON* const list = cJSON_GetObjectItemCaseSensitive(state.get(), "list");
        return list && list->child ? cJSON_GetObjectItemCaseSensitive(list->child, "type")->valueint : -1;
    }

    static constexpr const char* took = "state.json is unusable, use state.json.new\n";

    WindowLog calls;
    RecordedWindow window{calls, "w", 0};
};

} // namespace

TEST_F(WindowStateJournalTest, LoadsWhatWasSaved) {
    for (const bool on : {true, false}) {
        setSettingsJournal(on);
        save(41 + on);
        EXPECT_EQ(typeAfterRestart(), 41 + on);
    }
}

TEST_F(WindowStateJournalTest, SavesTheSameFileAsWithoutTheJournal) {
    writeFile("state.json", std::string(5000, 'x'));
    save(7);
    const std::string with = readFile("state.json");
    setSettingsJournal(false);
    save(7);
    EXPECT_EQ(readFile("state.json"), with);
}

TEST_F(WindowStateJournalTest, TheOldStateStaysUntilTheNewOneIsSafeBesideIt) {
    save(3);
    const std::string old = readFile("state.json");
    std::vector<std::pair<std::string, std::string>> moments;
    DurabilityLog log([&](const std::string&) {
        moments.emplace_back(readFile("state.json"), readFile("state.json.new"));
    });
    save(4);
    const std::string now = readFile("state.json");

    EXPECT_EQ(log.take().front(), "fsync state.json.new");
    using Pair = std::pair<std::string, std::string>;
    EXPECT_EQ(moments, (std::vector<Pair>{{old, now}, {old, now}, {now, now}, {now, now}, {now, ""}}));
    EXPECT_FALSE(fs::exists("state.json.new"));
}

TEST_F(WindowStateJournalTest, LoadTakesTheCopyOfAFileThatWasCut) {
    save(3);
    fs::rename("state.json", "state.json.new");
    for (const char* cut : {"", "{\"list\":", "hello"}) {
        writeFile("state.json", cut);
        EXPECT_EQ(typeAfterRestart(), 3) << cut;
        EXPECT_THAT(takeLog(), testing::EndsWith(took)) << cut;
    }
    fs::remove("state.json");
    EXPECT_EQ(typeAfterRestart(), 3);
    EXPECT_EQ(takeLog(), took);
}

TEST_F(WindowStateJournalTest, OffACopyThatLiesThereIsNotRead) {
    save(3);
    fs::rename("state.json", "state.json.new");
    setSettingsJournal(false);
    EXPECT_EQ(typeAfterRestart(), -1);
}

TEST_F(WindowStateJournalTest, WhenTheCopyCannotBeWrittenTheOldStateStays) {
    save(3);
    const std::string old = readFile("state.json");
    DurabilityLog log;
    log.failSync();
    std::vector<KestroWindow*> windows{&window};
    window.type = 4;
    saveWindowsState(windows, "state.json");
    EXPECT_EQ(readFile("state.json"), old);
    EXPECT_THAT(takeLog(), testing::EndsWith("can not write state.json.new, state.json stays as it is\n"));
}

TEST_F(WindowStateJournalTest, WithoutMemoryTheOldStateStays) {
    save(3);
    const std::string old = readFile("state.json");
    bool failed = true;
    for (int nth = 1; failed; ++nth) {
        const FailingJsonMemory memory(nth);
        save(4);
        failed = memory.failed();
        if (failed && readFile("state.json") != old) {
            EXPECT_THAT(readFile("state.json"), testing::HasSubstr("\"list\"")) << nth;
        }
    }
    EXPECT_EQ(typeAfterRestart(), 4);
}

TEST_F(WindowStateJournalTest, AFileInMemoryNeedsNoCopy) {
    const int memory = memfd_create("state", MFD_CLOEXEC);
    const std::string path = "/proc/self/fd/" + std::to_string(memory);
    save(5, path.c_str());
    EXPECT_EQ(typeAfterRestart(path.c_str()), 5);
    close(memory);
}

TEST_F(WindowStateJournalTest, WhatIsNoWindowStateIsNotLoaded) {
    EXPECT_EQ(loadWindowsState(nullptr), nullptr);
    EXPECT_EQ(loadWindowsState("missing.json"), nullptr);
    for (const char* content :
         {"[]", "{}", "{\"list\": {}}", "{\"list\": 1}", "1", "null", "{\"List\": []}"}) {
        writeFile("state.json", content);
        EXPECT_EQ(loadWindowsState("state.json"), nullptr) << content;
    }
    EXPECT_EQ(takeLog(), "");
}

TEST_F(WindowStateJournalTest, AFileThatIsTooLargeIsRefused) {
    writeFile("state.json", "{\"list\": [" + std::string(131072, ' ') + "]}");
    EXPECT_EQ(loadWindowsState("state.json"), nullptr);
    EXPECT_EQ(takeLog(), "state.json invalid size 131084\n");
}
