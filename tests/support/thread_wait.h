#pragma once

#include <functional>

/// While it lives, calls a function whenever somebody begins to wait for the end of one of SDL's threads, on
/// the thread that waits: it takes the place of SDL_WaitThread in this process.
class ThreadWait {
public:
    explicit ThreadWait(std::function<void()> begun);
    ~ThreadWait();
    ThreadWait(const ThreadWait&) = delete;
    ThreadWait& operator=(const ThreadWait&) = delete;

    /// What the thread that was waited for last has returned; -1000 before any has ended.
    int returned() const;
};
