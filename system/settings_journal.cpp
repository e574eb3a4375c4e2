#include "system/settings_journal.h"

#include "core/log.h"
#include "core/out_of_memory.h"
#include "system/system_state.h"

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

static bool sJournal = false;

void setSettingsJournal(bool on) {
    sJournal = on;
}

static std::string sideCopyOf(const char* path) {
    return std::string(path) + ".new";
}

/// Makes a new or a removed name durable too.
static void syncFolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

static bool writeAndSync(FILE* file, const char* text) {
    const bool written = fputs(text, file) >= 0 && fflush(file) == 0;
    return written && fsync(fileno(file)) == 0;
}

namespace kestro {

bool journalIsOn() {
    return sJournal;
}

/// A copy that is all that a power cut has left goes back into the file before it is written over: a second
/// cut would take it too.
static void restoreFromSideCopy(const char* path, const std::string& copy) {
    if (access(copy.c_str(), F_OK) != 0 || parsePath(path, path))
        return;
    const JsonPtr root = parsePath(copy.c_str(), copy.c_str());
    const JsonTextPtr text = root ? printed(root.get()) : nullptr;
    FILE* const file = text ? fopen(path, "w") : nullptr;
    if (!file)
        return;
    writeAndSync(file, text.get());
    fclose(file);
    syncFolderOf(path);
}

static bool isNameless(const char* path) {
    struct stat status {};
    return stat(path, &status) == 0 && status.st_nlink == 0;
}

static bool writeSideCopyUnguarded(const char* path, const char* text) {
    const std::string copy = sideCopyOf(path);
    restoreFromSideCopy(path, copy);
    FILE* const file = fopen(copy.c_str(), "w");
    const bool synced = file && writeAndSync(file, text);
    const bool closed = file && fclose(file) == 0;
    if (synced && closed)
        syncFolderOf(copy);
    else
        tprintf("can not write %s, %s stays as it is\n", copy.c_str(), path);
    return synced && closed;
}

bool writeSideCopy(const char* path, const char* text) {
    if (!sJournal || isNameless(path))
        return true;
    return unlessOutOfMemory(__func__, false, [=] { return writeSideCopyUnguarded(path, text); });
}

void endSideCopy(const char* path, FILE* written) {
    if (!sJournal)
        return;
    // A file that is not known to be complete keeps its copy.
    if (fflush(written) != 0 || ferror(written) || fsync(fileno(written)) != 0)
        return;
    unlessOutOfMemory(__func__, [=] {
        const std::string copy = sideCopyOf(path);
        if (unlink(copy.c_str()) == 0)
            syncFolderOf(copy);
    });
}

static JsonPtr parseSideCopy(const char* path) {
    const std::string copy = sideCopyOf(path);
    JsonPtr root = parsePath(copy.c_str(), copy.c_str());
    if (root)
        tprintf("%s is unusable, use %s\n", path, copy.c_str());
    return root;
}

JsonPtr parseProtected(const char* name, const char* path, bool* opened) {
    JsonPtr root = parsePath(name, path, opened);
    if (root || !sJournal)
        return root;
    return unlessOutOfMemory<JsonPtr>(__func__, nullptr, [=] { return parseSideCopy(path); });
}

JsonPtr parseSettings(const char* path, bool* opened) {
    return parseProtected("system.json", path, opened);
}

} // namespace kestro
