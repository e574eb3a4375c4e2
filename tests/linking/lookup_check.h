#pragma once

#include <cJSON.h>

#include <string>

/// What a program on the library can do with it, however it got it.
struct Functions {
    cJSON* (*lookup)(const cJSON*, const char*); ///< cJSON_GetObjectItem, as the program sees it
    void (*loadSystemState)(void* shm, char** theme);
    int (*saveOneItem)(const char* key, int value);
};

/// Whose lookup of object members answers: "ours", which prefers the variant of the current language, or
/// "theirs", which is cJSON's.
struct Answers {
    std::string toTheHost; ///< to the program's own call
    std::string toCjson;   ///< to cJSON's own operations by name
};

/// Checks that the answers are as wanted, and that the library itself uses its own lookup in any case. Says
/// what is wrong, and returns the program's exit status.
int checkLookup(const Functions& functions, const Answers& wanted);
