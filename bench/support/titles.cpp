#include "bench/support/titles.h"

#include <iterator>
#include <random>
#include <set>

namespace bench {

namespace {

class TitleMaker {
public:
    std::string make() {
        switch (below(3)) {
        case 0:
            return chinese(3 + below(8));
        case 1:
            return latin(1 + below(3)) + " " + std::to_string(below(2000));
        default:
            return chinese(2 + below(4)) + " " + latin(1 + below(2));
        }
    }

private:
    std::mt19937 mRandom{2024};

    size_t below(size_t end) { return mRandom() % end; } // the same with every standard library

    std::string chinese(size_t length) {
        std::string text;
        for (; length > 0; --length) {
            const size_t rank = below(3500) * below(3500) / 3500; // low ranks more often
            const size_t codePoint = 0x4E00 + rank * 2654435761u % 0x5190;
            text += static_cast<char>(0xE0 | codePoint >> 12);
            text += static_cast<char>(0x80 | (codePoint >> 6 & 0x3F));
            text += static_cast<char>(0x80 | (codePoint & 0x3F));
        }
        return text;
    }

    std::string latin(size_t words) {
        static const char* const all[] = {
            "Adventure", "Alien",  "Arena",  "Battle", "Block", "Bomb",    "Castle", "Circus", "City",
            "Combat",    "Crazy",  "Cup",    "Dragon", "Dream", "Fantasy", "Fire",   "Golf",   "Hero",
            "Island",    "Kid",    "Legend", "Magic",  "Moon",  "Night",   "Ninja",  "Planet", "Power",
            "Quest",     "Racing", "Road",   "Soccer", "Space", "Star",    "Street", "Super",  "Tank",
            "Tennis",    "the",    "Turbo",  "World",  "Zone"};
        std::string text;
        for (; words > 0; --words)
            text += (text.empty() ? "" : " ") + std::string(all[below(std::size(all))]);
        return text;
    }
};

} // namespace

std::vector<std::string> titles(size_t count) {
    TitleMaker maker;
    std::set<std::string> known;
    std::vector<std::string> made;
    while (made.size() < count) {
        std::string title = maker.make();
        if (known.insert(title).second)
            made.push_back(std::move(title));
    }
    return made;
}

} // namespace bench
