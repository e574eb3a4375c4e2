#include "hostkit/session.h"

#include "core/host.h"
#include "core/log.h"
#include "gfx/screen.h"
#include "hostkit/close_request.h"
#include "hostkit/key_table.h"
#include "hostkit/key_tone.h"
#include "hostkit/pads.h"
#include "hostkit/settings.h"
#include "hostkit/theme.h"
#include "shell/skin.h"
#include "system/features.h"
#include "system/language.h"
#include "system/system_state.h"
#include "text/pinyin.h"

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_ttf.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace hostkit {

static constexpr int screenWidth = 1280;
static constexpr int screenHeight = 720;

static void drawInSoftware() {
    SDL_SetHintWithPriority(SDL_HINT_RENDER_DRIVER, "software", SDL_HINT_OVERRIDE);
}

/// The table tells by itself what it was; the log says what somebody may wonder about.
static void openTable() {
    if (gShmInfo != &gKeyTable)
        return;
    const KeyTable::State state = gKeyTable.open();
    if (state == KeyTable::State::replaced)
        tprintf("key table %s was none, made anew\n", keyTableName().c_str());
    if (state == KeyTable::State::notShared)
        tprintf("key table %s: %s, not shared\n", keyTableName().c_str(), strerror(gKeyTable.error()));
}

Session::Session(const SessionOptions& options) : mRotate(options.rotate), mHidden(options.hidden) {
    initLogger(options.useSyslog);
    if (!startScreen())
        return;
    openTable();
    loadSettings(options);
    if (!loadSkin())
        return;
    InitPinYinMap();
    startPadsAndSound();
}

Session::~Session() {
    forgetCloseRequest();
    giveUpScreen();
    gKeyTable.close();
}

void Session::giveUpScreen() {
    stopKeyTone();
    uninit_shared_skin();
    ScreenUninit();
    closePads();
    TTF_Quit();
    IMG_Quit();
    SDL_Quit();
}

bool Session::takeBackScreen() {
    if (isOpen() && startScreen() && loadSkin())
        startPadsAndSound();
    return isOpen();
}

bool Session::startScreen() {
    if (mHidden)
        drawInSoftware();
    return startLibraries() && openScreen();
}

void Session::startPadsAndSound() {
    if (mHidden)
        return;
    initJoyStick();
    startKeyTone();
}

bool Session::fail(const std::string& problem) {
    mProblem = problem;
    return false;
}

/// Without a display, SDL falls back to drawing where nobody sees it: only for who asks for that.
bool Session::findDisplay() {
    const bool started = SDL_InitSubSystem(SDL_INIT_VIDEO) == 0;
    if (started && (getenv("SDL_VIDEODRIVER") || strcmp(SDL_GetCurrentVideoDriver(), "offscreen") != 0))
        return true;
    mLacksDisplay = true;
    return fail(std::string("no display (") + (started ? "neither X nor Wayland" : SDL_GetError()) + ")");
}

bool Session::startLibraries() {
    if (mHidden)
        setenv("SDL_VIDEODRIVER", "dummy", 1);
    if (!findDisplay())
        return false;
    watchForCloseRequests();
    IMG_Init(IMG_INIT_PNG | IMG_INIT_JPG | IMG_INIT_WEBP);
    return TTF_Init() == 0 || fail(std::string("cannot draw text: ") + TTF_GetError());
}

bool Session::openScreen() {
    if (ScreenInit(screenWidth, screenHeight, 32, mRotate))
        return true;
    fprintf(stderr, "%s: no accelerated renderer (%s); trying the software renderer\n",
            program_invocation_short_name, SDL_GetError());
    drawInSoftware();
    return ScreenInit(screenWidth, screenHeight, 32, mRotate) ||
           fail(std::string("cannot open the screen: ") + SDL_GetError());
}

void Session::loadSettings(const SessionOptions& options) {
    char* theme = nullptr;
    setSettingsJournal(true);
    loadSystemState(gShmInfo, &theme);
    loadSystemFunction();
    initLang();
    useTheme(theme ? theme : "", options.theme);
    free(theme);
    useLanguageForThisRun(options.language);
}

bool Session::loadSkin() {
    init_shared_skin();
    return gListFontTxt || fail(std::string("cannot open the font: ") + TTF_GetError());
}

} // namespace hostkit
