#include "core/window_state.h"

#include "core/log.h"
#include "system/settings_journal.h"

#include <cstdio>
#include <unistd.h>

static void addWindow(cJSON* list, KestroWindow* window) {
    tprintf("save state for window %p\n", static_cast<void*>(window));
    cJSON* entry = cJSON_CreateObject();
    if (!entry)
        return;
    cJSON_AddNumberToObject(entry, "title", window->titleId);
    cJSON_AddNumberToObject(entry, "type", window->type);
    window->saveState(entry);
    cJSON_AddItemToArray(list, entry);
}

static void addWindows(cJSON* list, std::vector<KestroWindow*>& windows) {
    for (size_t i = 0; i < windows.size(); ++i) // saveState may change the stack
        if (windows[i])
            addWindow(list, windows[i]);
}

/// Null without memory for it.
static kestro::JsonTextPtr textOf(std::vector<KestroWindow*>& windows) {
    const kestro::JsonPtr root(cJSON_CreateObject());
    cJSON* const list = root ? cJSON_AddArrayToObject(root.get(), "list") : nullptr;
    if (!list)
        return nullptr;
    addWindows(list, windows);
    return kestro::printed(root.get());
}

void saveWindowsState(std::vector<KestroWindow*>& windows, const char* path) {
    if (windows.empty())
        return;
    tprintf("%d wins need to be saved\n", static_cast<int>(windows.size()));
    // With the journal the old state stays until the new one is safe beside it.
    FILE* const file = path ? fopen(path, kestro::journalIsOn() ? "a+" : "w+") : nullptr;
    if (!file)
        return;
    const kestro::JsonTextPtr text = textOf(windows);
    if (text && kestro::writeSideCopy(path, text.get()) && ftruncate(fileno(file), 0) == 0) {
        fputs(text.get(), file);
        tprintf("save %s\n", text.get());
        kestro::endSideCopy(path, file);
    }
    fclose(file);
}

cJSON* loadWindowsState(const char* path) {
    kestro::JsonPtr root = path ? kestro::parseProtected(path, path) : nullptr;
    const bool usable = root && cJSON_IsArray(cJSON_GetObjectItemCaseSensitive(root.get(), "list"));
    return usable ? root.release() : nullptr;
}
