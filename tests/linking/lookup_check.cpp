#include "linking/lookup_check.h"

#include "core/host.h"
#include "linking/host_symbols.h"

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

static int sFailures = 0;

static void expect(const std::string& what, const std::string& got, const std::string& wanted) {
    printf("%s: %s\n", what.c_str(), got.c_str());
    if (got == wanted)
        return;
    printf("    but should be: %s\n", wanted.c_str());
    ++sFailures;
}

/// A function of the cJSON library that this process has loaded, whether or not the program links it.
template <typename FUNCTION>
static FUNCTION ofCjson(const char* name) {
    void* const library = dlopen("libcjson.so.1", RTLD_NOW | RTLD_NOLOAD);
    void* const found = library ? dlsym(library, name) : nullptr;
    if (!found) {
        printf("no %s in this process\n", name);
        exit(2);
    }
    dlclose(library);
    return reinterpret_cast<FUNCTION>(found);
}

static void checkHostsLookup(const Functions& functions, const cJSON* tree, const Answers& wanted) {
    const cJSON* const item = functions.lookup(tree, "dimtime");
    expect("lookup by the host", item && item->valueint == 2 ? "ours" : "theirs", wanted.toTheHost);
}

static void checkCjsonsOperations(cJSON* tree, const Answers& wanted) {
    const auto has = ofCjson<cJSON_bool (*)(const cJSON*, const char*)>("cJSON_HasObjectItem");
    const auto detach = ofCjson<cJSON* (*)(cJSON*, const char*)>("cJSON_DetachItemFromObject");
    const auto remove = ofCjson<void (*)(cJSON*, const char*)>("cJSON_DeleteItemFromObject");
    const auto destroy = ofCjson<void (*)(cJSON*)>("cJSON_Delete");
    expect("cJSON's has-item", has(tree, "only") ? "ours" : "theirs", wanted.toCjson);
    cJSON* const detached = detach(tree, "dimtime");
    expect("cJSON's detach", detached && detached->valueint == 2 ? "ours" : "theirs", wanted.toCjson);
    destroy(detached);
    remove(tree, "vol");
    bool plainLeft = false;
    for (const cJSON* item = tree->child; item; item = item->next)
        plainLeft = plainLeft || std::string(item->string) == "vol";
    expect("cJSON's delete", plainLeft ? "ours" : "theirs", wanted.toCjson);
}

/// The last value that the library stored for "dimtime" in the host's table.
static int dimTime() {
    return GetKeyShm(gShmInfo, 13);
}

/// The library's own reading and changing of the settings, in a device root of this program's own.
static void checkLibrary(const Functions& functions, const std::string& root) {
    setenv("KESTRO_DEVICE_ROOT", root.c_str(), 1);
    fs::create_directories(root + "/mnt/UDISK");
    std::ofstream(root + "/mnt/UDISK/system.json") << R"({"dimtime.en.lang": 2, "dimtime": 1})";
    functions.loadSystemState(gShmInfo, nullptr);
    expect("lookup by loadSystemState", dimTime() == 2 ? "ours" : "theirs", "ours");
    functions.saveOneItem("dimtime", 3);
    functions.loadSystemState(gShmInfo, nullptr);
    // The variant is gone; what stays first is the old plain item.
    expect("lookup by saveOneItemInSystemState", dimTime() == 1 ? "ours" : "theirs", "ours");
}

int checkLookup(const Functions& functions, const Answers& wanted) {
    const auto parse = ofCjson<cJSON* (*)(const char*)>("cJSON_Parse");
    const auto destroy = ofCjson<void (*)(cJSON*)>("cJSON_Delete");
    cJSON* const tree = parse(R"({"dimtime": 1, "dimtime.en.lang": 2, "only.en.lang": 3,
                                  "vol": 4, "vol.en.lang": 5})");
    checkHostsLookup(functions, tree, wanted);
    checkCjsonsOperations(tree, wanted);
    destroy(tree);

    char root[] = "/tmp/kestro-test-XXXXXX";
    if (!mkdtemp(root))
        return 2;
    checkLibrary(functions, root);
    clearTableAway();
    fs::remove_all(root);
    return sFailures ? 1 : 0;
}
