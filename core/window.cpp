#include "core/window.h"

#include "core/log.h"
#include "system/language.h"

KestroWindow::KestroWindow(int title, int kind) : titleId(title), type(kind) {}

KestroWindow::~KestroWindow() = default;

void KestroWindow::postUpdate() {}

void KestroWindow::onClose() {}

const char* KestroWindow::getTitle() {
    return getLangStr(titleId);
}

void KestroWindow::dump() {
    tprintf("title %s, type %d\n", getLangStr(titleId), type); // "" for a negative id
}
