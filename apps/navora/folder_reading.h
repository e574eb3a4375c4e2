#pragma once

#include <SDL.h>

#include <functional>

namespace navora {

/// The time in which a list may read a folder. Lets the page say so, once, when it takes long.
class FolderReading {
public:
    explicit FolderReading(std::function<void()> sayLoading);
    ~FolderReading();
    FolderReading(const FolderReading&) = delete;
    FolderReading& operator=(const FolderReading&) = delete;

    /// To be called for every entry that is read, on the main thread.
    static void entryRead();

private:
    std::function<void()> mSayLoading;
    Uint32 mBegin;
    int mEntries = 0;

    static FolderReading* sCurrent;
};

} // namespace navora
