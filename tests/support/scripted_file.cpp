#include "support/scripted_file.h"

#include <cerrno>

ScriptedFile::ScriptedFile(long size, std::vector<Read> reads)
    : mSize(size), mReads(std::move(reads)),
      mFile(fopencookie(this, "r", {readSome, nullptr, seekTo, nullptr})) {}

ScriptedFile::~ScriptedFile() {
    fclose(mFile);
}

ssize_t ScriptedFile::readSome(void* self, char* buffer, size_t size) {
    auto* const script = static_cast<ScriptedFile*>(self);
    if (script->mNext == script->mReads.size())
        return 0;
    const Read& answer = script->mReads[script->mNext++];
    if (!answer.bytes.empty())
        return static_cast<ssize_t>(answer.bytes.copy(buffer, size));
    errno = answer.error;
    return answer.error ? -1 : 0;
}

int ScriptedFile::seekTo(void* self, off64_t* position, int from) {
    auto* const script = static_cast<ScriptedFile*>(self);
    const long base = from == SEEK_END ? script->mSize : from == SEEK_CUR ? script->mPosition : 0;
    *position = script->mPosition = base + *position;
    return 0;
}
