#pragma once

#include <string>
#include <vector>

/// While it lives, shell commands are noted instead of run: it takes the place of `system` in this process.
class CommandLog {
public:
    CommandLog();
    ~CommandLog();
    CommandLog(const CommandLog&) = delete;
    CommandLog& operator=(const CommandLog&) = delete;

    /// The commands since the last call of this.
    std::vector<std::string> take();
};
