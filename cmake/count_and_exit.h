#pragma once

// Included before every source in a build that counts which lines run: see options.cmake. The declaration
// comes before _exit is another name.
#ifdef __cplusplus
#pragma push_macro("_exit")
#undef _exit
#include <unistd.h>

extern "C" void __gcov_dump();

[[noreturn]] inline void kestroCountAndExit(int status) {
    __gcov_dump();
    _exit(status);
}
#pragma pop_macro("_exit")
#endif
