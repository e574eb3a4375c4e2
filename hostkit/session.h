#pragma once

#include <string>

namespace hostkit {

/// How a session starts. As it stands, it is a program on the device.
struct SessionOptions {
    bool useSyslog = false; ///< the log goes to the system log, not to standard output
    bool rotate = false;    ///< the display is mounted on its side
    bool hidden = false;    ///< draw in memory only; needs no display, and takes no pads and no sound
    std::string theme;      ///< a folder, in place of the settings' theme; never saved
    std::string language;   ///< a file such as "ch.lang", in place of the settings' language; never saved
};

/// A host from start-up to shut-down, for the length of its life: log, SDL, screen, settings (with the
/// settings journal on), features, languages, skin, pinyin, pads and key tone, in the order that the library
/// asks for; and the other way round at its end. While it lives, the close button, SIGTERM and SIGINT end the
/// window loop (see requestClose). Only one at a time; main thread.
///
/// Words of the host's own go into gDefaultStringList before. The font "regular.ttf", and "skin", "lang" and
/// "sound", are looked up in the working folder.
///
///     hostkit::Session session;
///     if (!session.isOpen())
///         return 1; // session.problem() tells why
///     std::vector<KestroWindow*> windows{...};
///     runWindows(windows);
class Session {
public:
    /// Opens everything; isOpen tells whether that worked.
    explicit Session(const SessionOptions& options = {});
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Whether there is a screen to draw on and a font to write with. Without pads or sound it is open too.
    bool isOpen() const { return mProblem.empty(); }

    /// Why it is not open, in a few words; empty if it is.
    const std::string& problem() const { return mProblem; }

    /// Whether it is not open for want of a display.
    bool lacksDisplay() const { return mLacksDisplay; }

    /// Gives screen, pads and sound up, for another program to use: SDL is shut down whole. Everything that
    /// was made for the screen is lost, so only while there are no windows and no loop.
    void giveUpScreen();

    /// Takes them back, in the theme in force. Returns isOpen(): the screen may be gone.
    bool takeBackScreen();

private:
    const bool mRotate;
    const bool mHidden;
    std::string mProblem;
    bool mLacksDisplay = false;

    bool fail(const std::string& problem);
    bool startScreen();
    bool startLibraries();
    bool findDisplay();
    bool openScreen();
    void loadSettings(const SessionOptions& options);
    bool loadSkin();
    void startPadsAndSound();
};

} // namespace hostkit
