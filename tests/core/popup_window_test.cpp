#include "core/popup_window.h"

#include "menu/text_menu.h"
#include "shell/skin.h"
#include "support/drawing_log.h"
#include "support/input_events.h"
#include "support/key_events.h"
#include "support/noted_surface.h"
#include "support/open_dialog.h"
#include "support/open_text_menu.h"
#include "support/recorded_action.h"
#include "support/skinned_test.h"
#include "support/texture_names.h"
#include "support/virtual_slot.h"

#include <functional>
#include <memory>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::is_constructible_v<PopUpWindow, int, TextMenuDrawer*, const char*>);
static_assert(!std::is_copy_constructible_v<PopUpWindow>);

/// A list that answers input with one code, and notes when it is drawn and deleted.
class AnsweringMenu : public OpenTextMenu {
public:
    explicit AnsweringMenu(std::vector<std::string>& calls, int code = 0)
        : OpenTextMenu(nullptr, nullptr, 6, 0), answer(code), mCalls(calls) {}
    ~AnsweringMenu() override { mCalls.emplace_back("deleted"); }

    int answer;
    std::function<void()> onInput;

    int eventHandling() override {
        const int code = answer;
        if (const auto act = onInput)
            act();
        return code;
    }
    int draw() override {
        mCalls.emplace_back("drawn");
        return 5;
    }

private:
    std::vector<std::string>& mCalls;
};

/// As a host's class: a further virtual function comes right after the library's.
class NextPopUp : public PopUpWindow {
public:
    using PopUpWindow::PopUpWindow;
    virtual void next() {}
};

class PopUpWindowTest : public SkinnedTest {
protected:
    std::vector<std::string> calls; // of the list
    std::unique_ptr<OpenPopUp> popup;

    void TearDown() override {
        popup.reset();
        SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
        SkinnedTest::TearDown();
    }

    void open(TextMenuDrawer* menu, const char* background = nullptr) {
        popup = std::make_unique<OpenPopUp>(-1, menu, background);
        takeLog();
    }

    AnsweringMenu* openAnswering(int code, const char* background = nullptr) {
        auto* const menu = new AnsweringMenu(calls, code);
        open(menu, background);
        return menu;
    }

    int press(int code) {
        pressCode(code);
        return popup->eventHandling();
    }

    std::vector<std::string> drawn() {
        TextureNames names;
        names.name(popup->snapshot, "page");
        names.name(gBackgroundFloat, "mask");
        names.name(popup->background, "background");
        DrawingLog log;
        EXPECT_EQ(popup->draw(), 0);
        return log.take();
    }
};

TEST_F(PopUpWindowTest, KeepsTitleMenuAndBackgroundAndHasTheTypeMinusOne) {
    writePicture("skin/frame.png", 300, 200, 0xFFFFFFFF);
    auto* const menu = new AnsweringMenu(calls);
    takeLog();
    popup = std::make_unique<OpenPopUp>(12, menu, "skin/frame.png");
    EXPECT_EQ(takeLog(), "(null)/skin/frame.png open fail, use .//skin/frame.png\n");
    EXPECT_EQ(popup->titleId, 12);
    EXPECT_EQ(popup->type, -1);
    EXPECT_EQ(popup->menu, menu);
    EXPECT_EQ(popup->background->getWidth(), 300);
    EXPECT_EQ(popup->snapshot, nullptr);
    EXPECT_EQ(popup->queryInt(), 0);
}

TEST_F(PopUpWindowTest, AddsNoVirtualFunctionToAWindow) {
    EXPECT_EQ(virtualSlot(&NextPopUp::next), virtualSlot(&KestroWindow::getTitle) + 1);
}

TEST_F(PopUpWindowTest, KeepsItsFieldsInOrder) {
    open(nullptr);
    const auto* const first = reinterpret_cast<const char*>(&popup->menu);
    EXPECT_EQ(first - reinterpret_cast<const char*>(popup.get()),
              static_cast<ptrdiff_t>(sizeof(FloatWindow)));
    EXPECT_EQ(reinterpret_cast<const char*>(&popup->background) - first,
              static_cast<ptrdiff_t>(sizeof(void*)));
}

TEST_F(PopUpWindowTest, TheThemesBackgroundComesFirst) {
    gThemePath = "theme/";
    writePicture("theme/skin/frame.png", 31, 17, 0xFFFFFFFF);
    writePicture("skin/frame.png", 300, 200, 0xFFFFFFFF);
    popup = std::make_unique<OpenPopUp>(-1, nullptr, "skin/frame.png");
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(popup->background->getWidth(), 31);
}

TEST_F(PopUpWindowTest, DeletesListBackgroundAndSnapshot) {
    std::vector<std::string> ends;
    openAnswering(0);
    popup->background = new NotedSurface(ends, "background");
    popup->snapshot = new NotedSurface(ends, "page");
    popup->quit();
    EXPECT_THAT(ends, IsEmpty());
    popup.reset();
    EXPECT_THAT(ends, testing::UnorderedElementsAre("background", "page"));
    EXPECT_THAT(calls, ElementsAre("deleted"));
}

TEST_F(PopUpWindowTest, WithoutAListItClosesAtItsFirstInput) {
    open(nullptr);
    EXPECT_EQ(press(5), 1002);
    EXPECT_EQ(waitingEvents(), 1); // nobody took it
}

TEST_F(PopUpWindowTest, WithoutAListItDrawsThePageAndTheMaskOnly) {
    writePicture("skin/float-win-mask.png", 16, 16, 0x80000000);
    writePicture("skin/frame.png", 300, 200, 0xFFFFFFFF);
    init_shared_skin();
    open(nullptr, "skin/frame.png");
    ASSERT_NE(popup->background, nullptr);
    popup->init();
    EXPECT_THAT(drawn(), ElementsAre("'page' all -> all on W", "'mask' all -> all on W"));
}

