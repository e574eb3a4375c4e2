#include "hostkit/session.h"

#include "core/host.h"
#include "core/input.h"
#include "core/window_stack.h"
#include "gfx/screen.h"
#include "hostkit/close_request.h"
#include "hostkit/key_table.h"
#include "hostkit/menu_window.h"
#include "menu/text_menu.h"
#include "shell/skin.h"
#include "support/kestro_test.h"
#include "support/key_events.h"
#include "support/recorded_window.h"
#include "system/current_language.h"
#include "system/language.h"
#include "text/pinyin.h"

#include <SDL.h>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/mman.h>
#include <unistd.h>

using hostkit::Session;
using hostkit::SessionOptions;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

/// Sessions in a working folder with the tests' font, on a device with a settings file.
class SessionTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        std::filesystem::create_symlink(TEST_FONT, "regular.ttf");
        std::filesystem::create_directories(onDevice("/mnt/UDISK"));
        SDL_SetHint(SDL_HINT_RENDER_DRIVER, "software");
    }

    void TearDown() override {
        hostkit::removeKeyTable(hostkit::keyTableName());
        setSystemLanguage("en.lang");
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        SDL_ResetHint(SDL_HINT_RENDER_DRIVER);
        KestroTest::TearDown();
    }

    void writeSettings(const std::string& json) { writeFile(onDevice("/mnt/UDISK/system.json"), json); }
};

/// Where `part` stands in `text`; fails the test if it does not.
static size_t placeOf(const std::string& part, const std::string& text) {
    const size_t place = text.find(part);
    EXPECT_NE(place, std::string::npos) << part << " in\n" << text;
    return place;
}

TEST_F(SessionTest, OpensEverythingInTheLibrarysOrder) {
    writeSettings(R"({"brightness": 3, "bconfirm": 1, "enablekeytone": 1})");
    writeFile("lang/en.lang", "{}");
    const Session session;
    ASSERT_TRUE(session.isOpen()) << session.problem();
    EXPECT_EQ(session.problem(), "");
    const std::string log = takeLog();
    EXPECT_LT(placeOf("ScreenInit 1280x720 32, rotate=0\n", log), placeOf("lang file ./lang/en.lang\n", log));
    EXPECT_LT(placeOf("lang file ./lang/en.lang\n", log), placeOf("open ./regular.ttf\n", log));
    EXPECT_EQ(GetKeyShm(gShmInfo, 1), 3);
    EXPECT_EQ(GetKeyShm(gShmInfo, 19), 1);
    EXPECT_NE(gRenderer, nullptr);
    EXPECT_NE(gListFontTxt, nullptr);
    EXPECT_NE(gKeyChunk, nullptr);
    EXPECT_FALSE(gPinyinMap.empty());
    EXPECT_NE(SDL_WasInit(SDL_INIT_GAMECONTROLLER), 0u);
}

TEST_F(SessionTest, ItsEndClosesEverything) {
    { const Session session; }
    takeLog();
    EXPECT_EQ(gRenderer, nullptr);
    EXPECT_EQ(gListFontTxt, nullptr);
    EXPECT_EQ(gKeyChunk, nullptr);
    EXPECT_EQ(SDL_WasInit(SDL_INIT_EVERYTHING), 0u);
    EXPECT_EQ(TTF_WasInit(), 0);
    EXPECT_EQ(hostkit::gKeyTable.state(), hostkit::KeyTable::State::closed);
}

TEST_F(SessionTest, OneCanFollowAnother) {
    for (int time = 0; time < 3; ++time) {
        const Session session;
        EXPECT_TRUE(session.isOpen()) << session.problem();
        EXPECT_NE(gListFontTxt, nullptr);
    }
    takeLog();
}

TEST_F(SessionTest, TheSettingsChooseLanguageAndTheme) {
    std::filesystem::create_directories("dusk/skin");
    writeSettings(R"({"language": "es.lang", "theme": ")" + folder() + R"(/dusk/"})");
    {
        const Session session;
        EXPECT_STREQ(getSystemLanguage(), "es.lang");
        EXPECT_EQ(gThemePath, folder() + "/dusk/");
    }
    SessionOptions options;
    options.language = "jp.lang";
    options.theme = folder() + "/other";
    {
        const Session session(options);
        EXPECT_STREQ(getSystemLanguage(), "jp.lang");
        EXPECT_EQ(gThemePath, folder() + "/other/");
    }
    takeLog();
}

TEST_F(SessionTest, WithoutSettingsTheThemeIsTheDefault) {
    const Session session;
    EXPECT_STREQ(gThemePath, "./");
    takeLog();
}

TEST_F(SessionTest, TheSettingsJournalIsOn) {
    writeSettings("{\"brightness\"");
    writeFile(onDevice("/mnt/UDISK/system.json.new"), R"({"brightness": 3})"); // what a cut save has left
    const Session session;
    EXPECT_EQ(GetKeyShm(gShmInfo, 1), 3);
    takeLog();
}

TEST_F(SessionTest, OnARotatedDisplayTheScreenLiesOnItsSide) {
    SessionOptions options;
    options.rotate = true;
    const Session session(options);
    EXPECT_THAT(takeLog(), HasSubstr("ScreenInit 1280x720 32, rotate=1\n"));
}

TEST_F(SessionTest, HiddenItTakesNoPadsAndNoSoundAndNeedsNoDisplay) {
    unsetenv("SDL_VIDEODRIVER");
    SDL_ResetHint(SDL_HINT_RENDER_DRIVER);
    SessionOptions options;
    options.hidden = true;
    const Session session(options);
    EXPECT_TRUE(session.isOpen()) << session.problem();
    EXPECT_EQ(gKeyChunk, nullptr);
    EXPECT_EQ(SDL_WasInit(SDL_INIT_GAMECONTROLLER), 0u);
    EXPECT_NE(gRenderer, nullptr);
    takeLog();
}

