#include "services/lru_cache.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Values are numbered places in an array; what is released is noted in order.
class LruCacheTest : public testing::Test {
protected:
    void SetUp() override { sReleased.clear(); }

    static void* value(int number) { return &sPlaces[number]; }
    static int number(const void* value) {
        return value ? static_cast<int>(static_cast<const char*>(value) - sPlaces) : -1;
    }

    static void note(void* value) { sReleased.push_back(number(value)); }

    static std::vector<int> takeReleased() {
        std::vector<int> released;
        released.swap(sReleased);
        return released;
    }

    /// Puts the value n under the key "n" for the numbers from `first` to `last`.
    static void putAll(LRUCache& cache, int first, int last) {
        for (int i = first; i <= last; ++i)
            cache.put(std::to_string(i), value(i));
    }

    using Released = std::vector<int>;

private:
    static inline char sPlaces[1000];
    static inline std::vector<int> sReleased;
};

TEST_F(LruCacheTest, EmptyCacheHasNothing) {
    LRUCache cache(note, 100);
    EXPECT_EQ(cache.get("a"), nullptr);
    EXPECT_EQ(cache.pop("a"), nullptr);
    cache.clear();
    EXPECT_EQ(takeReleased(), Released());
}

TEST_F(LruCacheTest, GivesBackWhatWasPut) {
    LRUCache cache(note, 100);
    putAll(cache, 1, 3);
    EXPECT_EQ(cache.get("2"), value(2));
    EXPECT_EQ(cache.get("2"), value(2));
    EXPECT_EQ(cache.get("1"), value(1));
    EXPECT_EQ(cache.get("4"), nullptr);
    EXPECT_EQ(takeReleased(), Released());
}

TEST_F(LruCacheTest, PutUnderAPresentKeyReleasesTheOldValueAndKeepsOneEntry) {
    LRUCache cache(note, 100);
    cache.put("a", value(1));
    cache.put("a", value(2));
    EXPECT_EQ(takeReleased(), Released{1});
    EXPECT_EQ(cache.get("a"), value(2));
    EXPECT_EQ(cache.pop("a"), value(2));
    EXPECT_EQ(cache.pop("a"), nullptr);
}

TEST_F(LruCacheTest, PutUnderAPresentKeyMakesItTheMostRecentlyUsed) {
    LRUCache cache(note, 2);
    putAll(cache, 1, 3);
    cache.put("1", value(11));
    EXPECT_EQ(takeReleased(), Released{1});
    putAll(cache, 4, 5);
    EXPECT_EQ(takeReleased(), (Released{2, 3})) << "and not the value put again";
}

TEST_F(LruCacheTest, PutOfTheStoredPointerReleasesItAllTheSame) {
    LRUCache cache(note, 100);
    cache.put("a", value(1));
    cache.put("a", value(1));
    EXPECT_EQ(takeReleased(), Released{1});
    EXPECT_EQ(cache.get("a"), value(1));
}

TEST_F(LruCacheTest, OneValueUnderTwoKeysIsReleasedTwice) {
    LRUCache cache(note, 100);
    cache.put("a", value(1));
    cache.put("b", value(1));
    EXPECT_EQ(takeReleased(), Released());
    cache.clear();
    EXPECT_EQ(takeReleased(), (Released{1, 1}));
}

TEST_F(LruCacheTest, FullCacheHoldsOneMoreThanItsCapacity) {
    LRUCache cache(note, 100);
    putAll(cache, 1, 101);
    EXPECT_EQ(takeReleased(), Released());
    for (int i = 1; i <= 101; ++i)
        EXPECT_EQ(cache.get(std::to_string(i)), value(i));
}

TEST_F(LruCacheTest, NextPutReleasesTheLeastRecentlyUsedFirst) {
    LRUCache cache(note, 100);
    putAll(cache, 1, 102);
    EXPECT_EQ(takeReleased(), Released{1});
    EXPECT_EQ(cache.get("1"), nullptr);
    putAll(cache, 103, 104);
    EXPECT_EQ(takeReleased(), (Released{2, 3}));
    cache.clear();
    EXPECT_EQ(takeReleased().size(), 101u);
}

TEST_F(LruCacheTest, HitProtectsFromTheNextEviction) {
    LRUCache cache(note, 3);
    putAll(cache, 1, 4);
    cache.get("1");
    putAll(cache, 5, 5);
    EXPECT_EQ(takeReleased(), Released{2});
    cache.get("3");
    putAll(cache, 6, 8);
    EXPECT_EQ(takeReleased(), (Released{4, 1, 5}));
}

TEST_F(LruCacheTest, MissChangesNothing) {
    LRUCache cache(note, 2);
    putAll(cache, 1, 3);
    cache.get("x");
    cache.pop("x");
    putAll(cache, 4, 4);
    EXPECT_EQ(takeReleased(), Released{1});
}