TEST_F(PopUpWindowTest, TheListsCodes1And2CloseIt) {
    AnsweringMenu* const menu = openAnswering(1);
    EXPECT_EQ(popup->eventHandling(), 1002);
    menu->answer = 2;
    EXPECT_EQ(popup->eventHandling(), 1002);
}

TEST_F(PopUpWindowTest, EveryOtherCodeOfTheListPassesThrough) {
    AnsweringMenu* const menu = openAnswering(0);
    for (int code = -5; code < 1100; ++code) {
        menu->answer = code;
        if (code != 1 && code != 2) {
            ASSERT_EQ(popup->eventHandling(), code);
        }
    }
}

TEST_F(PopUpWindowTest, TheListMayDeleteThePopUp) {
    AnsweringMenu* const menu = openAnswering(2);
    menu->onInput = [this] { popup.reset(); };
    OpenPopUp* const opened = popup.get();
    EXPECT_EQ(opened->eventHandling(), 1002);
    EXPECT_THAT(calls, ElementsAre("deleted"));
}

TEST_F(PopUpWindowTest, DrawsPageMaskBackgroundAndListInOrder) {
    writePicture("skin/float-win-mask.png", 16, 16, 0x80000000);
    writePicture("skin/frame.png", 300, 200, 0xFFFFFFFF);
    init_shared_skin();
    auto* const menu = new OpenTextMenu(nullptr, nullptr, 6, 0);
    menu->setShowNumber(false);
    menu->setShowListNumber(false);
    menu->add("Favourite");
    open(menu, "skin/frame.png");
    popup->init();
    const auto lines = drawn();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "'page' all -> all on W");
    EXPECT_EQ(lines[1], "'mask' all -> all on W");
    EXPECT_EQ(lines[2], "'background' all -> 490,260 300x200 on W");
    EXPECT_THAT(lines[3], testing::StartsWith("\"Favourite\" #FFFFFFFF all -> "));
}

TEST_F(PopUpWindowTest, TheListDrawsOnceAndItsResultDoesNotCount) {
    openAnswering(0);
    EXPECT_EQ(popup->draw(), 0);
    EXPECT_THAT(calls, ElementsAre("drawn"));
}

TEST_F(PopUpWindowTest, TheBackgroundIsCentredTowardZero) {
    writePicture("skin/frame.png", 301, 203, 0xFFFFFFFF);
    openAnswering(0, "skin/frame.png");
    EXPECT_THAT(drawn(), ElementsAre("'background' all -> 489,258 301x203 on W"));
    writePicture("skin/frame.png", 1283, 725, 0xFFFFFFFF);
    openAnswering(0, "skin/frame.png");
    EXPECT_THAT(drawn(), ElementsAre("'background' all -> -1,-2 1283x725 on W"));
}

TEST_F(PopUpWindowTest, WithoutABackgroundTheListIsDrawnAllTheSame) {
    for (const char* const name : {static_cast<const char*>(nullptr), "skin/none.png", ""}) {
        calls.clear();
        openAnswering(0, name);
        EXPECT_EQ(popup->background, nullptr);
        EXPECT_THAT(drawn(), IsEmpty());
        EXPECT_THAT(calls, testing::Contains("drawn"));
    }
}

TEST_F(PopUpWindowTest, WithoutAScreenItWorksButDrawsNothing) {
    ScreenUninit();
    openAnswering(33, "skin/bg-list-f.png");
    popup->init();
    EXPECT_EQ(popup->background, nullptr);
    EXPECT_EQ(popup->draw(), 0);
    EXPECT_EQ(popup->eventHandling(), 33);
}

/// Over a real list of two rows with actions.
class PopUpMenuTest : public PopUpWindowTest {
protected:
    ActionLog actions;
    TextMenu* menu = nullptr;

    void openRows(int firstResult, int secondResult) {
        menu = new TextMenu(nullptr, nullptr, 6, 0);
        for (const int result : {firstResult, secondResult})
            menu->insertItem(static_cast<TextMenuItemProvider*>(
                new TextMenuItem("row", nullptr, new RecordedAction(actions, result), true)));
        open(menu);
    }
};

TEST_F(PopUpMenuTest, KeysMoveTheCursorAndRunTheRow) {
    openRows(31, 32);
    press(6);
    EXPECT_EQ(menu->getCursor(), 1);
    EXPECT_EQ(press(1), 32);
    EXPECT_EQ(actions.ran.size(), 1u);
    takeLog();
}

TEST_F(PopUpMenuTest, TheBackKeyClosesIt) {
    openRows(31, 32);
    EXPECT_EQ(press(2), 1002);
    EXPECT_THAT(actions.ran, IsEmpty());
}

TEST_F(PopUpMenuTest, WithAAndBExchangedACloses) {
    gTestHost.table[19] = 1;
    openRows(31, 32);
    EXPECT_EQ(press(1), 1002);
    EXPECT_THAT(actions.ran, IsEmpty());
    EXPECT_EQ(press(2), 31);
    takeLog();
}

TEST_F(PopUpMenuTest, AnActionThatGives1Or2ClosesIt) {
    openRows(1, 2);
    EXPECT_EQ(press(1), 1002);
    press(6);
    EXPECT_EQ(press(1), 1002);
    EXPECT_EQ(actions.ran.size(), 2u);
    takeLog();
}

TEST_F(PopUpMenuTest, AnActionsQuitCodePassesThrough) {
    openRows(1003, 1005);
    EXPECT_EQ(press(1), 1003);
    press(6);
    EXPECT_EQ(press(1), 1005);
    takeLog();
}
