#include "core/host.h"
#include "hostkit/files.h"

bool file_filter(const char* name, const char*) {
    return hostkit::isListedFile(name);
}
