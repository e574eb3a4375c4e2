// A language file, both as the language in force and as one more of the list.
#include "fuzz/support/device.h"
#include "system/language.h"

#include <cstring>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::put("/work/lang/en.lang", data, size);
    fuzz::put("/work/lang/ch.lang", data, size);
    gLangTable.clear(); // which initLang adds to
    initLang();
    for (int index = -1; index <= getLangIndexNum(); ++index)
        if (const char* const word = getLangStr(index))
            getLangIndex("ch.lang", word);
    getLangList();
    return 0;
}
