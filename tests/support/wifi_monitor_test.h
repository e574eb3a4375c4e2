#pragma once

#include "support/fake_clock.h"
#include "support/wifi_test.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>
#include <unistd.h>

/// A test of the Wi-Fi monitor, whose sleeps end when the test says so. wpa_supplicant runs, as number 77.
class WifiMonitorTest : public WifiTest {
protected:
    void SetUp() override {
        WifiTest::SetUp();
        addProcess("77", "/usr/sbin/wpa_supplicant");
        startAThread(); // with the first one the sanitizer, or an emulator, starts one of its own
        mThreads = threads();
        mSleep.emplace();
    }

    void TearDown() override {
        stop();
        EXPECT_TRUE(ends());
        WifiTest::TearDown();
    }

    /// Starts the monitor and waits for the end of its first poll. The log is taken.
    void start() {
        rx_wifi_monitor_start();
        EXPECT_EQ(sleeps(), 3'000'000u);
        EXPECT_THAT(takeLog(), testing::StartsWith("new thread_wifi_monitor: pid "));
    }

    /// Stops the monitor, and ends its sleep.
    void stop() {
        rx_wifi_monitor_stop();
        mSleep.reset();
    }

    /// Waits until the monitor sleeps; tells for how long in microseconds.
    uint64_t sleeps() { return mSleep->await(); }

    /// Lets the monitor sleep out and poll once more.
    void polls() {
        mSleep->end();
        EXPECT_EQ(sleeps(), 3'000'000u);
    }

    /// Waits until the monitor's thread is gone; false when it stays.
    bool ends() {
        for (int i = 0; i < 10'000; ++i, std::this_thread::sleep_for(std::chrono::milliseconds(1)))
            if (threads() == mThreads)
                return true;
        return false;
    }

    ptrdiff_t newThreads() const { return threads() - mThreads; }

    std::optional<HeldSleep> mSleep;

private:
    ptrdiff_t mThreads = 0;

    /// Returns once it is not counted any more, which is some time after it was joined.
    static void startAThread() {
        std::filesystem::path task;
        std::thread([&] { task = "/proc/self/task/" + std::to_string(gettid()); }).join();
        while (std::filesystem::exists(task))
            std::this_thread::yield();
    }

    static ptrdiff_t threads() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
    }
};

/// What is logged when a start is refused.
constexpr char alreadyStarted[] = "wifi monitor already started.";
