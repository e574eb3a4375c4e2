#include "core/dialog_window.h"
#include "core/popup_window.h"
#include "core/window_stack.h"
#include "end_to_end/process.h"
#include "gfx/screen.h"
#include "gfx/surface_cache.h"
#include "gfx/text.h"
#include "menu/text_menu.h"
#include "shell/skin.h"
#include "support/plain_window.h"
#include "support/skin_files_test.h"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>

// A host may take down its windows, the skin, the screen and SDL in any order, leave out any of them, and end
// in the middle of the window loop.

namespace {

struct Driver {
    const char* name;
    const char* video;
    const char* renderer;
    bool usesOpenGl;
};

void PrintTo(const Driver& driver, std::ostream* out) {
    *out << driver.name;
}

/// What a host takes down: the windows, the skin, the screen and SDL, each by its letter.
constexpr char parts[] = "wscq";

std::vector<std::string> orders() {
    std::vector<std::string> all{""};
    for (size_t i = 0; i < all.size(); ++i) // which grows meanwhile
        for (const char* part = parts; *part; ++part)
            if (all[i].find(*part) == std::string::npos)
                all.push_back(all[i] + *part);
    return all;
}

/// A page that owns a menu and a picture, and goes to its end when it is asked for input.
class Page : public PlainWindow {
public:
    explicit Page(std::function<void()> end)
        : PlainWindow(-1, 0), mEnd(std::move(end)),
          mMenu(std::make_unique<TextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 4, 0)),
          mPicture(CreateSurface(16, 16)) {
        for (const char* label : {"one", "two", "three"})
            mMenu->insertItem(
                static_cast<TextMenuItemProvider*>(new TextMenuItem(label, nullptr, nullptr, false)));
    }
    int draw() override {
        gBackground->render(nullptr, nullptr, false, nullptr);
        SetRenderTarget(mPicture.get());
        return mMenu->draw();
    }
    int eventHandling() override {
        const std::function<void()> end = mEnd; // as it may delete this page
        end();
        return 0;
    }

private:
    std::function<void()> mEnd;
    std::unique_ptr<TextMenu> mMenu;
    std::unique_ptr<KestroSurface> mPicture;
};

/// Known to the end, so that nobody takes what a host leaves for lost.
std::vector<KestroWindow*>& sWindows = *new std::vector<KestroWindow*>;

class ShutdownDeathTest : public SkinFilesTest, public testing::WithParamInterface<Driver> {
protected:
    void SetUp() override {
        KestroTest::SetUp(); // the screen is opened by the children only
        std::filesystem::create_symlink(TEST_FONT, "regular.ttf");
        writePictures("./", 8);
        for (const char* name : {"bg-list-f", "bg-list-n", "pop-menu", "pop-bg"})
            writePicture("./skin/" + std::string(name) + ".png", 20, 10);
        setenv("SDL_VIDEODRIVER", GetParam().video, 1);
        setenv("SDL_RENDER_DRIVER", GetParam().renderer, 1);
        if (GetParam().usesOpenGl)
            skipLeakCheck();
        if (GetParam().video == std::string("x11"))
            startDisplay();
        if (isCopied())
            open(1);
        takeLog();
    }

    void TearDown() override {
        freeWindows(sWindows);
        uninit_shared_skin();
        ScreenUninit();
        SDL_Quit();
        takeLog(); // the children's lines too
        setenv("SDL_VIDEODRIVER", "dummy", 1);
        setenv("SDL_RENDER_DRIVER", "software", 1);
        unsetenv("DISPLAY");
        KestroTest::TearDown();
    }

    /// Whether everything is opened once and each child ends a copy of it; with a server each opens its own.
    static bool isCopied() { return GetParam().video == std::string("dummy"); }

    /// Of how many orders one is tried. Where a processor is emulated, opening takes a child seconds.
    static size_t ordersToOne() {
        const char* const given = getenv("KESTRO_TEST_ORDERS_TO_ONE");
        return given && !isCopied() ? static_cast<size_t>(std::atoi(given)) : 1;
    }

    static void endAfter(const std::string& order, bool inTheLoop) {
        if (!isCopied())
            open(order.size() % 2);
        const auto takeDown = [order] {
            for (const char part : order)
                takeDownPart(part);
            exit(0);
        };
        sWindows.insert(sWindows.begin(), new Page(takeDown));
        if (!inTheLoop)
            takeDown();
        sWindows.push_back(new Page(takeDown));
        runWindows(sWindows);
    }

private:
    std::unique_ptr<Process> mServer;

    void startDisplay() {
        mServer = std::make_unique<Process>(
            std::vector<std::string>{"Xvfb", "-displayfd", "1", "-screen", "0", "640x480x24", "-noreset"},
            std::vector<std::string>{}, "");
        eventually(
            [this] { return mServer->output().find('\n') != std::string::npos || !mServer->isRunning(); });
        const std::string number = mServer->output();
        ASSERT_FALSE(number.empty()) << mServer->errors();
        setenv("DISPLAY", (":" + number.substr(0, number.find('\n'))).c_str(), 1);
    }

    /// Everything that a host may have open; ends with 7 or 8 where that fails.
    static void open(int rotate) {
        if (SDL_Init(SDL_INIT_VIDEO) != 0 || !ScreenInit(320, 240, 32, rotate))
            exit(7);
        init_shared_skin();
        if (!gListFontTxt || !gBackground)
            exit(8);
        for (int i = 0; i < 101; ++i) {
            const std::string name = "entry " + std::to_string(i);
            DrawString(gListFontSubtxt, {0, 0, 320, 240}, name.c_str(), {9, 9, 9, 255}, 1, false, false);
            gIconCache.put(name, CreateSurface(8, 8));
        }
        for (KestroWindow* window :
             {static_cast<KestroWindow*>(
                  new PopUpWindow(-1, new TextMenu(nullptr, nullptr, 4, 0), "skin/pop-menu.png")),
              static_cast<KestroWindow*>(new DialogWindow("Title", "Text", true, nullptr, nullptr))}) {
            window->init();
            window->draw();
            sWindows.push_back(window);
        }
        ScreenUpdateAndFlip();
    }

    static void takeDownPart(char part) {
        switch (part) {
        case 'w':
            freeWindows(sWindows);
            break;
        case 's':
            uninit_shared_skin();
            break;
        case 'c':
            ScreenUninit();
            break;
        default:
            quitSdl();
        }
    }
};

} // namespace

TEST_P(ShutdownDeathTest, EndsCleanlyInEveryOrder) {
    const char* const silence = GetParam().usesOpenGl ? "" : "^$";
    const std::vector<std::string> all = orders();
    for (const bool inTheLoop : {false, true})
        for (size_t i = inTheLoop ? ordersToOne() / 2 : 0; i < all.size(); i += ordersToOne())
            EXPECT_EXIT(endAfter(all[i], inTheLoop), testing::ExitedWithCode(0), silence)
                << "order \"" << all[i] << (inTheLoop ? "\" in the loop" : "\"");
}

static std::string nameOf(const testing::TestParamInfo<Driver>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Drivers, ShutdownDeathTest,
                         testing::Values(Driver{"Dummy", "dummy", "software", false},
                                         Driver{"X11", "x11", "software", false},
                                         Driver{"AcceleratedOffscreen", "offscreen", "opengl", true},
                                         Driver{"AcceleratedX11", "x11", "opengl", true}),
                         nameOf);
