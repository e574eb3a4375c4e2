#include "navora/programs.h"
#include "navora/state_folder.h"

#include <cstdio>

namespace navora {

static constexpr const char* sName = "navora.json";

static bool readInto(Programs& programs, const std::string& path) {
    std::string text;
    if (!readSmallFile(path, text))
        return false;
    const std::string problem = programs.read(text);
    if (problem.empty())
        return true;
    fprintf(stderr, "navora: %s: %s\n", path.c_str(), problem.c_str());
    return false;
}

Programs loadPrograms() {
    for (const std::string& folder : {stateFolder(), configFolder()}) {
        Programs programs;
        std::string text;
        const std::string path = folder + "/" + sName;
        if (folder.empty() || !readSmallFile(path, text))
            continue;
        if (readInto(programs, path))
            return programs;
        break;
    }
    Programs shipped;
    readInto(shipped, sName);
    return shipped;
}

} // namespace navora
