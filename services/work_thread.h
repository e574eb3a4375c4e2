#pragma once

#include "core/export.h"

#include <SDL_mutex.h>
#include <SDL_thread.h>

#include <list>

/// One job for a BGWorkThread, which the host implements.
class KESTRO_API BGWorker {
public:
    BGWorker() = default;
    BGWorker(const BGWorker&) = delete;
    BGWorker& operator=(const BGWorker&) = delete;

    /// Called on the work thread after the job is done. A job that is never run is deleted by the thread
    /// that adds one too many or that deletes the BGWorkThread.
    virtual ~BGWorker();

    /// The job itself. Called once, on the work thread; it may add more jobs.
    virtual void process() = 0;

    /// Called right after `process`, on the work thread too.
    virtual void complete() = 0;
};

/// Runs jobs one at a time on a thread of its own, "bgworker": the newest first, since what was asked for a
/// moment ago matters most.
class KESTRO_API BGWorkThread {
public:
    /// Starts the thread. At most `maxWorkers` jobs wait at a time; 5 if that is 0 or less.
    explicit BGWorkThread(int maxWorkers);

    /// Lets the job that is running finish and ends the thread; jobs that still wait are deleted unrun,
    /// newest first. Nothing may be added from the outside any more. Not from a job.
    ~BGWorkThread();
    BGWorkThread(const BGWorkThread&) = delete;
    BGWorkThread& operator=(const BGWorkThread&) = delete;

    /// Queues a job and takes it over. If already as many wait as may, the oldest of them is deleted unrun
    /// before this returns. Null takes a place, but nothing is run for it. Returns 0. Any thread, also from
    /// within a job.
    int addWorker(BGWorker* worker);

    /// Takes out the newest job that waits, which is the caller's from then on; null if there is none. Any
    /// thread.
    BGWorker* getWorker();

    /// The thread's body: runs the jobs of `self`, a BGWorkThread, until that is deleted. Returns 0; at once
    /// for null.
    static int work_thread(void* self);

private:
    int mMaxWorkers;
    SDL_mutex* mLock;
    SDL_cond* mWake;
    std::list<BGWorker*> mPending; // newest first; guarded by the lock
    SDL_Thread* mThread = nullptr;
    bool mRunning = true; // guarded by the lock

    KESTRO_HIDDEN bool awaitWorker();
};
