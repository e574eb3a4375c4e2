#pragma once

#include "fuzz/support/device.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

namespace fuzz {

/// What the library logs, kept in a file on the device; what was standard output is reached by `report` only.
class LogFile {
public:
    LogFile() : mOutput(fdopen(dup(STDOUT_FILENO), "w")), mPath(device() + "/log") {
        if (mOutput)
            setlinebuf(mOutput); // the next may be the last
        if (!mOutput || !freopen(mPath.c_str(), "w", stdout))
            abort();
    }
    ~LogFile() { fclose(mOutput); }
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// The lines since the last call.
    std::string take() {
        fflush(stdout);
        std::ifstream file(mPath, std::ios::binary);
        std::string text{std::istreambuf_iterator<char>(file), {}};
        rewind(stdout);
        if (ftruncate(fileno(stdout), 0) != 0)
            abort();
        return text;
    }

    FILE* report() const { return mOutput; }

private:
    FILE* mOutput;
    std::string mPath;
};

} // namespace fuzz
