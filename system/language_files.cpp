#include "system/language.h"

#include "core/log.h"
#include "core/out_of_memory.h"
#include "system/content.h"
#include "system/json_file.h"
#include "system/json_lookup_internal.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using kestro::JsonPtr;
using kestro::JsonTextPtr;

namespace {

struct Close {
    void operator()(FILE* file) const { fclose(file); }
    void operator()(DIR* opened) const { closedir(opened); }
};
using FilePtr = std::unique_ptr<FILE, Close>;
using DirPtr = std::unique_ptr<DIR, Close>;

} // namespace

static constexpr char folder[] = "./lang";
static constexpr char englishFile[] = "en.lang";
static constexpr char englishPath[] = "./lang/en.lang";
static constexpr char englishName[] = "English";

static std::string keyOf(int index) {
    char key[16];
    snprintf(key, sizeof key, "%d", index);
    return key;
}

/// The tree of a language file; null, with a log line, if it cannot be read or parsed.
static JsonPtr parseLangFile(const std::string& path, FILE* file) {
    char* text = nullptr;
    if (loadContent(path.c_str(), file, &text) != 0) {
        tprintf("read %s content fail\n", path.c_str());
        free(text);
        return nullptr;
    }
    JsonPtr root(cJSON_Parse(text));
    if (!root) {
        const char* const error = cJSON_GetErrorPtr(); // points into the text
        tprintf("parse %s content fail:%s\n", path.c_str(), error ? error : "(null)");
    }
    free(text);
    return root;
}

/// Takes over what the tree says. The icon stays as it was where the tree names none.
static bool takeRecord(const std::string& path, const cJSON* root, LangRecord& record) {
    const char* const name = kestro::findText(root, "lang");
    if (!name) {
        tprintf("%s have no lang string\n", path.c_str());
        return false;
    }
    record.displayName = name;
    if (const char* const icon = kestro::findText(root, "icon"))
        record.iconPath = std::string("skin/") + icon;
    for (int index = 0; index < getLangIndexNum(); ++index) {
        const char* const word = kestro::findText(root, keyOf(index).c_str());
        record.strings[index] = word ? word : getDefLang(index);
    }
    return true;
}

static bool readRecord(const std::string& path, FILE* file, LangRecord& record) {
    tprintf("lang file %s\n", path.c_str());
    const JsonPtr root = parseLangFile(path, file);
    return root && takeRecord(path, root.get(), record);
}

/// Reads one file into `record`. Its texts are cleared first, its names are not.
static bool loadLangFile(const std::string& path, LangRecord& record) {
    record.strings.clear();
    const FilePtr file(fopen(path.c_str(), "r"));
    bool ok = false;
    if (file) {
        record.fileName = path.substr(path.rfind('/') + 1);
        ok = readRecord(path, file.get(), record);
    }
    tprintf("read lang file %s ok=%d\n", path.c_str(), ok);
    return ok;
}

static void writeEnglish() {
    const JsonPtr root(cJSON_CreateObject());
    if (!root)
        return;
    cJSON_AddStringToObject(root.get(), "lang", englishName);
    for (int index = 0; index < getLangIndexNum(); ++index)
        cJSON_AddStringToObject(root.get(), keyOf(index).c_str(), getDefLang(index));
    const JsonTextPtr text = kestro::printed(root.get());
    FILE* const file = text ? fopen(englishPath, "w+") : nullptr;
    if (!file)
        return;
    fputs(text.get(), file);
    fclose(file);
}

static LangRecord builtInEnglish() {
    LangRecord record{englishFile, englishName, "", {}};
    for (int index = 0; index < getLangIndexNum(); ++index)
        record.strings[index] = getDefLang(index);
    return record;
}

static void addEnglish() {
    LangRecord record;
    const bool complete =
        loadLangFile(englishPath, record) && record.strings.size() >= static_cast<size_t>(getLangIndexNum());
    gLangTable.push_back(complete ? std::move(record) : builtInEnglish());
}

/// Adds a record, or what it has more to one of the same display name. The shorter file name wins.
static void addOrMerge(const LangRecord& record) {
    for (LangRecord& known : gLangTable) {
        if (record.displayName.empty() || known.displayName != record.displayName)
            continue;
        known.strings.insert(record.strings.begin(), record.strings.end());
        if (known.fileName.size() > record.fileName.size()) {
            known.fileName = record.fileName;
            known.displayName = record.displayName;
        }
        return;
    }
    gLangTable.push_back(record);
}

static bool isLanguageFile(const std::string& name) {
    if (name == englishFile || name.find(".short") != std::string::npos)
        return false;
    struct stat status {};
    return stat((std::string(folder) + "/" + name).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

static void addOthers() {
    const DirPtr opened(opendir(folder));
    LangRecord record; // one for all: a file without icon shows the icon of the file before
    while (const dirent* const entry = opened ? readdir(opened.get()) : nullptr)
        kestro::unlessOutOfMemory("initLang", [&] {
            const std::string name = entry->d_name;
            if (isLanguageFile(name) && loadLangFile(std::string(folder) + "/" + name, record))
                addOrMerge(record);
        });
}

void initLang() {
    if (access(folder, F_OK) != 0)
        mkdir(folder, 0777);
    if (access(englishPath, F_OK) != 0)
        kestro::unlessOutOfMemory(__func__, writeEnglish);
    kestro::unlessOutOfMemory(__func__, addEnglish);
    addOthers();
}
