#include "system/content.h"

#include "core/log.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

static constexpr long largestSize = 131071; // bytes
static constexpr int mostReads = 10;

static size_t readAll(FILE* file, char* buffer, size_t size) {
    size_t got = 0;
    for (int reads = 0; reads < mostReads && got < size; ++reads)
        got += fread(buffer + got, 1, size - got, file);
    return got;
}

int loadContent(const char* name, FILE* file, char** text) {
    const char* const shownName = name ? name : "(null)";
    if (!file || !text)
        return -1;
    fseek(file, 0, SEEK_END);
    const long size = ftell(file);
    rewind(file);
    if (size < 1 || size > largestSize) {
        tprintf("%s invalid size %d\n", shownName, static_cast<int>(size));
        return -1;
    }
    const auto wanted = static_cast<size_t>(size);
    char* const buffer = static_cast<char*>(malloc(wanted + 1));
    if (!buffer)
        return -1;
    *text = buffer;
    errno = 0;
    const size_t got = readAll(file, buffer, wanted);
    if (got != wanted) {
        const int error = errno;
        tprintf("read %s (%d vs %d)error : %d:%s\n", shownName, static_cast<int>(got),
                static_cast<int>(wanted), error, strerror(error));
        return -1;
    }
    buffer[wanted] = 0;
    return 0;
}
