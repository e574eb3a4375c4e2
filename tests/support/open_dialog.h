#pragma once

#include "core/dialog_window.h"
#include "core/popup_window.h"

/// Float windows that show what they keep to themselves.
class OpenFloat : public FloatWindow {
public:
    using FloatWindow::FloatWindow;
    using FloatWindow::snapshot;
};

class OpenPopUp : public PopUpWindow {
public:
    using PopUpWindow::PopUpWindow;

    using FloatWindow::snapshot;
    using PopUpWindow::background;
    using PopUpWindow::menu;
};

class OpenDialog : public DialogWindow {
public:
    using DialogWindow::DialogWindow;

    using DialogWindow::action;
    using DialogWindow::buttonFocused;
    using DialogWindow::buttonNormal;
    using DialogWindow::focus;
    using DialogWindow::message;
    using DialogWindow::multiLine;
    using DialogWindow::onCancel;
    using DialogWindow::panel;
    using DialogWindow::reservedFlag;
    using DialogWindow::reservedSurface;
    using DialogWindow::title;
    using FloatWindow::snapshot;
};
