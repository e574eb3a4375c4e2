#include "end_to_end/golden.h"
#include "end_to_end/navora_run.h"
#include "navora/scripted_input.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <tuple>

namespace fs = std::filesystem;

namespace {

struct Page {
    const char* name;
    const char* keys; // that lead to it from the page before
};

} // namespace

static constexpr Page sPages[] = {
    {"home", ""},
    {"games", "a,down,down,down"},
    {"game-menu", "x"},
    {"details", "down,a,a"}, // which makes it a favourite on the way
    {"message", "b,down,down,down,down,a"},
    {"folder", "a,up,up,up,up,up,up,up,a,down"},
    {"favourites", "b,b,down,a"},
    {"recents", "b,down,a"},
    {"question", "x,up,a"},
    {"search", "b,b,r,right,a"},
    {"search-found", "right,right,right,right,right"},
    {"settings", "menu,down,down,a"},
    {"settings-display", "down,down,a"},
    {"settings-sound", "b,down,a"},
    {"settings-clock", "b,down,a"},
    {"settings-device", "b,down,a"},
    {"about", "b,down,a"},
    {"settings-end", "b"},
    {"simulator", "f1"},
};

/// All pages in one run, in a language, upright or on a display that is mounted on its side.
class NavoraTourTest : public NavoraTest,
                       public ::testing::WithParamInterface<std::tuple<std::string, bool>> {
protected:
    static constexpr SDL_Rect sVersion{560, 176, 680, 48};
    static constexpr SDL_Rect sFreeSpace{560, 388, 680, 48};
    static constexpr SDL_Rect sRotation{1000, 538, 220, 38}; // what the simulator says about it

    NavoraTourTest() {
        const std::string init = NAVORA_SOURCES "/tools/device --root " + mDevice.path() + " init";
        EXPECT_EQ(system(init.c_str()), 0);
        mDevice.addFolder("mnt/UDISK/navora");
        mDevice.addFile("mnt/UDISK/navora/navora.json", R"({"programs": {"rom": "star-pilot-emulator"}})");
        mDevice.addFile("mnt/UDISK/system.json", R"({"timezone": "UTC"})");
        fs::copy(NAVORA_SOURCES "/assets/sample", mFolder.path("Games"), fs::copy_options::recursive);
        mFolder.addFile("Games/Star Pilot.rom");
        for (const auto& entry : fs::recursive_directory_iterator(mFolder.path("Games")))
            setTime(entry.path());
    }

    static void setTime(const std::string& path) {
        const timespec when{1767323045, 0}; // 2026-01-02 03:04:05
        const timespec times[]{when, when};
        EXPECT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0) << path;
    }

    /// The pages in their order.
    std::vector<Picture> tour(const std::vector<std::string>& options) {
        std::string keys; // none lead to the first page
        for (size_t i = 1; i < std::size(sPages); ++i)
            keys += std::string(i == 1 ? "" : ",") + navora::pictureKey + "," + sPages[i].keys;
        const std::string file = mResults.path("tour.bmp");
        std::vector<std::string> arguments{"--shot", file, "--keys", keys, "--device-root", mDevice.path()};
        arguments.insert(arguments.end(), options.begin(), options.end());
        arguments.push_back(mFolder.path("Games"));
        const Outcome run = runNavora(arguments);
        EXPECT_EQ(run.exitCode, 0);
        EXPECT_EQ(run.errors, "");
        std::vector<Picture> pages;
        for (size_t i = 1; i < std::size(sPages); ++i)
            pages.push_back(readPicture(mResults.path("tour-" + std::to_string(i) + ".bmp")));
        pages.push_back(readPicture(file));
        return pages;
    }

    /// Without what is different at another time or on another machine.
    static Picture lasting(const Page& page, const Picture& picture) {
        Picture rest = picture.without(layout::clock);
        if (page.name == std::string("about"))
            rest = rest.without(sVersion).without(sFreeSpace);
        if (page.name == std::string("simulator"))
            rest = rest.without(sRotation);
        return rest;
    }

    /// A page from a display that is mounted on its side, where the first row lies beyond the edge: that one
    /// is taken from `page`.
    static Picture backInPlace(const Picture& rotated, const Picture& page) {
        Picture result = page;
        std::copy(rotated.pixels.begin(), rotated.pixels.end() - page.width,
                  result.pixels.begin() + page.width);
        return result;
    }

    SampleFolder mDevice;
};

TEST_P(NavoraTourTest, EveryPageLooksAsItDid) {
    const auto& [language, rotated] = GetParam();
    std::vector<std::string> options{"--lang", language + ".lang"};
    if (rotated)
        options.emplace_back("--rotate");
    const std::vector<Picture> pages = tour(options);
    for (size_t i = 0; i < pages.size(); ++i) {
        const Page& page = sPages[i];
        const std::string name = "navora-" + std::string(page.name) + "-" + language;
        ASSERT_EQ(pages[i].width, 1280) << name;
        ASSERT_EQ(pages[i].height, 720) << name;
        if (!rotated) {
            const Picture got = lasting(page, pages[i]);
            expectSamePicture(name, goldenPicture(name, got), got);
            continue;
        }
        const Picture wanted = readPicture(NAVORA_GOLDEN "/" + name + ".png");
        ASSERT_EQ(wanted.height, 720) << name;
        expectSamePicture(name + "-rotated", lasting(page, wanted),
                          lasting(page, backInPlace(pages[i], wanted)));
    }
}

INSTANTIATE_TEST_SUITE_P(Navora, NavoraTourTest,
                         ::testing::Combine(::testing::Values("en", "ch"), ::testing::Bool()),
                         [](const auto& test) {
                             return std::get<0>(test.param) +
                                    (std::get<1>(test.param) ? "Rotated" : "Upright");
                         });
