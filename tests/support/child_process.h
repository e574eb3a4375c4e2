#pragma once

#include <functional>
#include <string>

/// What a child process left behind.
struct ChildResult {
    int exitCode;       ///< -1 if it was ended by a signal
    std::string report; ///< what it wrote to the file handle that its body got
};

/// Runs `body` in a copy of this process and waits for its end. The copy ends by exit(0), with all its exit
/// handlers; what they write to the handle belongs to the report too. No other thread may run meanwhile.
ChildResult inChild(const std::function<void(int report)>& body);

/// Writes the whole text to a file handle.
void writeTo(int handle, const std::string& text);
