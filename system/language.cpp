#include "system/language.h"

#include "core/load_order.h"
#include "core/out_of_memory.h"
#include "system/current_language.h"

#include <type_traits>

// 2 and 3 are two words that happen to be alike in English.
std::vector<std::string> gDefaultStringList KESTRO_LOADED_DEFAULT_STRINGS = {
    "Cancel", "OK", "LOADING...", "LOADING...", "OPEN", "BACK", "NAV", "MENU",
};

std::vector<LangRecord> gLangTable KESTRO_LOADED_LANGUAGE_TABLE;

static std::vector<LangInfo> sLangList KESTRO_LOADED_LANGUAGE_LIST;

// A table that grows moves its records, so that texts handed out by getLangStr stay where they are.
static_assert(std::is_nothrow_move_constructible_v<LangRecord>);

int getLangIndexNum() {
    return static_cast<int>(gDefaultStringList.size());
}

const char* getDefLang(int index) {
    if (index < 0 || index >= getLangIndexNum())
        return nullptr;
    return gDefaultStringList[static_cast<size_t>(index)].c_str();
}

const char* getLangStr(int index) {
    if (index < 0)
        return "";
    if (index >= getLangIndexNum())
        return "wrongbeef"; // seen on screen, it tells the developer that a word was never registered
    for (const LangRecord& record : gLangTable) {
        if (record.fileName != getSystemLanguage())
            continue;
        const auto found = record.strings.find(index);
        if (found != record.strings.end())
            return found->second.c_str();
    }
    return getDefLang(index);
}

int getLangIndex(const char* fileName, const char* text) {
    if (!fileName || !text)
        return -1;
    for (const LangRecord& record : gLangTable) {
        if (record.fileName != fileName)
            continue;
        for (const auto& [index, word] : record.strings)
            if (word == text)
                return index;
        return -1;
    }
    return -1;
}

std::vector<LangInfo>* getLangList() {
    sLangList.clear();
    kestro::unlessOutOfMemory(__func__, [] {
        for (const LangRecord& record : gLangTable)
            sLangList.push_back({record.fileName, record.displayName, record.iconPath});
    });
    return &sLangList;
}
