#pragma once

#include <string>
#include <vector>

/// While it lives, notes every path given to fopen, fopen64, open, openat and access in this process.
class OpenedPaths {
public:
    OpenedPaths();
    ~OpenedPaths();
    OpenedPaths(const OpenedPaths&) = delete;
    OpenedPaths& operator=(const OpenedPaths&) = delete;

    /// The paths in the order of the calls, since the last call of this.
    std::vector<std::string> take();

    /// From now on opening `path` fails, as for a user without the right to.
    void refuse(const std::string& path);
};
