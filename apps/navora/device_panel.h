#pragma once

#include "navora/device_watch.h"
#include "navora/simulated_device.h"

#include <SDL.h>

#include <memory>
#include <string>

namespace navora {

/// What plays the device while there is no real one, for its own life: the function keys change it, a panel
/// over all else tells which key does what, and the launcher follows what others change in the folder. Does
/// nothing on a real device. Only one at a time, within a session; main thread.
class DevicePanel {
public:
    /// `root` is the folder that stands for the device, "" for a real one. `shown` is whether the panel is
    /// there before F1 asks for it.
    DevicePanel(const std::string& root, bool shown);
    ~DevicePanel();
    DevicePanel(const DevicePanel&) = delete;
    DevicePanel& operator=(const DevicePanel&) = delete;

private:
    friend void drawDevicePanel();

    std::unique_ptr<SimulatedDevice> mDevice; // null on a real one
    std::unique_ptr<DeviceWatch> mWatch;
    bool mShown;

    static int keyPressed(void* panel, SDL_Event* event);
    void press(SDL_Scancode code, bool repeated);
    void draw() const;
};

/// Draws the panel, if it is to be seen, over the window that has just been drawn, and then lets the launcher
/// follow the device, which may open the screen anew. For the end of every window's draw.
void drawDevicePanel();

} // namespace navora
