#pragma once

#include "core/export.h"

/// Makes the language file `file`, such as "es.lang", the current language, and sets LANG to match for
/// the languages that are known (whatever the case of the name). Names are cut to 64 bytes; null is
/// ignored. Takes effect at the next draw. Main thread.
KESTRO_API void setSystemLanguage(const char* file);

/// The current language's file name, "en.lang" when none was set. Never null; valid until the next
/// setSystemLanguage. Main thread.
KESTRO_API const char* getSystemLanguage();
