#pragma once

#include "core/export.h"

#include <SDL_mutex.h>

#include <cstdint>
#include <list>
#include <string>
#include <string_view>

/// A small string-keyed cache of pointers that forgets what was used longest ago.
///
/// A value belongs to the cache from `put` until `pop`, and is handed to the release function when it
/// goes. Every operation runs whole under the cache's own lock, so any thread may use it; the release
/// function runs inside the lock and must not call into the same cache. A pointer from `get` may be
/// released by any later `put` or `clear`: use it at once.
class KESTRO_API LRUCache {
public:
    /// `freeFunc` releases a value; null leaves the values to their owners. A full cache holds one entry
    /// more than `capacity`: eviction runs before the insertion, and only above the capacity.
    LRUCache(void (*freeFunc)(void*), int capacity);
    ~LRUCache();
    LRUCache(const LRUCache&) = delete;
    LRUCache& operator=(const LRUCache&) = delete;

    /// The value under `key`, which becomes the most recently used, or null. Keys are compared byte by
    /// byte; the empty string is a key like any other.
    void* get(std::string key);

    /// The same for a key that is no string yet: nothing is copied.
    void* find(std::string_view key);

    /// Stores `value`, which may be null, under `key` as the most recently used. A value already stored
    /// there is released first, even when it is the same pointer. Without memory for the entry the cache
    /// stays as it is, and `value` is released.
    void put(std::string key, void* value);

    /// Takes the value under `key` out without releasing it; the caller owns it. Null if there is none.
    void* pop(std::string key);

    /// Releases every value and empties the cache.
    void clear();

private:
    struct Entry {
        uint64_t hash; // of the key, first: most entries that a scan passes differ in it
        std::string key;
        void* value;
    };

    std::list<Entry> mEntries; // most recently used first; scanned, as it never holds more than a hundred
    void (*mFreeFunc)(void*);
    SDL_mutex* mLock;
    int mCapacity;

    KESTRO_HIDDEN std::list<Entry>::iterator entryOf(std::string_view key, uint64_t hash);
    KESTRO_HIDDEN void release(void* value);
};
