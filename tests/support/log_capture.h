#pragma once

#include <string>

/// Takes what the process writes to standard output, from construction to destruction.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// What was written since the last call.
    std::string take();

private:
    int mTerminal; // the real standard output
    int mFile;
};