TEST_F(SessionTest, WithoutADisplayItSaysSo) {
    setenv("SDL_VIDEODRIVER", "nonsense", 1);
    {
        const Session session;
        EXPECT_FALSE(session.isOpen());
        EXPECT_TRUE(session.lacksDisplay());
        EXPECT_THAT(session.problem(), StartsWith("no display ("));
    }
    EXPECT_EQ(takeLog(), "");
}

TEST_F(SessionTest, WithoutAFontItSaysSo) {
    std::filesystem::remove("regular.ttf");
    {
        const Session session;
        EXPECT_FALSE(session.isOpen());
        EXPECT_FALSE(session.lacksDisplay());
        EXPECT_THAT(session.problem(), StartsWith("cannot open the font: "));
        EXPECT_EQ(gKeyChunk, nullptr);
    }
    takeLog();
    EXPECT_EQ(gRenderer, nullptr);
}

TEST_F(SessionTest, ATableThatWasNoneIsLogged) {
    const std::string name = hostkit::keyTableName();
    writeFile("/dev/shm" + name, "something else");
    { const Session session; }
    EXPECT_THAT(takeLog(), HasSubstr("key table " + name + " was none, made anew\n"));
    { const Session session; }
    EXPECT_THAT(takeLog(), Not(HasSubstr("key table")));
}

TEST_F(SessionTest, ATableThatCannotBeSharedIsLoggedAndTheSettingsWorkAllTheSame) {
    const std::string name = hostkit::keyTableName();
    std::filesystem::create_directory("/dev/shm" + name);
    {
        const Session session;
        EXPECT_TRUE(session.isOpen());
        EXPECT_EQ(GetKeyShm(gShmInfo, 0), 14) << "the default volume";
    }
    std::filesystem::remove("/dev/shm" + name);
    EXPECT_THAT(takeLog(), testing::ContainsRegex("key table " + name + ": .*, not shared\n"));
}

TEST_F(SessionTest, ASignalEndsTheLoop) {
    const Session session;
    WindowLog calls;
    auto* const window = new RecordedWindow(calls, "w");
    window->onInput = [] {
        wait_event(nullptr);
        return -1;
    };
    window->onUpdate = [] { raise(SIGTERM); };
    std::vector<KestroWindow*> windows{window};
    takeLog();
    runWindows(windows);
    EXPECT_THAT(takeLog(), HasSubstr("a is 1003, quit navora\n"));
}

TEST_F(SessionTest, AWindowThatStillWaitsAtTheEndIsDestroyed) {
    WindowLog calls;
    {
        const Session session;
        add2PopupList(new RecordedWindow(calls, "w"));
    }
    takeLog();
    EXPECT_THAT(calls, testing::ElementsAre("w.quit", "w.deleted"));
}

class MenuWindowTest : public SessionTest {
protected:
    static hostkit::MenuWindow* newWindow(const char* title, int (*chosen)(void*) = nullptr) {
        auto list = std::make_unique<TextMenu>(nullptr, nullptr, 6, 0);
        for (const char* label : {"One", "Two"})
            list->insertItem(static_cast<TextMenuItemProvider*>(
                new TextMenuItem(label, nullptr, new GeneralAction(chosen, nullptr), true)));
        return new hostkit::MenuWindow(title, std::move(list));
    }

    static void press(int code) {
        SDL_Event event{};
        event.type = SDL_USEREVENT;
        event.user.code = code;
        SDL_PushEvent(&event);
    }
};

TEST_F(MenuWindowTest, ShowsItsTitleAndItsRows) {
    const Session session;
    const std::unique_ptr<hostkit::MenuWindow> window(newWindow("Numbers"));
    EXPECT_STREQ(window->getTitle(), "Numbers");
    window->update();
    window->draw();
    EXPECT_EQ(window->list().getFirstVisible(), 0);
    EXPECT_EQ(window->list().getLastVisible(), 1);
    const std::unique_ptr<KestroSurface> seen(ScreenSnapshot());
    ASSERT_NE(seen, nullptr);
    takeLog();
}

TEST_F(MenuWindowTest, AChoosesAndOtherKeysMoveTheCursor) {
    const Session session;
    static int chosen;
    chosen = 0;
    const std::unique_ptr<hostkit::MenuWindow> window(newWindow("", [](void*) { return ++chosen; }));
    pressCode(6);
    window->eventHandling();
    EXPECT_EQ(window->list().getCursor(), 1);
    pressCode(1);
    window->eventHandling();
    EXPECT_EQ(chosen, 1);
    takeLog();
}

TEST_F(MenuWindowTest, BackClosesItAndTheLastOneEndsTheLoop) {
    const Session session;
    std::vector<KestroWindow*> windows{newWindow("lower"), newWindow("upper")};
    press(2);
    press(2);
    takeLog();
    runWindows(windows);
    const std::string log = takeLog();
    const std::string closed = "a is 1005, popup current window\n";
    EXPECT_THAT(log, HasSubstr(closed + closed + "0 window to free\n"));
}

TEST_F(MenuWindowTest, WithAAndBSwappedAGoesBack) {
    writeSettings(R"({"bconfirm": 1})");
    const Session session;
    std::vector<KestroWindow*> windows{newWindow("only")};
    press(1);
    takeLog();
    runWindows(windows);
    EXPECT_THAT(takeLog(), HasSubstr("a is 1005, popup current window\n"));
}
