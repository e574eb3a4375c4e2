#include "hostkit/settings.h"

#include "core/host.h"
#include "hostkit/theme.h"
#include "system/current_language.h"
#include "system/language.h"
#include "system/system_state.h"

namespace hostkit {

static std::string sChosenLanguage; // where this run has another one, else empty

void changeLanguage(const std::string& file) {
    sChosenLanguage.clear();
    setSystemLanguage(file.c_str());
}

void useLanguageForThisRun(const std::string& file) {
    sChosenLanguage.clear();
    if (file.empty())
        return;
    sChosenLanguage = getSystemLanguage();
    setSystemLanguage(file.c_str());
}

void saveSettings() {
    const std::string shown = getSystemLanguage();
    if (!sChosenLanguage.empty())
        setSystemLanguage(sChosenLanguage.c_str()); // the library saves the one in force
    saveSystemState(gShmInfo, savedTheme());
    setSystemLanguage(shown.c_str());
}

} // namespace hostkit
