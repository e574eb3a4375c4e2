#include "services/lru_cache.h"

#include "core/hash_bytes.h"
#include "core/out_of_memory.h"

#include <algorithm>
#include <utility>

using kestro::hashBytes;

namespace {

class Locked {
public:
    explicit Locked(SDL_mutex* mutex) : mMutex(mutex) { SDL_LockMutex(mMutex); }
    ~Locked() { SDL_UnlockMutex(mMutex); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

private:
    SDL_mutex* mMutex;
};

} // namespace

LRUCache::LRUCache(void (*freeFunc)(void*), int capacity)
    : mFreeFunc(freeFunc), mLock(SDL_CreateMutex()), mCapacity(capacity) {}

LRUCache::~LRUCache() {
    clear();
    SDL_DestroyMutex(mLock);
}

std::list<LRUCache::Entry>::iterator LRUCache::entryOf(std::string_view key, uint64_t hash) {
    // From both ends at once: one chain of pointers hides what the other waits for. A key stands here only
    // once.
    const auto isSought = [&](const Entry& entry) { return entry.hash == hash && entry.key == key; };
    auto front = mEntries.begin();
    auto back = mEntries.end();
    for (size_t left = mEntries.size(); left > 0; left -= std::min<size_t>(left, 2)) {
        if (isSought(*front))
            return front;
        if (isSought(*--back))
            return back;
        ++front;
    }
    return mEntries.end();
}

void LRUCache::release(void* value) {
    if (mFreeFunc)
        mFreeFunc(value);
}

void* LRUCache::get(std::string key) {
    return find(key);
}

void* LRUCache::find(std::string_view key) {
    const uint64_t hash = hashBytes(key);
    const Locked lock(mLock);
    const auto found = entryOf(key, hash);
    if (found == mEntries.end())
        return nullptr;
    mEntries.splice(mEntries.begin(), mEntries, found);
    return found->value;
}

void LRUCache::put(std::string key, void* value) {
    const uint64_t hash = hashBytes(key);
    std::list<Entry> fresh; // made before anything goes, as it needs memory
    kestro::unlessOutOfMemory(__func__, [&] { fresh.push_front({hash, std::move(key), value}); });
    const Locked lock(mLock);
    if (fresh.empty()) {
        release(value);
        return;
    }
    const std::string& name = fresh.front().key;
    for (auto same = entryOf(name, hash); same != mEntries.end(); same = entryOf(name, hash)) {
        void* const old = same->value;
        mEntries.erase(same);
        release(old);
    }
    // Before the insertion, on purpose: a full cache holds one entry more than its capacity.
    while (!mEntries.empty() && mCapacity < static_cast<int>(mEntries.size())) {
        void* const oldest = mEntries.back().value;
        mEntries.pop_back();
        release(oldest);
    }
    mEntries.splice(mEntries.begin(), fresh);
}

void* LRUCache::pop(std::string key) {
    const Locked lock(mLock);
    const auto found = entryOf(key, hashBytes(key));
    if (found == mEntries.end())
        return nullptr;
    void* const value = found->value;
    mEntries.erase(found);
    return value;
}

void LRUCache::clear() {
    const Locked lock(mLock);
    for (const Entry& entry : mEntries)
        release(entry.value);
    mEntries.clear();
}
