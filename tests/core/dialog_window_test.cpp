#include "core/window_state.h"
#include "shell/skin.h"
#include "support/dialog_test.h"
#include "support/noted_surface.h"
#include "support/virtual_slot.h"
#include "system/language.h"

#include <algorithm>
#include <type_traits>

using testing::ElementsAre;

// Hosts are compiled against these.
using Cancel = void (*)();
static_assert(std::is_constructible_v<DialogWindow, std::string, std::string, bool, Action*, Cancel>);
static_assert(std::is_constructible_v<DialogWindow, int, int, bool, Action*, Cancel>);
static_assert(!std::is_copy_constructible_v<DialogWindow>);
static_assert(std::is_same_v<decltype(&DialogWindow::handleOK), int (DialogWindow::*)()>);
static_assert(std::is_same_v<decltype(&DialogWindow::handleCancel), int (DialogWindow::*)()>);
static_assert(std::is_same_v<decltype(&DialogWindow::getFocus), int (DialogWindow::*)() const>);

/// As a host's class: a further virtual function comes right after the library's.
class NextDialog : public DialogWindow {
public:
    using DialogWindow::DialogWindow;
    virtual void next() {}
};

class DialogWindowTest : public DialogTest {};

TEST_F(DialogWindowTest, AddsNoVirtualFunctionToAWindow) {
    EXPECT_EQ(virtualSlot(&NextDialog::next), virtualSlot(&KestroWindow::getTitle) + 1);
}

TEST_F(DialogWindowTest, KeepsItsFieldsInOrder) {
    open("Delete", "Really?");
    const auto at = [this](const void* field) {
        return static_cast<const char*>(field) - reinterpret_cast<const char*>(dialog.get());
    };
    const std::vector<ptrdiff_t> places{
        at(&dialog->snapshot),     at(&dialog->title),         at(&dialog->message),
        at(&dialog->focus),        at(&dialog->panel),         at(&dialog->reservedSurface),
        at(&dialog->reservedFlag), at(&dialog->buttonFocused), at(&dialog->buttonNormal),
        at(&dialog->action),       at(&dialog->onCancel),      at(&dialog->multiLine)};
    EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
    EXPECT_EQ(places.front(), static_cast<ptrdiff_t>(sizeof(KestroWindow)));
}

TEST_F(DialogWindowTest, StartsAsAFloatWindowWithoutATitleOfItsOwn) {
    open("Delete", "Really?");
    EXPECT_EQ(dialog->titleId, -1);
    EXPECT_EQ(dialog->type, -1);
    EXPECT_STREQ(dialog->getTitle(), "");
    EXPECT_EQ(dialog->snapshot, nullptr);
    EXPECT_EQ(dialog->reservedSurface, nullptr);
    EXPECT_EQ(dialog->reservedFlag, 0);
    EXPECT_EQ(dialog->queryInt(), 0);
}

TEST_F(DialogWindowTest, KeepsWhatItIsGiven) {
    auto* const action = new RecordedAction(actions);
    dialog = std::make_unique<OpenDialog>("Delete", "Really?\nAll of it?", true, action, noteCancel);
    EXPECT_EQ(dialog->title, "Delete");
    EXPECT_EQ(dialog->message, "Really?\nAll of it?");
    EXPECT_TRUE(dialog->multiLine);
    EXPECT_EQ(dialog->action, action);
    EXPECT_EQ(dialog->onCancel, noteCancel);
    takeLog();
}

TEST_F(DialogWindowTest, LoadsItsThreePicturesOnceAndInOrder) {
    dialog = std::make_unique<OpenDialog>("", "", false, nullptr, nullptr);
    EXPECT_EQ(takeLog(), "(null)/skin/pop-bg.png open fail, use .//skin/pop-bg.png\n"
                         "(null)/skin/btn-bg-f.png open fail, use .//skin/btn-bg-f.png\n"
                         "(null)/skin/btn-bg-n.png open fail, use .//skin/btn-bg-n.png\n");
    EXPECT_EQ(dialog->panel->getWidth(), 700);
    EXPECT_EQ(dialog->buttonFocused->getWidth(), 200);
    EXPECT_EQ(dialog->buttonNormal->getWidth(), 180);
    dialog->init();
    dialog->draw();
    EXPECT_EQ(takeLog(), "");
}

