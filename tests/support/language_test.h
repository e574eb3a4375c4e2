#pragma once

#include "support/settings_test.h"
#include "system/language.h"

#include <string>
#include <vector>

/// A test of the languages in "./lang" of the working folder, which is not there at first.
class LanguageTest : public SettingsTest {
protected:
    /// Writes a language file. The place that it has in the order of the folder stays when it is written
    /// again.
    static void writeLanguage(const std::string& name, const std::string& json);

    /// Writes an empty file for each of the names and returns these in the order of the folder.
    static std::vector<std::string> placed(const std::vector<std::string>& names);

    /// The lines that reading the file of this name logs, when nothing is wrong with it.
    static std::string readLines(const std::string& name);

    /// The file names of gLangTable.
    static std::vector<std::string> fileNames();

    /// The record with this file name. Fails without one.
    static const LangRecord& record(const std::string& fileName);
};
