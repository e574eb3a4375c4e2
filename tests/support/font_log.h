#pragma once

#include <SDL_ttf.h>

#include <string>
#include <vector>

/// While it lives, notes the fonts that are opened by file name and those that are closed.
class FontLog {
public:
    struct Opening {
        std::string path;
        int points;
        TTF_Font* font; ///< null when the opening failed
    };

    FontLog();
    ~FontLog();
    FontLog(const FontLog&) = delete;
    FontLog& operator=(const FontLog&) = delete;

    /// What happened since the log was made, in order.
    const std::vector<Opening>& opened() const;
    const std::vector<TTF_Font*>& closed() const;
};
