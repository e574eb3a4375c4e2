#include "services/lru_cache.h"

#include <algorithm>
#include <utility>

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

std::list<LRUCache::Entry>::iterator LRUCache::find(const std::string& key) {
    return std::find_if(mEntries.begin(), mEntries.end(),
                        [&](const Entry& entry) { return entry.key == key; });
}

void LRUCache::release(void* value) {
    if (mFreeFunc)
        mFreeFunc(value);
}

void* LRUCache::get(std::string key) {
    const Locked lock(mLock);
    const auto found = find(key);
    if (found == mEntries.end())
        return nullptr;
    mEntries.splice(mEntries.begin(), mEntries, found);
    return found->value;
}

void LRUCache::put(std::string key, void* value) {
    const Locked lock(mLock);
    for (auto same = find(key); same != mEntries.end(); same = find(key)) {
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
    mEntries.push_front({std::move(key), value});
}

void* LRUCache::pop(std::string key) {
    const Locked lock(mLock);
    const auto found = find(key);
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