TEST_F(LruCacheTest, PopGivesTheValueBackWithoutReleasingIt) {
    LRUCache cache(note, 100);
    putAll(cache, 1, 3);
    EXPECT_EQ(cache.pop("2"), value(2));
    EXPECT_EQ(cache.pop("2"), nullptr);
    EXPECT_EQ(cache.get("2"), nullptr);
    EXPECT_EQ(takeReleased(), Released());
    cache.clear();
    EXPECT_EQ(takeReleased(), (Released{3, 1}));
}

TEST_F(LruCacheTest, PopMakesRoom) {
    LRUCache cache(note, 2);
    putAll(cache, 1, 3);
    cache.pop("3");
    putAll(cache, 4, 4);
    EXPECT_EQ(takeReleased(), Released());
    putAll(cache, 5, 5);
    EXPECT_EQ(takeReleased(), Released{1});
}

TEST_F(LruCacheTest, ClearReleasesEveryValueFromTheMostRecentlyUsedOn) {
    LRUCache cache(note, 100);
    putAll(cache, 1, 4);
    cache.get("2");
    cache.clear();
    EXPECT_EQ(takeReleased(), (Released{2, 4, 3, 1}));
    EXPECT_EQ(cache.get("2"), nullptr);
    cache.clear();
    EXPECT_EQ(takeReleased(), Released());
}

TEST_F(LruCacheTest, WorksAgainAfterClear) {
    LRUCache cache(note, 1);
    putAll(cache, 1, 2);
    cache.clear();
    takeReleased();
    putAll(cache, 3, 4);
    EXPECT_EQ(takeReleased(), Released());
    EXPECT_EQ(cache.get("3"), value(3));
}

TEST_F(LruCacheTest, DestructorReleasesEveryValueOnce) {
    {
        LRUCache cache(note, 100);
        putAll(cache, 1, 3);
    }
    EXPECT_EQ(takeReleased(), (Released{3, 2, 1}));
}

TEST_F(LruCacheTest, WithoutAReleaseFunctionTheValuesAreLeftAlone) {
    std::string kept = "mine";
    {
        LRUCache cache(nullptr, 1);
        cache.put("a", &kept);
        cache.put("a", &kept);
        cache.put("b", &kept);
        cache.put("c", &kept);
        EXPECT_EQ(cache.get("a"), nullptr);
        EXPECT_EQ(cache.get("c"), &kept);
        cache.clear();
        EXPECT_EQ(cache.get("c"), nullptr);
        cache.put("d", &kept);
    }
    EXPECT_EQ(kept, "mine");
}

TEST_F(LruCacheTest, NullIsAValueLikeAnyOther) {
    LRUCache cache(note, 1);
    cache.put("a", nullptr);
    EXPECT_EQ(cache.get("a"), nullptr);
    cache.put("b", value(2));
    cache.put("c", value(3));
    EXPECT_EQ(takeReleased(), Released{-1}) << "the entry counted, and was handed to the release function";
}

TEST_F(LruCacheTest, CapacityZeroHoldsOneEntry) {
    LRUCache cache(note, 0);
    putAll(cache, 1, 1);
    EXPECT_EQ(cache.get("1"), value(1));
    putAll(cache, 2, 2);
    EXPECT_EQ(takeReleased(), Released{1});
    EXPECT_EQ(cache.get("2"), value(2));
}

TEST_F(LruCacheTest, NegativeCapacityHoldsOneEntryToo) {
    for (const int capacity : {-1, -2147483647 - 1}) {
        LRUCache cache(note, capacity);
        putAll(cache, 1, 2);
        EXPECT_EQ(takeReleased(), Released{1});
        EXPECT_EQ(cache.get("2"), value(2));
        cache.clear();
        takeReleased();
    }
}

TEST_F(LruCacheTest, PutUnderAPresentKeyOfAFullCacheEvictsNothing) {
    LRUCache cache(note, 2);
    putAll(cache, 1, 3);
    cache.put("3", value(33));
    EXPECT_EQ(takeReleased(), Released{3}) << "the old value makes room for the new one";
    EXPECT_EQ(cache.get("1"), value(1));
}

TEST_F(LruCacheTest, KeysAreComparedByteByByte) {
    using namespace std::string_literals;
    const std::string keys[] = {"",
                                "a",
                                "A",
                                "a ",
                                " a",
                                "ab",
                                "aä",
                                "a\0b"s,
                                "a\0c"s,
                                "a\0"s,
                                "\0"s,
                                "a\0b\0"s,
                                "\xff",
                                "\xff\xfe",
                                "a\n",
                                std::string(5000, 'k'),
                                std::string(5000, 'k') + "x"};
    LRUCache cache(note, 100);
    int count = 0;
    for (const std::string& key : keys)
        cache.put(key, value(count++));
    EXPECT_EQ(takeReleased(), Released());
    for (const std::string& key : keys)
        EXPECT_EQ(number(cache.get(key)), &key - keys);
}

TEST_F(LruCacheTest, KeyIsCopied) {
    LRUCache cache(note, 100);
    std::string key = "a";
    cache.put(key, value(1));
    key = "b";
    EXPECT_EQ(cache.get("a"), value(1));
    EXPECT_EQ(cache.get("b"), nullptr);
}
