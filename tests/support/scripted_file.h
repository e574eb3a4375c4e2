#pragma once

#include <cstdio>
#include <string>
#include <vector>

/// A file whose reading goes as the test says.
class ScriptedFile {
public:
    /// The answer to one read: these bytes; or an error if there are none, which `error` gives as errno, or
    /// the end of the file for 0.
    struct Read {
        std::string bytes;
        int error = 0;
    };

    /// A file that claims to be `size` bytes long. After the last of `reads` comes the end of the file.
    ScriptedFile(long size, std::vector<Read> reads);
    ~ScriptedFile();
    ScriptedFile(const ScriptedFile&) = delete;
    ScriptedFile& operator=(const ScriptedFile&) = delete;

    FILE* file() { return mFile; }
    size_t readsDone() const { return mNext; }

private:
    long mSize;
    long mPosition = 0;
    std::vector<Read> mReads;
    size_t mNext = 0;
    FILE* mFile;

    static ssize_t readSome(void* self, char* buffer, size_t size);
    static int seekTo(void* self, off64_t* position, int from);
};
