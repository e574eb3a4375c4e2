#pragma once

#include "core/window.h"

/// A window that does nothing.
class PlainWindow : public KestroWindow {
public:
    using KestroWindow::KestroWindow;
    int eventHandling() override { return 0; }
    int draw() override { return 0; }
    void quit() override {}
    void init() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }
    void update() override {}
};
