#include "navora/settings.h"

#include "core/host.h"
#include "navora/clock.h"
#include "navora/theme.h"
#include "navora/words.h"
#include "system/current_language.h"
#include "system/features.h"
#include "system/language.h"
#include "system/system_state.h"

#include <cstdlib>

namespace navora {

static std::string sChosenLanguage; // where this run has another one, else empty

void loadSettings(const Options& options) {
    char* theme = nullptr;
    setSettingsJournal(true);
    loadSystemState(gShmInfo, &theme);
    loadSystemFunction();
    addWords();
    initLang();
    startTheme(theme ? theme : "", options.theme);
    free(theme);
    if (!options.language.empty()) {
        sChosenLanguage = getSystemLanguage();
        setSystemLanguage(options.language.c_str());
    }
    applyTimeZone();
}

void changeLanguage(const std::string& file) {
    sChosenLanguage.clear();
    setSystemLanguage(file.c_str());
}

void saveSettings() {
    const std::string shown = getSystemLanguage();
    if (!sChosenLanguage.empty())
        setSystemLanguage(sChosenLanguage.c_str()); // the library saves the one in force
    saveSystemState(gShmInfo, savedTheme());
    setSystemLanguage(shown.c_str());
}

} // namespace navora
