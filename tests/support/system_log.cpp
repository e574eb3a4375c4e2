#include "support/system_log.h"

#include "support/child_process.h"
#include "support/real_function.h"

#include <cstdarg>
#include <cstdio>
#include <string>
#include <syslog.h>

static int sReport = -1;

extern "C" void openlog(const char* name, int option, int facility) {
    static const auto real = REAL_FUNCTION(openlog);
    if (sReport < 0)
        return real(name, option, facility);
    writeTo(sReport, std::string("openlog [") + (name ? name : "(null)") + "] option " +
                         std::to_string(option) + " facility " + std::to_string(facility) + "\n");
}

extern "C" void vsyslog(int priority, const char* format, va_list arguments) {
    static const auto real = REAL_FUNCTION(vsyslog);
    if (sReport < 0)
        return real(priority, format, arguments);
    char message[1024];
    vsnprintf(message, sizeof message, format, arguments);
    writeTo(sReport, "vsyslog priority " + std::to_string(priority) + " [" + message + "]\n");
}

/// What vsyslog becomes in code that is compiled with checks (_FORTIFY_SOURCE).
extern "C" void __vsyslog_chk(int priority, int, const char* format, va_list arguments) {
    vsyslog(priority, format, arguments);
}

extern "C" void closelog() {
    static const auto real = REAL_FUNCTION(closelog);
    if (sReport < 0)
        return real();
    writeTo(sReport, "closelog\n");
}

void noteSystemLogIn(int report) {
    sReport = report;
}
