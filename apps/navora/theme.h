#pragma once

#include <string>
#include <vector>

namespace navora {

/// A theme that the owner can choose.
struct Theme {
    std::string name;
    std::string folder; ///< ends in "/"; empty for the default theme
};

/// The default theme, those in "./themes" by name, and, where they are elsewhere, the owner's and this run's.
const std::vector<Theme>& themes();

/// The position of the theme in force in themes().
int currentTheme();

/// Makes a folder the library's theme, before the skin is loaded: the one that the owner has chosen, or for
/// this run another one. Each is "" for none, which makes it the default theme.
void startTheme(const std::string& chosen, const std::string& forThisRun);

/// What the settings file keeps: the folder that the owner has chosen, null for the default theme. Valid
/// until the theme changes.
const char* savedTheme();

/// Changes the theme while the launcher runs, by the owner's choice: the skin is loaded anew, and what the
/// old theme has left in the caches goes.
void changeTheme(const std::string& folder);

/// Changes with every change of theme.
int themeNumber();

} // namespace navora
