#pragma once

#include <string>

namespace hostkit {

/// Makes `folder` the library's theme (gThemePath), "" the default one, which lies in "./"; a "/" at its end
/// is not needed. Where `forThisRun` is not empty, that folder is shown in its place, and `folder` remains
/// what the settings keep. For before the skin is loaded. Main thread, like everything here.
void useTheme(const std::string& folder, const std::string& forThisRun = "");

/// Changes the theme while the skin is in use, by the owner's choice: it is loaded anew, and the icons and
/// texts of the old theme are forgotten. Lists take it over by refresh().
void changeTheme(const std::string& folder);

/// Loads the theme in force anew, as changeTheme does, for pictures that went down with the screen.
/// gThemePath then names the same folder in other words.
void reloadTheme();

/// The folder in force, ending in "/"; "" for the default theme.
const std::string& themeFolder();

/// What the settings file keeps: the folder that the owner has chosen, null for the default theme. Valid
/// until the theme changes.
const char* savedTheme();

/// Grows with every changeTheme and reloadTheme, so that a page can tell whether it shows the theme in force.
int themeNumber();

} // namespace hostkit
