#pragma once

#include "core/window.h"
#include "menu/text_menu_drawer.h"
#include "navora/scripted_input.h"

#include <memory>

namespace navora {

enum KeyCode {
    keyA = 1,
    keyB,
    keyX,
    keyUp = 5,
    keyDown,
    keyLeft,
    keyRight,
    keyMenu = 11,
    keyRightShoulder = 13
};

enum LoopCode { loopIgnored = 0, loopClose = 1002, loopQuit = 1003 };

/// What the pages share; it outlives all of them.
struct Shell {
    ScriptedInput& script;
};

/// A full-screen window of the launcher: background, the two bars with the clock, and what a page of its own
/// kind puts in between.
class Page : public KestroWindow {
public:
    Page(Shell& shell, int titleId);

    int eventHandling() final;
    int draw() final;

    /// Draws the page without the simulator's panel.
    void drawPage();

    /// Takes over a theme that has been put in force since the last call.
    void followTheme();

    void quit() override {}
    void init() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }
    void update() override;

protected:
    Shell& shell() const { return mShell; }

    virtual void drawContent() = 0;

    /// Reads and acts on one key, and returns a loop code.
    virtual int handleInput() = 0;

    /// Takes over a new theme.
    virtual void themeChanged() {}

    /// Whether the third face button would open something now.
    virtual bool hasOptions() const { return false; }

private:
    Shell& mShell;
    int mThemeNumber; // of the theme that the page shows

    void drawHints(int x) const;
};

/// Whether the row under the cursor is one that says by its first flag that it has options.
bool rowHasOptions(TextMenuDrawer& list);

/// A page around one list.
class ListPage : public Page {
public:
    ListPage(Shell& shell, int titleId, std::unique_ptr<TextMenuDrawer> list);

protected:
    TextMenuDrawer& list() const { return *mList; }
    void setList(std::unique_ptr<TextMenuDrawer> list) { mList = std::move(list); }

    void drawContent() override;
    int handleInput() override;
    void themeChanged() override { mList->refresh(); }
    bool hasOptions() const override;

    /// What a code of the list means for the loop. By default the back key, which is whatever key the list
    /// has left over, closes the page.
    virtual int answer(int code);

private:
    std::unique_ptr<TextMenuDrawer> mList;
};

} // namespace navora
