#include "core/file_util.h"
#include "core/input.h"
#include "core/log.h"
#include "core/window_state.h"
#include "gfx/image.h"
#include "gfx/screen.h"
#include "support/child_process.h"
#include "support/input_test.h"
#include "support/opened_paths.h"
#include "support/recorded_window.h"
#include "support/system_log.h"

#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

/// Which files the library looks at: on the device, whose root is not set, exactly the device's own.
class DeviceSeamTest : public InputTest {
protected:
    std::vector<std::string> pathsOf(const std::function<void()>& body) {
        OpenedPaths opened;
        body();
        return opened.take();
    }

    /// The paths that initLogger opens, each on a line, after the number of the process; another root may
    /// be set for it.
    std::string pathsOfInitLogger(const char* root) {
        const ChildResult child = inChild([&](int report) {
            noteSystemLogIn(open("/dev/null", O_WRONLY));
            if (root)
                setenv("KESTRO_DEVICE_ROOT", root, 1);
            else
                unsetenv("KESTRO_DEVICE_ROOT");
            OpenedPaths opened;
            initLogger(1);
            const std::string own = "/proc/" + std::to_string(getpid()) + "/comm";
            for (std::string path : opened.take()) {
                const size_t at = path.find(own);
                writeTo(report, at == path.npos ? path : path.replace(at, own.size(), "/proc/<own>/comm"));
                writeTo(report, "\n");
            }
        });
        EXPECT_EQ(child.exitCode, 0);
        return child.report;
    }
};

TEST_F(DeviceSeamTest, WithoutARootTheMarkersAreTheDevicesOwn) {
    unsetenv("KESTRO_DEVICE_ROOT");
    push(keyUp(SDLK_SPACE));
    EXPECT_THAT(pathsOf([] { wait_event(nullptr); }),
                testing::ElementsAre("/tmp/kestro_inputd/grab", "/tmp/osdd_show_up"));
}

TEST_F(DeviceSeamTest, WithoutAnEventOnlyTheGrabMarkerIsLookedAt) {
    unsetenv("KESTRO_DEVICE_ROOT");
    EXPECT_THAT(pathsOf([] { wait_event(nullptr); }), testing::ElementsAre("/tmp/kestro_inputd/grab"));
}

TEST_F(DeviceSeamTest, WithARootTheMarkersAreInsideIt) {
    push(keyUp(SDLK_SPACE));
    EXPECT_THAT(pathsOf([] { wait_event(nullptr); }),
                testing::ElementsAre(onDevice("/tmp/kestro_inputd/grab"), onDevice("/tmp/osdd_show_up")));
}

TEST_F(DeviceSeamTest, EmptyRootIsNone) {
    setenv("KESTRO_DEVICE_ROOT", "", 1);
    EXPECT_THAT(pathsOf([] { wait_event(nullptr); }), testing::ElementsAre("/tmp/kestro_inputd/grab"));
}

TEST_F(DeviceSeamTest, RootIsReadAtEachCall) {
    for (const char* root : {"/first", "/second"}) {
        setenv("KESTRO_DEVICE_ROOT", root, 1);
        EXPECT_THAT(pathsOf([] { wait_event(nullptr); }),
                    testing::ElementsAre(root + std::string("/tmp/kestro_inputd/grab")));
    }
}

TEST_F(DeviceSeamTest, RootThatIsTooLongHasNoFiles) {
    setenv("KESTRO_DEVICE_ROOT", std::string(PATH_MAX, 'r').c_str(), 1);
    EXPECT_EQ(give(keyUp(SDLK_SPACE)), 1);
}

TEST_F(DeviceSeamTest, WithoutARootTheProcessNameIsTheSystems) {
    EXPECT_EQ(pathsOfInitLogger(nullptr), "/proc/<own>/comm\n");
}

TEST_F(DeviceSeamTest, WithARootTheProcessNameIsInsideIt) {
    EXPECT_EQ(pathsOfInitLogger("/device"), "/device/proc/<own>/comm\n");
}

TEST_F(DeviceSeamTest, RealProcessNameIsTheSystemLogsName) {
    const ChildResult child = inChild([](int report) {
        unsetenv("KESTRO_DEVICE_ROOT");
        writeFile("/proc/self/comm", "a test");
        noteSystemLogIn(report);
        initLogger(1);
    });
    EXPECT_EQ(child.report, "openlog [a test] option 1 facility 0\ncloselog\n");
}

TEST_F(DeviceSeamTest, PathsFromDataAreUntouched) {
    const std::string absolute = folder() + "/state.json";
    WindowLog calls;
    RecordedWindow window(calls, "a");
    std::vector<KestroWindow*> windows{&window};
    EXPECT_THAT(pathsOf([&] { saveWindowsState(windows, absolute.c_str()); }),
                testing::ElementsAre(absolute));
    EXPECT_THAT(pathsOf([&] { dumpToFile("relative", "ab", 2); }), testing::ElementsAre("relative"));
    EXPECT_THAT(pathsOf([&] { fileWriteInt(absolute.c_str(), 1); }), testing::ElementsAre(absolute));
    char buffer[100];
    EXPECT_THAT(pathsOf([&] { fileToMem(absolute.c_str(), buffer); }), testing::ElementsAre(absolute));
    takeLog();
}

TEST_F(DeviceSeamTest, PicturesAreLookedForWhereTheyAre) {
    using testing::AllOf;
    using testing::Each;
    ASSERT_TRUE(ScreenInit(64, 64, 32, 0)); // without a screen no picture is looked for
    const std::string absolute = folder() + "/missing.png";
    EXPECT_THAT(pathsOf([&] { LoadKestroSurface(nullptr, nullptr, absolute.c_str()); }),
                AllOf(testing::SizeIs(testing::Ge(1u)), Each(absolute)));
    const std::vector<std::string> paths = pathsOf([] { LoadKestroSurface("theme/", "./", "missing.png"); });
    EXPECT_THAT(paths, testing::IsSupersetOf({"theme/missing.png", "./missing.png"}));
    EXPECT_THAT(paths, Each(testing::AnyOf("theme/missing.png", "./missing.png")));
    ScreenUninit();
    SDL_Quit();
    takeLog();
}
