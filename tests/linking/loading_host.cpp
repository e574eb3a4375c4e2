// A host that loads the library at run time.
//
//     loading_host LIBRARY TO-THE-HOST TO-CJSON local|global
#include "linking/lookup_check.h"

#include <cstdio>
#include <cstring>
#include <dlfcn.h>

template <typename FUNCTION>
static FUNCTION named(void* library, const char* name) {
    void* const found = dlsym(library, name);
    if (!found)
        printf("%s\n", dlerror());
    return reinterpret_cast<FUNCTION>(found);
}

/// The lookup that the program gets by name: that of cJSON if it is linked with it, or the library's, where
/// that was loaded for all. Of a library that was loaded for nobody else, a program has to ask for it.
static void* lookupIn(void* library) {
    void* const linked = dlsym(RTLD_DEFAULT, "cJSON_GetObjectItem");
    return linked ? linked : dlsym(library, "cJSON_GetObjectItem");
}

int main(int, char** argv) {
    const int scope = strcmp(argv[4], "global") == 0 ? RTLD_GLOBAL : RTLD_LOCAL;
    void* const library = dlopen(argv[1], RTLD_NOW | scope);
    if (!library) {
        printf("%s\n", dlerror());
        return 2;
    }
    const Functions functions{
        reinterpret_cast<decltype(Functions::lookup)>(lookupIn(library)),
        named<decltype(Functions::loadSystemState)>(library, "_Z15loadSystemStatePvPPc"),
        named<decltype(Functions::saveOneItem)>(library, "_Z24saveOneItemInSystemStatePKci"),
    };
    if (!functions.lookup || !functions.loadSystemState || !functions.saveOneItem)
        return 2;
    return checkLookup(functions, {argv[2], argv[3]});
}
