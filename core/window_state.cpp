#include "core/window_state.h"

#include "core/log.h"

#include <cstdio>

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

static void writeTree(const cJSON* root, FILE* file) {
    char* text = cJSON_Print(root);
    if (!text)
        return;
    fputs(text, file);
    tprintf("save %s\n", text);
    cJSON_free(text);
}

void saveWindowsState(std::vector<KestroWindow*>& windows, const char* path) {
    if (windows.empty())
        return;
    tprintf("%d wins need to be saved\n", static_cast<int>(windows.size()));
    FILE* file = path ? fopen(path, "w+") : nullptr;
    if (!file)
        return;
    cJSON* root = cJSON_CreateObject();
    if (cJSON* list = root ? cJSON_AddArrayToObject(root, "list") : nullptr) {
        for (size_t i = 0; i < windows.size(); ++i) // saveState may change the stack
            if (windows[i])
                addWindow(list, windows[i]);
        writeTree(root, file);
    }
    cJSON_Delete(root);
    fclose(file);
}
