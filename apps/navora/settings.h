#pragma once

#include "navora/options.h"

#include <string>

namespace navora {

/// Takes what the owner has set, and what the command line says instead for this run.
void loadSettings(const Options& options);

/// Makes a language file, such as "ch.lang", the language by the owner's choice.
void changeLanguage(const std::string& file);

/// Saves what the owner has set, not what the command line says.
void saveSettings();

} // namespace navora
