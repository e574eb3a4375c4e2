#pragma once

#include "core/window.h"
#include "menu/text_menu.h"
#include "support/screen_test.h"

#include <memory>
#include <string>
#include <vector>

/// A page of a launcher: background, bars, and a list between them.
class ListedPage : public KestroWindow {
public:
    ListedPage(std::string title, const std::vector<std::string>& rows);

    int eventHandling() override { return 1003; }
    int draw() override;
    void quit() override {}
    void init() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }
    void update() override {}
    const char* getTitle() override { return mTitle.c_str(); }

private:
    std::string mTitle;
    TextMenu mList;
};

/// A test of pictures of 1280 x 720 with the theme and the languages that ship, in English ("en") and in
/// Chinese ("ch"). The device has 76 % of its battery, sound, good Wi-Fi and a Bluetooth headphone.
class ThemePictureTest : public ScreenTest, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Opens the screen anew, with the skin; turned by 90 degrees or not.
    void openThemed(int rotate);

    /// One of two texts, by the language.
    const char* word(const char* english, const char* chinese) const {
        return std::string(GetParam()) == "ch" ? chinese : english;
    }

    /// A page of games.
    std::unique_ptr<ListedPage> gamesPage() const;

    /// Shows `window` over the page, as the loop would, and leaves what it draws to be compared.
    static void showOver(KestroWindow& page, KestroWindow& window);

    void setBattery(int level, bool usb);

    /// Compares the screen with the picture "NAME-LANGUAGE".
    void expectPage(const std::string& name) { expectPicture(name + "-" + GetParam()); }
};
