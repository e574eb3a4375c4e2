#include "core/float_window.h"

#include "gfx/screen.h"
#include "gfx/screen_internal.h"
#include "shell/skin.h"

FloatWindow::FloatWindow(int title) : KestroWindow(title, -1), snapshot(nullptr) {}

FloatWindow::~FloatWindow() {
    delete snapshot;
}

int FloatWindow::eventHandling() {
    return -1;
}

static void drawOverAll(KestroSurface* picture) {
    if (picture)
        picture->render(nullptr, nullptr, true, nullptr);
}

int FloatWindow::draw() {
    drawOverAll(snapshot);
    drawOverAll(gBackgroundFloat);
    return 0;
}

void FloatWindow::quit() {}

void FloatWindow::init() {
    if (!snapshot)
        snapshot = kestro::pageSnapshot();
}

void FloatWindow::saveState(cJSON*) {}

int FloatWindow::queryInt() {
    return 0;
}

void FloatWindow::update() {}
