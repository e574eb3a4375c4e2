#pragma once

#include <dlfcn.h>

/// The function that a substitute in this executable has taken the place of. FUNCTION is its name.
#define REAL_FUNCTION(FUNCTION) reinterpret_cast<decltype(&FUNCTION)>(dlsym(RTLD_NEXT, #FUNCTION))
