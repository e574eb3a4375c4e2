#include "core/dialog_window.h"

#include "core/host.h"
#include "core/input.h"
#include "core/log.h"
#include "gfx/image.h"
#include "gfx/text.h"
#include "shell/skin.h"
#include "system/language.h"

#include <utility>

static KestroSurface* loadPicture(const char* name) {
    return LoadKestroSurface(gThemePath, "./", name);
}

DialogWindow::DialogWindow(std::string titleText, std::string messageText, bool hasLines, Action* onConfirm,
                           void (*whenCancelled)())
    : FloatWindow(-1), title(std::move(titleText)), message(std::move(messageText)), focus(1),
      panel(loadPicture("skin/pop-bg.png")), reservedSurface(nullptr), reservedFlag(0),
      buttonFocused(loadPicture("skin/btn-bg-f.png")), buttonNormal(loadPicture("skin/btn-bg-n.png")),
      action(onConfirm), onCancel(whenCancelled), multiLine(hasLines) {}

DialogWindow::DialogWindow(int titleWord, int messageWord, bool hasLines, Action* onConfirm,
                           void (*whenCancelled)())
    : DialogWindow(std::string(getLangStr(titleWord)), std::string(getLangStr(messageWord)), hasLines,
                   onConfirm, whenCancelled) {}

DialogWindow::~DialogWindow() {
    delete panel;
    delete buttonFocused;
    delete buttonNormal;
    delete action;
}

int DialogWindow::eventHandling() {
    const int code = wait_event(nullptr);
    switch (code) {
    case 7:
        if (focus >= 1)
            --focus;
        return -1;
    case 8:
        if (focus <= 0)
            ++focus;
        return -1;
    case 1:
        return GetKeyShm(gShmInfo, 19) ? handleCancel() : handleOK();
    case 2:
        return GetKeyShm(gShmInfo, 19) ? handleOK() : handleCancel();
    case 3:
        return handleCancel();
    case 4:
        return handleOK();
    case 25:
    case 43:
    case 44:
        return code;
    default:
        return -1;
    }
}

void DialogWindow::quit() {}

int DialogWindow::handleOK() {
    if (focus != 1)
        return handleCancel();
    if (!action)
        return 1002;
    tprintf("DialogWindow ok\n");
    return action->dowork(nullptr);
}

int DialogWindow::handleCancel() {
    if (onCancel) {
        tprintf("DialogWindow cancel\n");
        onCancel();
    }
    return 1002;
}

/// Without a panel, the texts stand where a panel of this size would have them.
SDL_Rect DialogWindow::panelRect() const {
    if (!panel)
        return {338, 142, 604, 436};
    const int width = panel->getWidth();
    const int height = panel->getHeight();
    return {(1280 - width) / 2, (720 - height) / 2, width, height};
}

int DialogWindow::draw() {
    FloatWindow::draw();
    SDL_Rect place = panelRect();
    if (panel)
        panel->render(nullptr, &place, true, nullptr);
    drawTexts(place);
    SDL_Rect button = firstButtonRect(place);
    drawButton(button, 0);
    button.x += button.w + 100;
    drawButton(button, 1);
    return 0;
}

void DialogWindow::drawTexts(const SDL_Rect& place) const {
    DrawString(gPopupFontTitle, {place.x, place.y + 80, place.w, 43}, title.c_str(), gPopupColorTitle, 1,
               false, false);
    const SDL_Rect rect{place.x, place.y + 186, place.w, 100};
    if (multiLine)
        DrawStringLines(gPopupFontTxt, rect, message.c_str(), "\n", gPopupColorTxt, 1, false);
    else // in the title's colour, on purpose: a one-line question stands out
        DrawString(gPopupFontTxt, rect, message.c_str(), gPopupColorTitle, 1, false, false);
}

static SDL_Point sizeOf(KestroSurface* picture) {
    return picture ? SDL_Point{picture->getWidth(), picture->getHeight()} : SDL_Point{0, 0};
}

SDL_Rect DialogWindow::firstButtonRect(const SDL_Rect& place) const {
    const SDL_Point size = sizeOf(buttonFocused);
    if (panel)
        return {place.x + 100, place.y + 390, size.x, size.y};
    const int both = size.x + sizeOf(buttonNormal).x;
    return {(604 - both - 12) / 2 + 338, (60 - size.y) / 2 + 428, size.x, size.y};
}

/// Button 0 cancels and button 1 confirms.
void DialogWindow::drawButton(SDL_Rect place, int button) const {
    const bool focused = (focus == 1) == (button == 1);
    KestroSurface* const picture = focused ? buttonFocused : buttonNormal;
    if (picture)
        picture->render(nullptr, &place, true, nullptr);
    DrawString(gPopupFontBtn, place, getLangStr(button), gPopupColorBtn, 1, false, false);
}
