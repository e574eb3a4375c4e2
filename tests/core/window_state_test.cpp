#include "core/window_state.h"
#include "support/kestro_test.h"
#include "support/recorded_window.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

/// The file of a stack of one window with title 0 and type 0.
static const std::string onePlainWindow = "{\n"
                                          "\t\"list\":\t[{\n"
                                          "\t\t\t\"title\":\t0,\n"
                                          "\t\t\t\"type\":\t0\n"
                                          "\t\t}]\n"
                                          "}";

class WindowStateTest : public KestroTest {
protected:
    void TearDown() override {
        for (KestroWindow* window : windows)
            delete window;
        KestroTest::TearDown();
    }

    RecordedWindow* add(int titleId, int type) {
        auto* const window = new RecordedWindow(calls, "w", type);
        window->titleId = titleId;
        windows.push_back(window);
        return window;
    }

    static std::string saving(const KestroWindow* window) {
        char line[64];
        snprintf(line, sizeof line, "save state for window %p\n", static_cast<const void*>(window));
        return line;
    }

    WindowLog calls;
    std::vector<KestroWindow*> windows;
};

TEST_F(WindowStateTest, WritesTitleAndTypeOfEveryWindowFromTheBottomUp) {
    const KestroWindow* const below = add(3, 101);
    const KestroWindow* const above = add(-1, -2);
    saveWindowsState(windows, "state.json");
    const std::string text = "{\n"
                             "\t\"list\":\t[{\n"
                             "\t\t\t\"title\":\t3,\n"
                             "\t\t\t\"type\":\t101\n"
                             "\t\t}, {\n"
                             "\t\t\t\"title\":\t-1,\n"
                             "\t\t\t\"type\":\t-2\n"
                             "\t\t}]\n"
                             "}";
    EXPECT_EQ(readFile("state.json"), text);
    EXPECT_EQ(takeLog(), "2 wins need to be saved\n" + saving(below) + saving(above) + "save " + text + "\n");
}

TEST_F(WindowStateTest, WindowsAddTheirOwnMembersAfterThese) {
    add(0, 1)->onSave = [](cJSON* obj) {
        cJSON_AddStringToObject(obj, "path", "/games/a \"b\"");
        cJSON_AddNumberToObject(obj, "row", 17);
    };
    saveWindowsState(windows, "state.json");
    takeLog();
    EXPECT_EQ(readFile("state.json"), "{\n"
                                      "\t\"list\":\t[{\n"
                                      "\t\t\t\"title\":\t0,\n"
                                      "\t\t\t\"type\":\t1,\n"
                                      "\t\t\t\"path\":\t\"/games/a \\\"b\\\"\",\n"
                                      "\t\t\t\"row\":\t17\n"
                                      "\t\t}]\n"
                                      "}");
}

TEST_F(WindowStateTest, AsksEveryWindowOnceAndNothingElse) {
    add(0, 0);
    add(0, 0);
    saveWindowsState(windows, "state.json");
    takeLog();
    EXPECT_THAT(calls, testing::ElementsAre("w.saveState", "w.saveState"));
    EXPECT_EQ(windows.size(), 2u);
}

TEST_F(WindowStateTest, WindowSeesItsTitleAndTypeInTheEntry) {
    int title = 0;
    int type = 0;
    add(5, 8)->onSave = [&](cJSON* obj) {
        title = cJSON_GetObjectItemCaseSensitive(obj, "title")->valueint;
        type = cJSON_GetObjectItemCaseSensitive(obj, "type")->valueint;
    };
    saveWindowsState(windows, "state.json");
    takeLog();
    EXPECT_EQ(title, 5);
    EXPECT_EQ(type, 8);
}

TEST_F(WindowStateTest, EmptyStackLeavesTheFileUntouched) {
    writeFile("state.json", "old");
    saveWindowsState(windows, "state.json");
    saveWindowsState(windows, "new.json");
    EXPECT_EQ(readFile("state.json"), "old");
    EXPECT_FALSE(std::filesystem::exists("new.json"));
    EXPECT_EQ(takeLog(), "");
}

