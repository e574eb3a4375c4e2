#include <core/host.h>

// The host symbols that a program defines by itself: those whose macro is defined.

int gOwnCalls = 0;

#ifdef OWN_gShmInfo
void* gShmInfo = nullptr;
#endif
#ifdef OWN_gThemePath
const char* gThemePath = "own/";
#endif
#ifdef OWN_gKeyChunk
static Mix_Chunk sSilence;
Mix_Chunk* gKeyChunk = &sSilence;
#endif
#ifdef OWN_GetKeyShm
int GetKeyShm(void*, int) {
    return 41;
}
#endif
#ifdef OWN_SetKeyShm
void SetKeyShm(void*, int, int) {
    ++gOwnCalls;
}
#endif
#ifdef OWN_initJoyStick
void initJoyStick() {
    ++gOwnCalls;
}
#endif
#ifdef OWN_file_filter
bool file_filter(const char*, const char*) {
    return false;
}
#endif
#ifdef OWN_file_handler
TextMenuItem* file_handler(const char*, const char*, int) {
    return nullptr;
}
#endif
