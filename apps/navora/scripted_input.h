#pragma once

#include <string>
#include <vector>

namespace navora {

/// Whether --keys knows this name.
bool isKeyName(const std::string& name);

/// The keys of --keys and the picture of --shot: presses one key a frame, like a keyboard, and then, if a
/// picture is wanted, writes it and leaves the window loop.
class ScriptedInput {
public:
    /// `shot` is the picture's path, empty for none. Frames that lie on their side are turned upright for it.
    ScriptedInput(std::vector<std::string> keys, std::string shot);

    /// Called by the active window at the start of every frame.
    void frameBegins();

    /// Whether a wanted picture has not been written. Says why on standard error, if nobody has yet.
    bool shotFailed() const;

private:
    std::vector<std::string> mKeys;
    size_t mPressed = 0;
    int mFramesSince = 0; // begun after the last key, with all pictures there
    std::string mShot;
    enum { pending, written, failed } mShotState = pending;

    void takeShot();
};

} // namespace navora
