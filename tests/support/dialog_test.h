#pragma once

#include "support/open_dialog.h"
#include "support/recorded_action.h"
#include "support/skinned_test.h"

#include <SDL.h>

#include <memory>
#include <string>
#include <vector>

/// A test of dialogs, with these pictures of the skin: "skin/pop-bg.png" (700 x 524), "skin/btn-bg-f.png"
/// (200 x 72) and "skin/btn-bg-n.png" (180 x 60).
class DialogTest : public SkinnedTest {
protected:
    void SetUp() override;
    void TearDown() override;

    std::unique_ptr<OpenDialog> dialog;
    ActionLog actions;

    /// Opens a dialog whose action gives `result`; what is logged is taken.
    RecordedAction* openWithAction(int result, void (*onCancel)() = nullptr);

    /// Opens a dialog without an action.
    void open(const std::string& title, const std::string& message, bool multiLine = false,
              void (*onCancel)() = nullptr);

    /// Handles one key code.
    int press(int code);

    /// What the dialog draws; its pictures are called 'page' (the snapshot), 'mask', 'panel', 'focused' and
    /// 'normal'.
    std::vector<std::string> drawn();

    /// The line for a text in the middle of a rectangle.
    static std::string centred(TTF_Font* font, const std::string& text, SDL_Color color, SDL_Rect rect);

    /// Counts its calls.
    static void noteCancel() { ++cancels; }
    static int cancels;
};
