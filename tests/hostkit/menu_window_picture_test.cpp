#include "hostkit/key_table.h"
#include "hostkit/menu_window.h"
#include "hostkit/theme.h"
#include "menu/text_menu.h"
#include "shell/skin.h"
#include "support/counted_list.h"
#include "support/theme_picture_test.h"

#include <memory>

/// The kit's own window, with the themes that ship.
class MenuWindowPictureTest : public ThemePictureTest {
protected:
    void SetUp() override {
        ThemePictureTest::SetUp();
        hostkit::useTheme("");
    }

    void TearDown() override {
        mWindow.reset();
        hostkit::useTheme("");
        hostkit::gKeyTable.close();
        hostkit::removeKeyTable(hostkit::keyTableName());
        ThemePictureTest::TearDown();
    }

    void makeWindow() {
        auto list = std::make_unique<TextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
        for (const char* row : {word("Apple", "苹果"), word("Bergamot", "香柠檬"), word("Cherry", "樱桃")})
            list->insertItem(
                static_cast<TextMenuItemProvider*>(new TextMenuItem(row, nullptr, nullptr, false)));
        list->setCursor(1);
        mWindow = std::make_unique<hostkit::MenuWindow>(word("Fruit", "水果"), std::move(list));
    }

    /// A frame, as the loop would show it.
    void drawFrame() {
        mWindow->update();
        mWindow->draw();
    }

    std::unique_ptr<hostkit::MenuWindow> mWindow;
};

INSTANTIATE_TEST_SUITE_P(Languages, MenuWindowPictureTest, testing::Values("en", "ch"),
                         [](const auto& given) { return given.param; });

TEST_P(MenuWindowPictureTest, OfAList) {
    makeWindow();
    drawFrame();
    expectPage("menu-window");
}

TEST_P(MenuWindowPictureTest, AfterAChangeOfTheTheme) {
    makeWindow();
    drawFrame();
    hostkit::changeTheme(TEST_ASSETS "/themes/dusk");
    drawFrame();
    expectPage("menu-window-dusk");
}

/// Counts how often its pictures are loaded anew.
class RefreshedList : public CountedList {
public:
    explicit RefreshedList(int& refreshes) : CountedList(1), mRefreshes(refreshes) {}

    void refresh() override { ++mRefreshes; }

private:
    int& mRefreshes;
};

TEST_P(MenuWindowPictureTest, AThemeIsTakenOverOnce) {
    int refreshes = 0;
    mWindow = std::make_unique<hostkit::MenuWindow>("", std::make_unique<RefreshedList>(refreshes));
    drawFrame();
    drawFrame();
    EXPECT_EQ(refreshes, 0);
    hostkit::changeTheme(TEST_ASSETS "/themes/dusk");
    drawFrame();
    drawFrame();
    EXPECT_EQ(refreshes, 1);
}

TEST_P(MenuWindowPictureTest, WithoutASkinItIsDark) {
    makeWindow();
    drawFrame();
    uninit_shared_skin();
    drawFrame();
    EXPECT_EQ(pixel(1279, 719), 0xFF0E131Eu);
    EXPECT_EQ(pixel(60, 40), 0xFF0E131Eu) << "no title";
}
