#include "end_to_end/x_display.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <stdexcept>

XDisplay::XDisplay(const std::string& size, const std::vector<std::string>& moreOptions) {
    std::vector<std::string> command{"Xvfb",       "-displayfd", "1",   "-screen", "0",
                                     size + "x24", "-nolisten",  "tcp", "-noreset"};
    command.insert(command.end(), moreOptions.begin(), moreOptions.end());
    mServer = std::make_unique<Process>(command, std::vector<std::string>{}, "");
    // The server writes the number of the display that it has found free, and a newline.
    eventually([this] { return mServer->output().find('\n') != std::string::npos || !mServer->isRunning(); });
    const std::string number = mServer->output();
    mName = ":" + number.substr(0, number.find('\n'));
    mConnection = number.empty() ? nullptr : XOpenDisplay(mName.c_str());
    if (!mConnection)
        throw std::runtime_error("no X server: " + mServer->errors());
}

XDisplay::~XDisplay() {
    XCloseDisplay(mConnection);
}

Picture XDisplay::capture() const {
    const int screen = DefaultScreen(mConnection);
    Picture picture{DisplayWidth(mConnection, screen), DisplayHeight(mConnection, screen), {}};
    XImage* const image =
        XGetImage(mConnection, RootWindow(mConnection, screen), 0, 0, static_cast<unsigned>(picture.width),
                  static_cast<unsigned>(picture.height), AllPlanes, ZPixmap);
    for (int y = 0; y < picture.height; ++y) {
        const auto* const row = reinterpret_cast<const uint32_t*>(image->data + y * image->bytes_per_line);
        for (int x = 0; x < picture.width; ++x)
            picture.pixels.push_back(row[x] & 0xFFFFFF); // the screen is 24 bits deep, in words of 32
    }
    XDestroyImage(image);
    return picture;
}

int XDisplay::press(const std::string& key) const {
    return Process({"xdotool", "key", key}, {environment()}, "").wait();
}

/// The visible child of the root window that accepts requests to close; 0 for none.
static Window closableWindow(Display* display, Atom deleteWindow) {
    Window ignored = 0;
    Window* windows = nullptr;
    unsigned count = 0;
    Window found = 0;
    XQueryTree(display, DefaultRootWindow(display), &ignored, &ignored, &windows, &count);
    for (unsigned i = 0; i < count && !found; ++i) {
        Atom* protocols = nullptr;
        int protocolCount = 0;
        if (!XGetWMProtocols(display, windows[i], &protocols, &protocolCount))
            continue;
        for (int j = 0; j < protocolCount; ++j)
            if (protocols[j] == deleteWindow)
                found = windows[i];
        XFree(protocols);
    }
    XFree(windows);
    return found;
}

bool XDisplay::requestClose() const {
    const Atom deleteWindow = XInternAtom(mConnection, "WM_DELETE_WINDOW", False);
    const Window window = closableWindow(mConnection, deleteWindow);
    if (!window)
        return false;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(mConnection, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(deleteWindow);
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(mConnection, window, False, NoEventMask, &event);
    XSync(mConnection, False);
    return true;
}
