#include "system/current_language.h"

#include <cstdlib>
#include <cstring>
#include <strings.h>

static char sLanguage[65]; // 64 bytes of name, and always a terminator

void setSystemLanguage(const char* file) {
    // putenv keeps its argument, so these live as long as the process.
    static char english[] = "LANG=en_US.UTF8";
    static char chinese[] = "LANG=zh_CN.UTF8";
    static char spanish[] = "LANG=es_ES.UTF8";
    static char portuguese[] = "LANG=pt_BR.UTF8";
    static char japanese[] = "LANG=ja_JP.UTF8";
    static char korean[] = "LANG=ko_KR.UTF8";
    static const struct {
        const char* file;
        char* variable;
    } locales[] = {
        {"en.lang", english},    {"ch.lang", chinese},  {"es.lang", spanish},
        {"pt.lang", portuguese}, {"jp.lang", japanese}, {"ko.lang", korean},
    };
    if (!file)
        return;
    char name[sizeof sLanguage] = {}; // `file` may be the buffer itself
    strncpy(name, file, sizeof name - 1);
    memcpy(sLanguage, name, sizeof name);
    for (const auto& locale : locales)
        if (strcasecmp(name, locale.file) == 0)
            putenv(locale.variable);
}

const char* getSystemLanguage() {
    return *sLanguage ? sLanguage : "en.lang";
}
