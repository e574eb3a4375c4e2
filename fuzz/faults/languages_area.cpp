#include "fuzz/faults/memory_areas.h"
#include "kestro.h"

#include <filesystem>
#include <string>

namespace fs = std::filesystem;

namespace {

void prepareLanguages() {
    fs::remove("lang/en.lang"); // it is written then
    for (const char* file : {"ch.lang", "es.lang"})
        fs::copy_file(FUZZ_ASSETS "/lang/" + std::string(file), "lang/" + std::string(file),
                      fs::copy_options::overwrite_existing);
    gLangTable.clear();
}

void useLanguages() {
    initLang();
    setSystemLanguage("ch.lang");
    for (int index = -1; index <= getLangIndexNum(); ++index)
        getLangStr(index);
    getLangList();
    getLangIndex("ch.lang", "OK");
}

bool languagesAreThere() {
    gLangTable.clear();
    initLang();
    setSystemLanguage("es.lang");
    return getLangList()->size() == 3 && getLangStr(0) == std::string("Cancelar");
}

} // namespace

fuzz::MemoryArea fuzz::languagesArea() {
    return {"languages", prepareLanguages, useLanguages, languagesAreThere, false};
}
