#include "services/work_thread.h"

BGWorker::~BGWorker() = default;

BGWorkThread::BGWorkThread(int maxWorkers)
    : mMaxWorkers(maxWorkers > 0 ? maxWorkers : 5), mLock(SDL_CreateMutex()), mWake(SDL_CreateCond()) {
    if (mLock && mWake) // without them the jobs stay where they are
        mThread = SDL_CreateThread(work_thread, "bgworker", this);
}

BGWorkThread::~BGWorkThread() {
    SDL_LockMutex(mLock);
    mRunning = false;
    SDL_CondSignal(mWake);
    SDL_UnlockMutex(mLock);
    SDL_WaitThread(mThread, nullptr);
    SDL_DestroyMutex(mLock);
    SDL_DestroyCond(mWake);
    mLock = nullptr; // a job that adds another while it is deleted meets no lock that is gone
    mWake = nullptr;
    while (!mPending.empty())
        delete getWorker();
}

int BGWorkThread::addWorker(BGWorker* worker) {
    BGWorker* dropped = nullptr;
    SDL_LockMutex(mLock);
    if (mPending.size() >= static_cast<size_t>(mMaxWorkers)) {
        dropped = mPending.back();
        mPending.pop_back();
    }
    mPending.push_front(worker);
    SDL_CondSignal(mWake);
    SDL_UnlockMutex(mLock);
    delete dropped; // outside the lock, as it may add another
    return 0;
}

BGWorker* BGWorkThread::getWorker() {
    BGWorker* worker = nullptr;
    SDL_LockMutex(mLock);
    if (!mPending.empty()) {
        worker = mPending.front();
        mPending.pop_front();
    }
    SDL_UnlockMutex(mLock);
    return worker;
}

/// Waits until there is a job to take; false when the end has come.
bool BGWorkThread::awaitWorker() {
    SDL_LockMutex(mLock);
    bool goesOn = mRunning;
    while (goesOn && mPending.empty())
        goesOn = SDL_CondWait(mWake, mLock) == 0 && mRunning;
    SDL_UnlockMutex(mLock);
    return goesOn;
}

int BGWorkThread::work_thread(void* self) {
    auto* const thread = static_cast<BGWorkThread*>(self);
    while (thread && thread->awaitWorker()) {
        BGWorker* const worker = thread->getWorker();
        if (!worker)
            continue;
        worker->process();
        worker->complete();
        delete worker;
    }
    return 0;
}
