#pragma once

#include "end_to_end/picture.h"
#include "end_to_end/process.h"
#include "end_to_end/sample_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// A device of its own for every launcher, so that none reads or writes the settings of this machine.
class OwnDevice {
protected:
    OwnDevice() { mDevice.addFolder("mnt/UDISK"); }

    SampleFolder mDevice;
};

/// The launcher, started. A "--device-root" among `arguments` takes the place of its own device.
/// Without SDL_VIDEODRIVER or DISPLAY in `environment`, it has no display.
class Navora : private OwnDevice, public Process {
public:
    explicit Navora(const std::vector<std::string>& arguments,
                    const std::vector<std::string>& environment = {}, const std::string& folder = "");
};

/// What a run of the launcher left behind.
struct Outcome {
    int exitCode;
    std::string output;
    std::string errors;
};

/// Runs the launcher to its end.
Outcome runNavora(const std::vector<std::string>& arguments, const std::vector<std::string>& environment = {},
                  const std::string& folder = "");

/// Tests that look at the launcher's pages through pictures written by it.
class NavoraTest : public ::testing::Test {
protected:
    /// The page that is shown after `keys`, from the home page on, without the time; also expects that
    /// nothing went wrong.
    Picture shot(const std::string& folder, const std::string& keys = "",
                 const std::vector<std::string>& moreOptions = {});

    /// The same with the time.
    Picture timedShot(const std::string& folder, const std::string& keys,
                      const std::vector<std::string>& moreOptions = {});

    /// A shot from the games page on.
    Picture gamesShot(const std::string& folder, const std::string& keys = "",
                      const std::vector<std::string>& moreOptions = {});

    /// The games page with nothing behind the rows, so that those of different pages can be compared.
    Picture plainGamesShot(const std::string& folder, const std::string& keys = "");

    SampleFolder mFolder;  // to be shown
    SampleFolder mResults; // for pictures
};

/// Where the pages put what the tests look for.
namespace layout {
constexpr SDL_Rect title{0, 0, 900, 80};
constexpr SDL_Rect clock{960, 0, 164, 80}; // without Wi-Fi and the like at the right of it
constexpr SDL_Rect list{0, 80, 1280, 576};
constexpr SDL_Rect thumbnail{940, 220, 300, 300}; // what the picture under the cursor is fitted into
constexpr SDL_Rect details{40, 100, 688, 530};    // the same on the details page
constexpr SDL_Rect facts{776, 100, 464, 200};
constexpr SDL_Rect hints{0, 660, 472, 60};     // those of all pages
constexpr SDL_Rect options{474, 660, 240, 60}; // the hint about the third face button, in English
constexpr SDL_Rect counter{1140, 660, 116, 60};
constexpr int rowHeight = 96;
constexpr int rows = 6;
constexpr int homeRows = 5; // the settings are the last
} // namespace layout

/// The row with the cursor bar, from 0; -1 for none.
int cursorRow(const Picture& page);

/// The part of the list with the name in row `row`, without its number and its icon.
Picture rowText(const Picture& page, int row);

/// The colour in the middle of a rectangle.
uint32_t middle(const Picture& page, const SDL_Rect& rect);
