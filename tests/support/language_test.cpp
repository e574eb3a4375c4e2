#include "support/language_test.h"

#include <dirent.h>

#include <algorithm>

void LanguageTest::writeLanguage(const std::string& name, const std::string& json) {
    writeFile("lang/" + name, json);
}

std::vector<std::string> LanguageTest::placed(const std::vector<std::string>& names) {
    for (const std::string& name : names)
        writeLanguage(name, "");
    std::vector<std::string> inOrder;
    DIR* const folder = opendir("lang");
    while (const dirent* const entry = readdir(folder))
        if (std::find(names.begin(), names.end(), entry->d_name) != names.end())
            inOrder.push_back(entry->d_name);
    closedir(folder);
    return inOrder;
}

std::string LanguageTest::readLines(const std::string& name) {
    return "lang file ./lang/" + name + "\nread lang file ./lang/" + name + " ok=1\n";
}

std::vector<std::string> LanguageTest::fileNames() {
    std::vector<std::string> names;
    for (const LangRecord& language : gLangTable)
        names.push_back(language.fileName);
    return names;
}

const LangRecord& LanguageTest::record(const std::string& fileName) {
    static const LangRecord none;
    for (const LangRecord& language : gLangTable)
        if (language.fileName == fileName)
            return language;
    ADD_FAILURE() << "no language " << fileName;
    return none;
}