TEST_F(WindowStateTest, ReplacesALongerFile) {
    writeFile("state.json", std::string(5000, 'x'));
    add(0, 0);
    saveWindowsState(windows, "state.json");
    takeLog();
    EXPECT_EQ(readFile("state.json"), onePlainWindow);
}

TEST_F(WindowStateTest, FileThatCannotBeOpenedIsPassedOverSilently) {
    add(0, 0);
    for (const char* path : {"missing/state.json", ".", ""}) {
        saveWindowsState(windows, path);
        EXPECT_EQ(takeLog(), "1 wins need to be saved\n") << path;
    }
    EXPECT_TRUE(calls.empty());
}

TEST_F(WindowStateTest, NullPathIsPassedOverSilently) {
    add(0, 0);
    saveWindowsState(windows, nullptr);
    EXPECT_EQ(takeLog(), "1 wins need to be saved\n");
}

TEST_F(WindowStateTest, NullWindowIsLeftOut) {
    const KestroWindow* const window = add(0, 0);
    windows.push_back(nullptr);
    saveWindowsState(windows, "state.json");
    EXPECT_THAT(takeLog(), testing::StartsWith("2 wins need to be saved\n" + saving(window) + "save {"));
    EXPECT_EQ(readFile("state.json"), onePlainWindow);
}

/// Memory for cJSON that runs out after some blocks, and knows how many are still in use.
struct ScarceMemory {
    static inline int left = 0;
    static inline int inUse = 0;

    explicit ScarceMemory(int blocks) {
        left = blocks;
        inUse = 0;
        cJSON_Hooks hooks{take, give};
        cJSON_InitHooks(&hooks);
    }
    ~ScarceMemory() { cJSON_InitHooks(nullptr); }
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    static void* take(size_t size) {
        if (left-- <= 0)
            return nullptr;
        ++inUse;
        return malloc(size);
    }
    static void give(void* block) {
        inUse -= block != nullptr;
        free(block);
    }
};

static long openFiles() {
    const auto files = std::filesystem::directory_iterator("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

TEST_F(WindowStateTest, WithoutMemoryForTheTreeTheFileIsLeftEmpty) {
    add(0, 0);
    for (const int blocks : {0, 1, 2}) { // the object, the array, the array's name
        writeFile("state.json", "old");
        const ScarceMemory memory(blocks);
        saveWindowsState(windows, "state.json");
        EXPECT_EQ(takeLog(), "1 wins need to be saved\n") << blocks;
        EXPECT_EQ(readFile("state.json"), "") << blocks;
    }
    EXPECT_TRUE(calls.empty());
}

TEST_F(WindowStateTest, WithoutMemoryForTheTextTheFileIsLeftEmpty) {
    const KestroWindow* const window = add(0, 0);
    int blocks = 0;
    std::string log;
    do { // the first amount that is enough for the tree leaves none for the text
        const ScarceMemory memory(++blocks);
        saveWindowsState(windows, "state.json");
        log = takeLog();
    } while (calls.empty());
    while (true) {
        const ScarceMemory memory(++blocks);
        saveWindowsState(windows, "state.json");
        log = takeLog();
        if (log.find("save {") != std::string::npos)
            break;
        EXPECT_EQ(log, "1 wins need to be saved\n" + saving(window));
        EXPECT_EQ(readFile("state.json"), "");
    }
    EXPECT_EQ(readFile("state.json"), onePlainWindow);
}

TEST_F(WindowStateTest, WhereverMemoryEndsNothingStaysBehind) {
    add(0, 0);
    add(1, 1);
    const long before = openFiles();
    for (int blocks = 0; blocks < 40; ++blocks) {
        const ScarceMemory memory(blocks);
        saveWindowsState(windows, "state.json");
        EXPECT_EQ(ScarceMemory::inUse, 0) << blocks;
        EXPECT_EQ(openFiles(), before) << blocks;
    }
    EXPECT_THAT(takeLog(), testing::HasSubstr("save {"));
}
