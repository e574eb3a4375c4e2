#include "support/child_process.h"

#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

void writeTo(int handle, const std::string& text) {
    size_t done = 0;
    while (done < text.size()) {
        const ssize_t written = write(handle, text.data() + done, text.size() - done);
        if (written <= 0)
            return;
        done += static_cast<size_t>(written);
    }
}

static std::string readAll(int handle) {
    std::string text;
    char chunk[4096];
    for (ssize_t got; (got = read(handle, chunk, sizeof chunk)) > 0;)
        text.append(chunk, static_cast<size_t>(got));
    return text;
}

ChildResult inChild(const std::function<void(int)>& body) {
    int ends[2];
    if (pipe(ends) != 0)
        return {-1, "no pipe"};
    fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        body(ends[1]);
        exit(0);
    }
    close(ends[1]);
    ChildResult result{-1, readAll(ends[0])};
    close(ends[0]);
    int status = 0;
    if (waitpid(child, &status, 0) == child && WIFEXITED(status))
        result.exitCode = WEXITSTATUS(status);
    return result;
}
