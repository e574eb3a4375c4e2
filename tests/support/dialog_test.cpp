#include "support/dialog_test.h"

#include "shell/skin.h"
#include "support/drawing_log.h"
#include "support/key_events.h"
#include "support/texture_names.h"

int DialogTest::cancels = 0;

void DialogTest::SetUp() {
    SkinnedTest::SetUp();
    writePicture("skin/pop-bg.png", 700, 524, 0xFF202830);
    writePicture("skin/btn-bg-f.png", 200, 72, 0xFF305090);
    writePicture("skin/btn-bg-n.png", 180, 60, 0xFF404040);
    cancels = 0;
}

void DialogTest::TearDown() {
    dialog.reset();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    SkinnedTest::TearDown();
}

RecordedAction* DialogTest::openWithAction(int result, void (*onCancel)()) {
    auto* const action = new RecordedAction(actions, result);
    dialog = std::make_unique<OpenDialog>("Delete", "Really?", false, action, onCancel);
    takeLog();
    return action;
}

void DialogTest::open(const std::string& title, const std::string& message, bool multiLine,
                      void (*onCancel)()) {
    dialog = std::make_unique<OpenDialog>(title, message, multiLine, nullptr, onCancel);
    takeLog();
}

int DialogTest::press(int code) {
    pressCode(code);
    return dialog->eventHandling();
}

std::vector<std::string> DialogTest::drawn() {
    TextureNames names;
    names.name(dialog->snapshot, "page");
    names.name(gBackgroundFloat, "mask");
    names.name(dialog->panel, "panel");
    names.name(dialog->buttonFocused, "focused");
    names.name(dialog->buttonNormal, "normal");
    DrawingLog log;
    EXPECT_EQ(dialog->draw(), 0);
    return log.take();
}

std::string DialogTest::centred(TTF_Font* font, const std::string& text, SDL_Color color, SDL_Rect rect) {
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(font, text.c_str(), &w, &h);
    char line[100];
    snprintf(line, sizeof line, "\" #%02X%02X%02X%02X all -> %d,%d %dx%d on W", color.r, color.g, color.b,
             color.a, rect.x + (rect.w - w) / 2, rect.y + (rect.h - h) / 2, w, h);
    return "\"" + text + line;
}
