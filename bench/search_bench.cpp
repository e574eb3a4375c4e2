// The launcher's search, letter by letter.

#include "bench/support/comparison.h"
#include "bench/support/scratch_folder.h"
#include "bench/support/titles.h"
#include "navora/game_index.h"
#include "text/pinyin.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

std::vector<std::string> initialsOf(const std::vector<std::string>& titles) {
    std::vector<std::string> all;
    for (const std::string& title : titles) {
        char* const made = GetPinyinInitials2(title.c_str());
        all.emplace_back(made);
        free(made);
    }
    return all;
}

void search(const navora::GameIndex& index, const std::vector<std::string>& initials,
            const std::string& key) {
    size_t found = 0;
    const bench::Contender ours{"kestro", [&] { bench::keep(index.search(key)); }};
    const bench::Contender scanning{"scanning the initials once", [&] {
                                        found = 0;
                                        for (const std::string& text : initials)
                                            found += strcasestr(text.c_str(), key.c_str()) ? 1 : 0;
                                        bench::keep(found);
                                    }};
    const std::vector<double> times = bench::medianTimes({ours, scanning});
    const std::string operation = "search of 20,000 titles for \"" + key + "\"";
    constexpr double longest = 50e6;
    bench::report(operation, "50 ms", times[0] / longest, 1, times[0]);
    bench::report(operation, scanning.name, times[0] / times[1], 1.3, times[0]);
    if (index.search(key).size() != found) {
        fprintf(stderr, "%zu found instead of %zu\n", index.search(key).size(), found);
        exit(1);
    }
}

} // namespace

int main() {
    InitPinYinMap();
    std::vector<std::string> titles = bench::titles(20000);
    std::vector<std::string> names = titles;
    for (std::string& name : names)
        name += ".zip";
    const bench::ScratchFolder folder(names);
    navora::GameIndex index(folder.path());
    while (!index.isComplete())
        index.gather();
    const std::vector<std::string> initials = initialsOf(titles);
    for (const char* const typed : {"S", "SU", "SUP"})
        search(index, initials, typed);
}
