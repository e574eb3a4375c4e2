#include "end_to_end/navora_run.h"

#include <algorithm>
#include <fstream>

/// The keys to all pages of tools/contact-sheet.
static std::vector<std::string> keysToPages() {
    std::ifstream file(NAVORA_SOURCES "/tools/contact-sheet.pages");
    std::vector<std::string> all;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        std::string keys = line.substr(std::min(line.size(), line.find('|') + 1));
        keys.erase(std::remove(keys.begin(), keys.end(), ' '), keys.end());
        all.push_back(keys);
    }
    return all;
}

class NavoraPagesTest : public NavoraTest {};

TEST_F(NavoraPagesTest, TheContactSheetsKeysLeadToPagesOfTheirOwn) {
    std::vector<Picture> pages;
    for (const std::string& keys : keysToPages()) {
        pages.push_back(shot(NAVORA_RUN_FOLDER "/sample", keys).without(layout::clock));
        EXPECT_EQ(std::count(pages.begin(), pages.end(), pages.back()), 1) << keys;
    }
    EXPECT_GE(pages.size(), 7u);
}
