#pragma once

#include "core/export.h"

#include <map>
#include <string>
#include <vector>

/// One language of the table.
struct LangRecord {
    std::string fileName;               ///< such as "es.lang"
    std::string displayName;            ///< the language's own name
    std::string iconPath;               ///< "skin/…", or empty
    std::map<int, std::string> strings; ///< text by string index
};

/// The built-in words. Their number is the number of string indexes; a host may append its own before the
/// languages are read.
extern KESTRO_API std::vector<std::string> gDefaultStringList;

/// The languages that were read, English first; empty until then.
extern KESTRO_API std::vector<LangRecord> gLangTable;

/// The word `index` in the current language, else built in; "" for a negative index and "wrongbeef" for
/// one beyond the last. Never null; valid until the table changes. Main thread.
KESTRO_API const char* getLangStr(int index);

/// The built-in word `index`; null if there is none. Valid until gDefaultStringList changes.
KESTRO_API const char* getDefLang(int index);

/// The number of string indexes.
KESTRO_API int getLangIndexNum();
