#pragma once

#include <dlfcn.h>

/// The function that a substitute in this executable has taken the place of. FUNCTION is its name. That of a
/// sanitizer comes before the library's own: clang puts it into the executable, where RTLD_NEXT does not
/// look.
#define REAL_FUNCTION(FUNCTION)                                                                              \
    reinterpret_cast<decltype(&FUNCTION)>(realFunction("__interceptor_" #FUNCTION, #FUNCTION))

inline void* realFunction(const char* checked, const char* name) {
    void* const found = dlsym(RTLD_DEFAULT, checked);
    return found ? found : dlsym(RTLD_NEXT, name);
}
