#include "core/frame_rate.h"
#include "core/window_stack.h"
#include "hostkit/session.h"
#include "navora/clock.h"
#include "navora/device_panel.h"
#include "navora/device_root.h"
#include "navora/game_rows.h"
#include "navora/home_page.h"
#include "navora/options.h"
#include "navora/place.h"
#include "navora/program.h"
#include "navora/run_folder.h"
#include "navora/wifi_status.h"
#include "navora/words.h"

#include <cstdio>

using namespace navora;

enum ExitCode { exitDone = 0, exitFailed = 1, exitUsage = 2 };

static hostkit::SessionOptions sessionOptions(const Options& options) {
    hostkit::SessionOptions session;
    session.rotate = options.rotate;
    session.hidden = !options.shot.empty();
    session.theme = options.theme;
    session.language = options.language;
    return session;
}

/// `device` is the folder of a simulated one, "" for none.
static bool runLauncher(const Options& options, const std::string& device, hostkit::Session& screen) {
    applyTimeZone();
    const bool interactive = options.shot.empty();
    const WifiStatus wifi(interactive);
    const DevicePanel panel(device, options.devicePanel);
    startPrograms();
    startPlace(interactive);
    ScriptedInput script(options.keys, options.shot);
    Shell shell{script};
    startGameRows(shell);
    std::vector<KestroWindow*> windows;
    if (options.keysGiven)
        windows = {new HomePage(shell, options.folder)};
    else
        windows = windowsAsKept(shell, options.folder);
    runWindows(windows);
    while (programWaits() && runWaitingProgram(screen, shell)) {
        windows = windowsAsKept(shell, options.folder);
        runWindows(windows);
    }
    return screen.isOpen() && !script.shotFailed();
}

static bool run(Options options) {
    if (!enterRunFolder(options))
        return false;
    const std::string device = useDeviceRoot(options.deviceRoot);
    if (options.devicePanel && device.empty())
        throw UsageError("--device-panel needs --device-root");
    const bool interactive = options.shot.empty();
    setKestroWindowFps(interactive ? 30 : 1000, interactive ? 60 : 1000);
    addWords();
    hostkit::Session session(sessionOptions(options));
    if (session.isOpen())
        return runLauncher(options, device, session);
    fprintf(stderr, "navora: %s%s\n", session.problem().c_str(),
            session.lacksDisplay() ? "; --shot FILE.png needs none" : "");
    return false;
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
