#pragma once

#include <string>

namespace bench {

/// A screen of 1280 x 720 pixels with the shared skin, in memory: the dummy driver and the software renderer,
/// whatever the environment says. Ends the program with a message where that cannot be. Only one at a time.
class Stage {
public:
    /// `folder` holds "regular.ttf" and "skin" and becomes the working folder.
    explicit Stage(const std::string& folder);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
};

/// The launcher's own folder, with its font and its theme.
std::string runFolder();

/// A new folder with the same font, and row backgrounds of 1260 x 96 opaque pixels; removed at the end of the
/// program.
std::string opaqueSkinFolder();

/// A new, empty folder; removed at the end of the program.
std::string temporaryFolder();

/// Ends the program with a message.
[[noreturn]] void giveUp(const std::string& why);

} // namespace bench
