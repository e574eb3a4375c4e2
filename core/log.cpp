#include "core/log.h"

#include "platform/device_path.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <syslog.h>
#include <unistd.h>

using kestro::devicePath;

static int sUseSyslog = 0;
static char procname[64]; // openlog keeps the pointer, so the name lives as long as the process

static void readProcessName() {
    char path[128];
    snprintf(path, sizeof path, "/proc/%d/comm", getpid());
    FILE* file = fopen(devicePath(path), "r");
    if (!file)
        return;
    // One byte beyond the longest name, so that the newline after 63 characters costs none of them.
    char line[sizeof procname + 1];
    if (fgets(line, sizeof line, file)) {
        line[strcspn(line, "\n")] = 0;
        snprintf(procname, sizeof procname, "%.*s", static_cast<int>(sizeof procname - 1), line);
    }
    fclose(file);
}

void initLogger(int useSyslog) {
    static bool closesAtExit = false;
    sUseSyslog = useSyslog;
    if (!useSyslog)
        return;
    readProcessName();
    openlog(procname, LOG_PID, 0);
    if (!closesAtExit)
        closesAtExit = atexit(closelog) == 0;
}

int tprintf(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    int written = 0;
    if (sUseSyslog)
        vsyslog(LOG_DEBUG, format, arguments);
    else
        written = vprintf(format, arguments);
    va_end(arguments);
    return written;
}
