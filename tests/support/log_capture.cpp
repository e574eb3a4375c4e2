#include "support/log_capture.h"

#include <cstdio>
#include <sys/mman.h>
#include <unistd.h>

LogCapture::LogCapture() : mTerminal(dup(STDOUT_FILENO)), mFile(memfd_create("log", MFD_CLOEXEC)) {
    fflush(stdout);
    dup2(mFile, STDOUT_FILENO);
}

LogCapture::~LogCapture() {
    fflush(stdout);
    dup2(mTerminal, STDOUT_FILENO);
    close(mTerminal);
    close(mFile);
}

std::string LogCapture::take() {
    fflush(stdout);
    std::string text;
    char chunk[4096];
    lseek(mFile, 0, SEEK_SET);
    for (ssize_t got; (got = read(mFile, chunk, sizeof chunk)) > 0;)
        text.append(chunk, static_cast<size_t>(got));
    if (ftruncate(mFile, 0) == 0)
        lseek(mFile, 0, SEEK_SET);
    return text;
}
