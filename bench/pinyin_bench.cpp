// The initials of titles, and the map of readings behind them.

#include "bench/support/comparison.h"
#include "bench/support/titles.h"
#include "text/pinyin.h"
#include "text/pinyin_table.h"
#include "text/utf8.h"

#include <unicode/translit.h>

#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>
#include <stdexcept>

namespace {

using Readings = std::map<unsigned int, const char*>;

/// A buffer of initials as GetPinyinInitials2 makes it, with the library's own decoder and the initial that
/// `initialOf` gives.
template <class InitialOf>
char* initials(const std::string& title, InitialOf initialOf) {
    const char* const text = title.c_str();
    const size_t length = strlen(text);
    auto* const made = static_cast<char*>(malloc(length + 1));
    char* out = made;
    for (size_t at = 0; at < length;) {
        const kestro::Utf8Step step = kestro::decodeUtf8(text + at, length - at);
        *out++ = initialOf(step.codePoint);
        at += step.length;
    }
    *out = 0;
    return made;
}

template <class Make>
void forAll(const std::vector<std::string>& titles, Make make) {
    for (const std::string& title : titles) {
        char* const made = make(title);
        bench::keep(made);
        free(made);
    }
}

char looked(Readings& readings, uint32_t codePoint) {
    if (codePoint < 128)
        return static_cast<char>(codePoint);
    const char* const syllable = readings[codePoint];
    return syllable && *syllable ? *syllable : ' ';
}

void fill(Readings& readings) {
    for (const kestro::PinyinRecord& record : kestro::pinyinRecords)
        readings[record.codePoint] = kestro::pinyinSyllables[record.syllable];
}

/// What any filling costs: the least that std::map does for entries that ascend.
void append(Readings& readings) {
    for (unsigned codePoint = 0; codePoint < std::size(kestro::pinyinRecords); ++codePoint)
        readings.emplace_hint(readings.end(), codePoint, "");
}

/// What any look at all entries costs.
void walk(const Readings& readings) {
    for (const Readings::value_type& entry : readings)
        bench::keep(entry.second);
}

bench::Contender initialsOf(const std::vector<std::string>& titles) {
    return {"kestro",
            [&] { forAll(titles, [](const std::string& t) { return GetPinyinInitials2(t.c_str()); }); }};
}

/// Readings in full, as ICU gives them: what a host without the library would take the initials from.
void readByIcu(const icu::Transliterator& readings, const std::string& title) {
    icu::UnicodeString text = icu::UnicodeString::fromUTF8(title);
    readings.transliterate(text);
    bench::keep(text);
}

void compareWithIcu() {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<icu::Transliterator> readings(
        icu::Transliterator::createInstance("Han-Latin", UTRANS_FORWARD, error));
    if (!readings)
        throw std::runtime_error(u_errorName(error));
    const std::vector<std::string> titles = bench::titles(2000);
    const bench::Contender icu{"ICU's Han-Latin", [&] {
                                   for (const std::string& title : titles)
                                       readByIcu(*readings, title);
                               }};
    const std::vector<double> times = bench::medianTimes({initialsOf(titles), icu});
    bench::report("GetPinyinInitials2, varied titles", icu.name, times[0] / times[1], 0,
                  times[0] / static_cast<double>(titles.size()));
}

void makeInitials() {
    InitPinYinMap();
    Readings readings;
    fill(readings);
    const std::vector<std::string> titles = bench::titles(20000);
    const bench::Contender looking{"std::map lookups", [&] {
                                       forAll(titles, [&](const std::string& t) {
                                           return initials(t,
                                                           [&](uint32_t c) { return looked(readings, c); });
                                       });
                                   }};
    const bench::Contender decoding{"decoding alone", [&] {
                                        forAll(titles, [](const std::string& t) {
                                            return initials(t,
                                                            [](uint32_t c) { return static_cast<char>(c); });
                                        });
                                    }};
    const std::vector<double> times = bench::medianTimes({initialsOf(titles), looking, decoding});
    const double each = times[0] / static_cast<double>(titles.size());
    bench::report("GetPinyinInitials2, varied titles", looking.name, times[0] / times[1], 0.07, each);
    bench::report("GetPinyinInitials2, varied titles", decoding.name, times[0] / times[2], 1.4, each);
}

void fillMap() {
    Readings readings;
    const bench::Contender first{"kestro", InitPinYinMap, [] { gPinyinMap.clear(); }};
    const bench::Contender again{"kestro", InitPinYinMap};
    const bench::Contender inserting{"inserting with operator[]", [&] { fill(readings); },
                                     [&] { readings.clear(); }};
    const bench::Contender appending{"appending alone", [&] { append(readings); }, [&] { readings.clear(); }};
    const bench::Contender walking{"a walk through the map", [] { walk(gPinyinMap); }};
    std::vector<double> times = bench::medianTimes({first, inserting, appending});
    bench::report("InitPinYinMap", inserting.name, times[0] / times[1], 0.35, times[0]);
    bench::report("InitPinYinMap", appending.name, times[0] / times[2], 1.1, times[0]);
    times = bench::medianTimes({again, inserting, walking});
    bench::report("InitPinYinMap, again", inserting.name, times[0] / times[1], 0.1, times[0]);
    bench::report("InitPinYinMap, again", walking.name, times[0] / times[2], 1.1, times[0]);
}

} // namespace

int main() {
    makeInitials();
    compareWithIcu();
    fillMap();
}
