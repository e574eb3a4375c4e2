#pragma once

#include <string>
#include <vector>

/// While it lives, sounds are noted instead of played: it takes the place of Mix_HaltChannel and
/// Mix_PlayChannelTimed in this process. Any thread may play.
///
///     halt -1
///     play the key tone on -1, loops 0, ticks -1      (or: another sound)
class ToneLog {
public:
    ToneLog();
    ~ToneLog();
    ToneLog(const ToneLog&) = delete;
    ToneLog& operator=(const ToneLog&) = delete;

    /// The calls since the last call of this.
    std::vector<std::string> take();

    /// From now on playing fails, with `error` as SDL's error.
    void failWith(const char* error);
};
