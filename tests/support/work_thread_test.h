#pragma once

#include "services/work_thread.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// What happened to jobs, in order. Any thread.
class JobLog {
public:
    void add(const std::string& what) {
        const std::lock_guard<std::mutex> lock(mLock);
        mEntries.push_back(what);
        mChanged.notify_all();
    }

    std::vector<std::string> take() {
        const std::lock_guard<std::mutex> lock(mLock);
        return std::exchange(mEntries, {});
    }

    /// Waits for an entry and takes the log up to it.
    std::vector<std::string> takeUpTo(const std::string& what) {
        std::unique_lock<std::mutex> lock(mLock);
        const auto here = [&] { return std::find(mEntries.begin(), mEntries.end(), what); };
        EXPECT_TRUE(
            mChanged.wait_for(lock, std::chrono::seconds(20), [&] { return here() != mEntries.end(); }))
            << what << " does not come";
        const auto end = here() == mEntries.end() ? mEntries.end() : here() + 1;
        const std::vector<std::string> taken(mEntries.begin(), end);
        mEntries.erase(mEntries.begin(), end);
        return taken;
    }

private:
    std::mutex mLock;
    std::condition_variable mChanged;
    std::vector<std::string> mEntries;
};

/// A job that notes "process NAME", "complete NAME" and "delete NAME".
class NotedJob : public BGWorker {
public:
    NotedJob(JobLog& log, std::string name, std::function<void()> work = {}, std::function<void()> end = {})
        : mLog(log), mName(std::move(name)), mWork(std::move(work)), mEnd(std::move(end)) {}
    ~NotedJob() override {
        mLog.add("delete " + mName);
        if (mEnd)
            mEnd();
    }
    void process() override {
        mLog.add("process " + mName);
        if (mWork)
            mWork();
    }
    void complete() override { mLog.add("complete " + mName); }

private:
    JobLog& mLog;
    std::string mName;
    std::function<void()> mWork;
    std::function<void()> mEnd;
};

/// What a job waits for.
class Gate {
public:
    void open() {
        const std::lock_guard<std::mutex> lock(mLock);
        mOpen = true;
        mChanged.notify_all();
    }
    void pass() {
        std::unique_lock<std::mutex> lock(mLock);
        mChanged.wait(lock, [this] { return mOpen; });
    }

private:
    std::mutex mLock;
    std::condition_variable mChanged;
    bool mOpen = false;
};

/// What a job that runs, and one that does not, leave in the log.
inline std::vector<std::string> ran(const std::vector<std::string>& names) {
    std::vector<std::string> entries;
    for (const std::string& name : names)
        for (const char* step : {"process ", "complete ", "delete "})
            entries.push_back(step + name);
    return entries;
}

inline std::vector<std::string> dropped(const std::vector<std::string>& names) {
    std::vector<std::string> entries;
    for (const std::string& name : names)
        entries.push_back("delete " + name);
    return entries;
}

using Entries = std::vector<std::string>;

inline Entries operator+(Entries first, const Entries& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// A test of a work thread.
class WorkThreadTest : public testing::Test {
protected:
    JobLog log;
    Gate gate;

    NotedJob* job(const std::string& name, std::function<void()> work = {}, std::function<void()> end = {}) {
        return new NotedJob(log, name, std::move(work), std::move(end));
    }

    void add(BGWorkThread& thread, const std::vector<std::string>& names) {
        for (const std::string& name : names)
            EXPECT_EQ(thread.addWorker(job(name)), 0);
    }

    /// Gives the thread the job "busy", which runs until the gate opens.
    void keepBusy(BGWorkThread& thread) {
        EXPECT_EQ(thread.addWorker(job("busy", [this] { gate.pass(); })), 0);
        EXPECT_EQ(log.takeUpTo("process busy"), Entries{"process busy"});
    }

    /// Opens the gate and takes what is noted from the end of "busy" up to the end of a job.
    Entries finish(const std::string& last) {
        gate.open();
        EXPECT_EQ(log.takeUpTo("delete busy"), (Entries{"complete busy", "delete busy"}));
        return log.takeUpTo("delete " + last);
    }
};