TEST_F(DialogWindowTest, TheThemesPicturesComeFirst) {
    gThemePath = "theme/";
    writePicture("theme/skin/pop-bg.png", 600, 400, 0xFFFFFFFF);
    writePicture("theme/skin/btn-bg-f.png", 100, 50, 0xFFFFFFFF);
    writePicture("theme/skin/btn-bg-n.png", 90, 40, 0xFFFFFFFF);
    dialog = std::make_unique<OpenDialog>("", "", false, nullptr, nullptr);
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(dialog->panel->getHeight(), 400);
    EXPECT_EQ(dialog->buttonFocused->getHeight(), 50);
    EXPECT_EQ(dialog->buttonNormal->getHeight(), 40);
}

TEST_F(DialogWindowTest, TakesBothTextsFromTheLanguageOnceForAll) {
    useLanguage({{3, "Titel"}, {4, "Frage"}});
    dialog = std::make_unique<OpenDialog>(3, 4, false, nullptr, nullptr);
    useLanguage({{3, "other"}, {4, "other"}});
    gLangTable.clear();
    EXPECT_EQ(dialog->title, "Titel");
    EXPECT_EQ(dialog->message, "Frage");
    EXPECT_EQ(dialog->titleId, -1);
    takeLog();
}

TEST_F(DialogWindowTest, WithWordsOfTheLanguageItKeepsTheRestToo) {
    for (const bool multiLine : {false, true}) {
        auto* const action = new RecordedAction(actions);
        dialog = std::make_unique<OpenDialog>(0, 1, multiLine, action, noteCancel);
        EXPECT_EQ(dialog->title, "Cancel");
        EXPECT_EQ(dialog->message, "OK");
        EXPECT_EQ(dialog->multiLine, multiLine);
        EXPECT_EQ(dialog->action, action);
        EXPECT_EQ(dialog->onCancel, noteCancel);
        EXPECT_EQ(dialog->focus, 1);
    }
    takeLog();
}

TEST_F(DialogWindowTest, IndexesThatAreNoneGiveWhatTheLanguageGives) {
    dialog = std::make_unique<OpenDialog>(-1, 100000, true, nullptr, nullptr);
    EXPECT_EQ(dialog->title, "");
    EXPECT_EQ(dialog->message, "wrongbeef");
    EXPECT_TRUE(dialog->multiLine);
    takeLog();
}

TEST_F(DialogWindowTest, DeletesItsPicturesAndItsAction) {
    std::vector<std::string> ends;
    openWithAction(0, noteCancel);
    for (KestroSurface** picture :
         {&dialog->snapshot, &dialog->panel, &dialog->buttonFocused, &dialog->buttonNormal})
        delete *picture;
    dialog->snapshot = new NotedSurface(ends, "page");
    dialog->panel = new NotedSurface(ends, "panel");
    dialog->buttonFocused = new NotedSurface(ends, "focused");
    dialog->buttonNormal = new NotedSurface(ends, "normal");
    dialog.reset();
    EXPECT_THAT(ends, testing::UnorderedElementsAre("page", "panel", "focused", "normal"));
    EXPECT_EQ(actions.deleted, 1);
    EXPECT_EQ(cancels, 0);
}

TEST_F(DialogWindowTest, QuittingAndUpdatingDoNothing) {
    openWithAction(33, noteCancel);
    dialog->quit();
    dialog->update();
    dialog->postUpdate();
    dialog->onClose();
    EXPECT_EQ(cancels, 0);
    EXPECT_TRUE(actions.ran.empty());
    EXPECT_EQ(press(1), 33);
    takeLog();
}

TEST_F(DialogWindowTest, IsSavedWithTitleAndTypeOnly) {
    open("Delete", "Really?");
    std::vector<KestroWindow*> windows{dialog.get()};
    saveWindowsState(windows, "state.json");
    takeLog();
    EXPECT_EQ(readFile("state.json"),
              "{\n\t\"list\":\t[{\n\t\t\t\"title\":\t-1,\n\t\t\t\"type\":\t-1\n\t\t}]\n}");
}

TEST_F(DialogWindowTest, WithoutAScreenItWorksButDrawsNothing) {
    ScreenUninit();
    openWithAction(1002);
    EXPECT_EQ(dialog->panel, nullptr);
    dialog->init();
    EXPECT_EQ(dialog->snapshot, nullptr);
    EXPECT_EQ(dialog->draw(), 0);
    EXPECT_EQ(dialog->handleOK(), 1002);
    takeLog();
}

TEST_F(DialogWindowTest, OutlivesItsScreen) {
    open("Delete", "Really?");
    dialog->init();
    ScreenUninit();
    EXPECT_EQ(dialog->draw(), 0);
    openScreen(1280, 720, 0);
    EXPECT_EQ(dialog->draw(), 0);
    dialog.reset();
}
