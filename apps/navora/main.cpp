#include "core/frame_rate.h"
#include "core/log.h"
#include "core/window_stack.h"
#include "gfx/screen.h"
#include "navora/game_rows.h"
#include "navora/home_page.h"
#include "navora/host.h"
#include "navora/key_tone.h"
#include "navora/look.h"
#include "navora/options.h"
#include "navora/run_folder.h"
#include "navora/settings.h"
#include "shell/skin.h"
#include "text/pinyin.h"

#include <SDL_image.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

using namespace navora;

enum ExitCode { exitDone = 0, exitFailed = 1, exitUsage = 2 };

static void drawInMemory() {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    SDL_SetHintWithPriority(SDL_HINT_RENDER_DRIVER, "software", SDL_HINT_OVERRIDE);
}

/// A close request, also by a signal, would shut SDL down at once, in the middle of a frame: let the window
/// loop be left instead. The event is for windows that are no pages; the pages leave even while the
/// on-screen display takes all events away.
static int turnQuitIntoCode(void*, SDL_Event* event) {
    if (event->type == SDL_QUIT) {
        leaveLoop();
        *event = {};
        event->type = SDL_USEREVENT;
        event->user.code = loopQuit;
    }
    return 1;
}

static bool openScreen(bool rotate) {
    if (ScreenInit(screenWidth, screenHeight, 32, rotate))
        return true;
    fprintf(stderr, "navora: no accelerated renderer (%s); trying the software renderer\n", SDL_GetError());
    SDL_SetHintWithPriority(SDL_HINT_RENDER_DRIVER, "software", SDL_HINT_OVERRIDE);
    if (ScreenInit(screenWidth, screenHeight, 32, rotate))
        return true;
    fprintf(stderr, "navora: cannot open the screen: %s\n", SDL_GetError());
    return false;
}

/// Without a display, SDL falls back to drawing where nobody sees it: only for who asks for that.
static bool findDisplay() {
    const bool started = SDL_Init(SDL_INIT_VIDEO) == 0;
    if (started && (getenv("SDL_VIDEODRIVER") || strcmp(SDL_GetCurrentVideoDriver(), "offscreen") != 0))
        return true;
    const char* const reason = started ? "neither X nor Wayland" : SDL_GetError();
    fprintf(stderr, "navora: no display (%s); --shot FILE.png needs none\n", reason);
    return false;
}

static bool startLibraries(bool interactive) {
    if (!findDisplay())
        return false;
    SDL_SetEventFilter(turnQuitIntoCode, nullptr);
    if (interactive)
        SDL_InitSubSystem(SDL_INIT_JOYSTICK); // if it fails, there is still the keyboard
    IMG_Init(IMG_INIT_PNG | IMG_INIT_JPG | IMG_INIT_WEBP);
    if (TTF_Init() == 0)
        return true;
    fprintf(stderr, "navora: cannot draw text: %s\n", TTF_GetError());
    return false;
}

static void stopLibraries() {
    closeJoysticks();
    TTF_Quit();
    IMG_Quit();
    SDL_Quit();
}

static bool loadSkin() {
    init_shared_skin();
    if (gListFontTxt)
        return true;
    fprintf(stderr, "navora: cannot open the font: %s\n", TTF_GetError());
    return false;
}

static bool runLauncher(const Options& options) {
    loadSettings(options);
    InitPinYinMap();
    if (!loadSkin())
        return false;
    applyKeyToneVolume();
    ScriptedInput script(options.keys, options.shot, options.rotate);
    Shell shell{script};
    startGameRows(shell);
    std::vector<KestroWindow*> windows{new HomePage(shell, options.folder)};
    runWindows(windows);
    add2PopupList(nullptr); // a window that was still waiting when the loop was left
    return !script.shotFailed();
}

static bool runOnScreen(const Options& options, bool interactive) {
    if (!openScreen(options.rotate))
        return false;
    if (interactive)
        startKeyTone(); // after the screen, as SDL's sound thread reads what opening the screen sets
    const bool done = runLauncher(options);
    stopKeyTone();
    uninit_shared_skin();
    ScreenUninit();
    return done;
}

static bool run(Options options) {
    if (!enterRunFolder(options))
        return false;
    if (!options.deviceRoot.empty())
        setenv("KESTRO_DEVICE_ROOT", options.deviceRoot.c_str(), 1);
    const bool interactive = options.shot.empty();
    initLogger(0);
    if (!interactive)
        drawInMemory();
    setKestroWindowFps(interactive ? 30 : 1000, interactive ? 60 : 1000);
    const bool done = startLibraries(interactive) && runOnScreen(options, interactive);
    stopLibraries();
    return done;
}

int main(int argc, char** argv) {
    try {
        const Options options = parseOptions(argc, argv);
        if (options.help)
            fputs(helpText, stdout);
        else if (options.version)
            puts("navora " NAVORA_VERSION);
        else
            return run(options) ? exitDone : exitFailed;
        return exitDone;
    } catch (const UsageError& error) {
        fprintf(stderr, "navora: %s; navora --help tells more\n", error.what());
        return exitUsage;
    }
}
