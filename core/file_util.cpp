#include "core/file_util.h"

#include <climits>
#include <cstdio>
#include <cstring>

int dumpToFile(const char* path, const void* data, int size) {
    FILE* file = path ? fopen(path, "wb") : nullptr;
    if (!file)
        return printf("can not open %s\n",
                      path ? path : "(null)"); // not the logger: it may be the log that fails
    if (data && size > 0)
        fwrite(data, 1, static_cast<size_t>(size), file);
    return fclose(file);
}

int fileWriteString(const char* path, const char* text) {
    return text ? dumpToFile(path, text, static_cast<int>(strlen(text))) : 0;
}

int fileWriteInt(const char* path, int value) {
    char text[128];
    snprintf(text, sizeof text, "%d", value);
    return fileWriteString(path, text);
}

int fileToMem(const char* path, void* buffer) {
    FILE* file = path && buffer ? fopen(path, "r") : nullptr;
    if (!file)
        return 0;
    size_t read = 0;
    if (fseek(file, 0, SEEK_END) == 0) {
        long size = ftell(file);
        rewind(file);
        if (size > 0 && size != LONG_MAX) // LONG_MAX is the size of a folder
            read = fread(buffer, 1, static_cast<size_t>(size), file);
    }
    fclose(file);
    return static_cast<int>(read);
}

unsigned char CharToHex(unsigned char c) {
    if (c >= '0' && c <= '9')
        return static_cast<unsigned char>(c - '0');
    if (c >= 'A' && c <= 'F')
        return static_cast<unsigned char>(c - 'A' + 10);
    if (c >= 'a' && c <= 'f')
        return static_cast<unsigned char>(c - 'a' + 10);
    return 255;
}

unsigned char HexToChar(unsigned char v) {
    if (v < 10)
        return static_cast<unsigned char>('0' + v);
    if (v < 16)
        return static_cast<unsigned char>('A' + v - 10);
    return 255;
}
