#pragma once

#include <functional>
#include <string>
#include <vector>

/// While it lives, notes what is done to make files last: "fsync NAME", "unlink NAME" and "sync", where NAME
/// is the last part of the path. Nothing in the tests waits for the disk: fsync and sync only seem to work.
class DurabilityLog {
public:
    /// `look`, if given, is called at each step, before the step is done.
    explicit DurabilityLog(std::function<void(const std::string& step)> look = {});
    ~DurabilityLog();
    DurabilityLog(const DurabilityLog&) = delete;
    DurabilityLog& operator=(const DurabilityLog&) = delete;

    /// The steps since the last call of this.
    std::vector<std::string> take();

    /// From now on fsync fails, as for a medium that was pulled out.
    void failSync();
};
