#include "bench/support/comparison.h"
#include "bench/support/stage.h"
#include "gfx/surface_cache.h"
#include "gfx/text.h"
#include "shell/skin.h"
#include "text/utf8.h"

#include <cstdio>
#include <cstring>
#include <list>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

static constexpr SDL_Color white{255, 255, 255, 255};

/// The usual way to cache rendered texts: a key by snprintf, a hash map over a list.
class HashCache {
public:
    void put(const char* text, int width) {
        mOrder.push_front({key(text), width});
        mPlaces[mOrder.front().first] = mOrder.begin();
    }

    int get(const char* text) {
        const auto found = mPlaces.find(key(text));
        if (found == mPlaces.end())
            return 0;
        mOrder.splice(mOrder.begin(), mOrder, found->second);
        return found->second->second;
    }

private:
    using Order = std::list<std::pair<std::string, int>>;
    Order mOrder;
    std::unordered_map<std::string, Order::iterator> mPlaces;

    static std::string key(const char* text) {
        static char buffer[2048];
        snprintf(buffer, sizeof buffer, "%s_%p_%02X_%02X_%02X_%02X_shadow%d", text,
                 static_cast<void*>(gListFontTxt), white.r, white.g, white.b, white.a, 0);
        return buffer;
    }
};

static int width(const char* text) {
    return DrawString(gListFontTxt, {0, 0, 1280, 96}, text, white, 0, false, true);
}

/// The newest `count` texts of a full cache, again and again in an order without a pattern.
static void compareHits(const std::string& operation, size_t count) {
    HashCache hashed;
    std::vector<std::string> texts;
    for (int i = 0; i < 101; ++i) {
        texts.push_back("Row number " + std::to_string(i) + " of a list");
        hashed.put(texts.back().c_str(), width(texts.back().c_str()));
    }
    std::mt19937 random(1);
    std::vector<const char*> picks;
    for (int i = 0; i < 1009; ++i)
        picks.push_back(texts[texts.size() - 1 - random() % count].c_str());
    size_t turn = 0;
    const auto next = [&] { return picks[++turn % picks.size()]; };
    bench::compare(operation, {"kestro", [&] { bench::keep(width(next())); }},
                   {"snprintf key + hash LRU", [&] { bench::keep(hashed.get(next())); }}, 0.6);
}

/// What a label costs that is measured anew: its characters one by one.
static int measured(const std::string& text) {
    int sum = 0;
    for (size_t at = 0; at < text.size();) {
        const kestro::Utf8Step step = kestro::decodeUtf8(text.data() + at, text.size() - at);
        int advance = 0;
        TTF_GlyphMetrics(gListFontTxt, static_cast<Uint16>(step.codePoint), nullptr, nullptr, nullptr,
                         nullptr, &advance);
        sum += advance;
        at += step.length;
    }
    return sum;
}

static void compareTruncating(const std::string& operation, const std::vector<std::string>& labels,
                              double goal) {
    size_t turn = 0;
    const auto next = [&]() -> const std::string& { return labels[++turn % labels.size()]; };
    bench::compare(operation,
                   {"kestro", [&] { bench::keep(getTruncateLen(gListFontTxt, next().c_str(), 0, 1160)); }},
                   {"measuring it in SDL_ttf", [&] { bench::keep(measured(next())); }}, goal);
}

int main() {
    const bench::Stage stage(bench::runFolder());
    compareHits("DrawString hit without its copy, a page of 14 texts", 14);
    compareHits("DrawString hit without its copy, any of 101 texts", 101);
    compareTruncating("getTruncateLen again, Latin",
                      {"Mountain Panorama", "Paper Kite and Other Stories", "Creatures of the Deep Blue Sea",
                       "Harbour Lights at Midnight", "A Train That Never Stops", "Seven Sleepy Hills"},
                      1.0);
    compareTruncating("getTruncateLen again, Chinese",
                      {"超级小球大冒险之奇幻旅程", "月光森林里的秘密花园与沉睡的巨人",
                       "星际快车：最后一班列车", "深海探险队与失落的古城传说", "纸风筝的夏天和雨后的彩虹",
                       "沙漠之晨：骆驼商队的远征"},
                      0.05);
}
