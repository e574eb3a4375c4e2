#pragma once

#include <string>

namespace hostkit {

/// Makes `file`, such as "ch.lang", the language by the owner's choice. Main thread, like everything here.
void changeLanguage(const std::string& file);

/// Shows `file` in place of the owner's language, which is the one in force and remains what the settings
/// keep;
/// "" shows that. For after the settings were loaded.
void useLanguageForThisRun(const std::string& file);

/// Saves what the owner has set, not the theme and language that are only this run's.
void saveSettings();

} // namespace hostkit
