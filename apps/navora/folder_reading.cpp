#include "navora/folder_reading.h"

namespace navora {

FolderReading* FolderReading::sCurrent = nullptr;

FolderReading::FolderReading(std::function<void()> sayLoading)
    : mSayLoading(std::move(sayLoading)), mBegin(SDL_GetTicks()) {
    sCurrent = this;
}

FolderReading::~FolderReading() {
    sCurrent = nullptr;
}

void FolderReading::entryRead() {
    constexpr int manyEntries = 4000;
    constexpr Uint32 longTime = 100; // milliseconds
    FolderReading* const reading = sCurrent;
    if (!reading || !reading->mSayLoading)
        return;
    if (++reading->mEntries < manyEntries && SDL_GetTicks() - reading->mBegin < longTime)
        return;
    reading->mSayLoading();
    reading->mSayLoading = nullptr;
}

} // namespace navora
