#pragma once

#include "end_to_end/picture.h"
#include "end_to_end/process.h"

#include <memory>
#include <string>
#include <vector>

struct _XDisplay;

/// An X server of its own, without window manager, on a screen in memory.
class XDisplay {
public:
    /// `size` like "1280x720"; `moreOptions` are the server's.
    explicit XDisplay(const std::string& size, const std::vector<std::string>& moreOptions = {});
    ~XDisplay();
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;

    /// "DISPLAY=..." for a program that is to appear on it.
    std::string environment() const { return "DISPLAY=" + mName; }

    /// What is on the screen now.
    Picture capture() const;

    /// Presses and releases a key of the keyboard, by its name in X. Returns xdotool's exit code.
    int press(const std::string& key) const;

    /// Asks the launcher's window to close, as the button in a window's frame does. Returns whether there is
    /// a window to ask.
    bool requestClose() const;

private:
    std::unique_ptr<Process> mServer;
    std::string mName;
    _XDisplay* mConnection = nullptr;
};
