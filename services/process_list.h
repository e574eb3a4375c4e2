#pragma once

#include "core/export.h"

/// The id of a running process whose command contains `name`, or -1 if there is none or the process list
/// cannot be read. Only a process's first argument counts, up to 511 bytes of it, and in it only the first
/// occurrence of `name`, which must end the text or stand before a space: "/usr/sbin/name" and "name -B"
/// match, "name2" does not. Null counts as "". `verbose` logs what was found. Any thread.
KESTRO_API int check_process_exist(const char* name, bool verbose);
