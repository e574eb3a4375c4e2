#pragma once

#include "core/export.h"

/// Replaces the content of `path` with the `size` bytes at `data`. A size below 1 or null data leaves an
/// empty file. Returns the result of closing the file (0 when all went well); when the file cannot be
/// opened, prints "can not open PATH" to standard output and returns what that print returned, which is
/// above 0. A null path counts as a file that cannot be opened. Any thread.
KESTRO_API int dumpToFile(const char* path, const void* data, int size);

/// Replaces the content of `path` with `text`, without terminator or newline. Null text leaves the file
/// untouched and returns 0; otherwise the result is that of dumpToFile. Any thread.
KESTRO_API int fileWriteString(const char* path, const char* text);

/// Replaces the content of `path` with `value` in decimal, without newline. Returns as dumpToFile does.
/// Any thread.
KESTRO_API int fileWriteInt(const char* path, int value);

/// Reads the whole file into `buffer`, which the caller has made larger than the file: there is no bound,
/// and no terminating zero is added. Returns the number of bytes read; 0 when the file cannot be opened,
/// is empty, or has no size (a pipe, a folder), and for a null path or buffer. Any thread.
KESTRO_API int fileToMem(const char* path, void* buffer);

/// The value of a hexadecimal digit of either case: 0 to 15; 255 for any other character. Any thread.
KESTRO_API unsigned char CharToHex(unsigned char c);

/// The hexadecimal digit, in upper case, of a value from 0 to 15; 255 for anything larger. Any thread.
KESTRO_API unsigned char HexToChar(unsigned char v);
