#pragma once

#include <string>
#include <vector>

namespace navora {

/// The name among the keys of --keys that is no key but writes a picture of what the keys before it have led
/// to.
constexpr const char* pictureKey = "shot";

/// Whether --keys knows this name.
bool isKeyName(const std::string& name);

/// The keys of --keys and the pictures of --shot: presses one key a frame, like a keyboard, and then, if a
/// picture is wanted, writes it and leaves the window loop.
class ScriptedInput {
public:
    /// `shot` is the last picture's path, empty for none: then there is no pictureKey among the keys either.
    /// Each of those writes one with its number, from 1 on, before the dot: "page-1.png" and so on for
    /// "page.png". Frames that lie on their side are turned upright.
    ScriptedInput(std::vector<std::string> keys, std::string shot);

    /// Called by the active window at the start of every frame.
    void frameBegins();

    /// Whether some wanted picture has not been written. Says why on standard error, if nobody has yet.
    bool shotFailed() const;

private:
    std::vector<std::string> mKeys;
    size_t mPressed = 0;
    int mFramesSince = 0; // begun after the last key, with all pictures there
    std::string mShot;
    int mNumber = 0; // of the last picture with a number
    bool mEnded = false;
    bool mFailed = false;

    bool wantsKey() const;
    bool isSettled();
    void takeNextShot();
    void takeShot(const std::string& path);
    std::string numberedShot() const;
};

} // namespace navora
