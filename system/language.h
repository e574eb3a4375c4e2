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

/// One language as a setting page shows it.
struct LangInfo {
    std::string fileName;    ///< such as "es.lang"
    std::string displayName; ///< the language's own name
    std::string iconPath;    ///< "skin/…", or empty
};

/// Reads the languages from the folder "./lang" into gLangTable, English first; the others come in the
/// order of the folder. Writes "./lang/en.lang" if it is not there. Files that cannot be used are logged and
/// passed over. Languages with the same display name become one record, which keeps its texts and takes the
/// shorter file name. Call it once, after the working folder is set: a second call appends the records
/// again.
KESTRO_API void initLang();

/// The smallest index whose text in the first record of the file `fileName` equals `text`; -1 for null and
/// when there is none.
KESTRO_API int getLangIndex(const char* fileName, const char* text);

/// One entry a language, in the order of the table. The library owns the one list, which every call fills
/// anew.
KESTRO_API std::vector<LangInfo>* getLangList();

/// The number of string indexes. All of this is for the main thread.
KESTRO_API int getLangIndexNum();
