#include "services/lru_cache.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

class SharedLruCacheTest : public testing::Test {
protected:
    static inline std::atomic<int> sFreed{0};
    static inline std::atomic<int> sBusy{0};

    static void release(void* value) {
        EXPECT_EQ(sBusy++, 0) << "released by two threads at once";
        delete static_cast<int*>(value);
        ++sFreed;
        --sBusy;
    }
};

TEST_F(SharedLruCacheTest, ManyThreadsLoseNothing) {
    sFreed = 0;
    constexpr int rounds = 2000;
    std::atomic<int> popped{0};
    int threads = 0;
    {
        LRUCache cache(release, 10);
        const auto work = [&](unsigned seed) {
            for (int i = 0; i < rounds; ++i) {
                seed = seed * 1664525 + 1013904223;
                const std::string key = std::to_string(seed >> 16 & 31);
                cache.put(key, new int(i));
                cache.get(std::to_string(seed >> 24 & 31));
                if (i % 7 == 0)
                    if (auto* const value = static_cast<int*>(cache.pop(key))) {
                        delete value;
                        ++popped;
                    }
                if (i % 500 == 499)
                    cache.clear();
            }
        };
        std::vector<std::thread> workers;
        for (; threads < 4; ++threads)
            workers.emplace_back(work, static_cast<unsigned>(threads));
        for (std::thread& worker : workers)
            worker.join();
    }
    EXPECT_EQ(sFreed + popped, threads * rounds);
}
