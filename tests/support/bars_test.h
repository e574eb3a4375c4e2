#pragma once

#include "services/wifi_monitor.h"
#include "support/skinned_test.h"

#include <functional>
#include <string>
#include <vector>

/// A test of the two bars, with every picture of theirs in "./skin": status icons of 33 x 32 pixels, a
/// background that reaches down to y 63, the back arrow (56 x 56), the hints A and B (44 x 44) and MENU (64 x
/// 44). The device is empty: no battery file, no process, no marker, volume 0. The title of a page, the
/// status icons' text and the hints have colours and sizes of their own.
class BarsTest : public SkinnedTest {
protected:
    static constexpr SDL_Color titleColor{1, 1, 1, 255};
    static constexpr SDL_Color levelColor{2, 2, 2, 255};
    static constexpr SDL_Color hintColor{3, 3, 3, 255};
    static constexpr int levelPoints = 26;
    static constexpr int hintPoints = 22;

    /// One of the status icons.
    static constexpr const char* headphone = "icon-bluetooth-headphone";

    /// The names of the status icons.
    static const std::vector<std::string> iconNames;

    void SetUp() override;
    void TearDown() override;

    /// The device's state. A content is the whole file's; a process runs from then on.
    void setBattery(const std::string& content);
    void setStatus(const std::string& content);
    void setUsb(const std::string& content);
    void runProcess(const std::string& command);
    void setMarker(const std::string& path);

    /// Station mode, connected, with this signal strength in dBm.
    void connectWifi(int rssi);

    /// What `draw` draws; its result goes to `result`. Pictures are called by their file names without
    /// ".png"; the background is 'bg'.
    std::vector<std::string> drawn(const std::function<int()>& draw);
    int result = 0;

    /// Takes pictures away from "./skin" and loads the skin again.
    static void removePictures(const std::vector<std::string>& names);
    void reloadSkin();

    /// The line for painting a cell over, for an icon in it, for a picture at its place, and for a text.
    static std::string restored(int x, int y = 19);
    static std::string icon(const std::string& name, int x, int y = 19);
    static std::string picture(const std::string& name, int x, int y, int w, int h);
    static std::string text(TTF_Font* font, const std::string& text, SDL_Color color, int x, int y);

    /// The line for the level of the battery, in a box at x.
    static std::string level(const std::string& shown, int x, int y = 19);

private:
    int mProcesses = 0;
};
