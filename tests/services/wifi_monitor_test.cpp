#include "services/process_list.h"
#include "support/child_process.h"
#include "support/fake_clock.h"
#include "support/wifi_test.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <pthread.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr char alreadyStarted[] = "wifi monitor already started.";

class WifiMonitorTest : public WifiTest {
protected:
    void SetUp() override {
        WifiTest::SetUp();
        addProcess("77", "/usr/sbin/wpa_supplicant");
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

    static ptrdiff_t threads() { return std::distance(fs::directory_iterator("/proc/self/task"), {}); }
};

/// A client that answers only when it is told to.
class HangingClientTest : public WifiMonitorTest {
protected:
    void SetUp() override {
        WifiMonitorTest::SetUp();
        mkfifo("answer", 0600);
        addClientThatRuns("[ $5 = status ] && cat " + folder() + "/answer");
    }

    /// Starts the monitor and waits until its client hangs.
    void startHanging() {
        rx_wifi_monitor_start();
        while (readFile("called").empty())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    static void answer(const std::string& text) { std::ofstream("answer") << text; }
};

using Clock = std::chrono::steady_clock;

} // namespace

TEST(WifiRecordTest, HasItsFieldsInOrder) {
    EXPECT_EQ(offsetof(WpaMsg, state), 0u);
    EXPECT_EQ(offsetof(WpaMsg, reserved), 4u);
    EXPECT_EQ(offsetof(WpaMsg, ssid), 8u);
    EXPECT_EQ(offsetof(WpaMsg, ip_address), 72u);
    EXPECT_EQ(offsetof(WpaMsg, rssi), 96u);
    EXPECT_EQ(offsetof(WpaMsg, linkspeed), 100u);
    EXPECT_EQ(offsetof(WpaMsg, noise), 104u);
    EXPECT_EQ(offsetof(WpaMsg, frequency), 108u);
    EXPECT_EQ(offsetof(WpaMsg, id), 112u);
    EXPECT_EQ(sizeof(WpaMsg), 116u);
}

TEST(WifiRecordTest, StatusIsTheAddressOfTheRecord) {
    EXPECT_EQ(rx_wifi_status(), &g_wpa_msg);
    EXPECT_NE(rx_wifi_status(), nullptr);
}

TEST_F(WifiMonitorTest, LogsItsProcessAndThread) {
    addClient("", "");
    rx_wifi_monitor_start();
    sleeps();
    unsigned process = 0;
    unsigned thread = 0;
    unsigned same = 0;
    int length = 0;
    const std::string log = takeLog();
    ASSERT_EQ(sscanf(log.c_str(), "new thread_wifi_monitor: pid %u tid %u (0x%x)\n%n", &process, &thread,
                     &same, &length),
              3)
        << log;
    EXPECT_EQ(static_cast<size_t>(length), log.size());
    EXPECT_EQ(process, static_cast<unsigned>(getpid()));
    EXPECT_EQ(thread, same);
    EXPECT_TRUE(fs::exists("/proc/self/task/" + std::to_string(thread)));
    EXPECT_NE(thread, process);
}

TEST_F(WifiMonitorTest, PollsAtOnceAndThenEvery3Seconds) {
    addClient("\nssid=home\nwpa_state=SCANNING\n", "");
    start();
    EXPECT_EQ(rx_wifi_status()->state, 2);
    EXPECT_STREQ(rx_wifi_status()->ssid, "home");
    addClient("wpa_state=COMPLETED\nip_address=10.0.0.7\n", "RSSI=-61\n");
    polls();
    EXPECT_EQ(rx_wifi_status()->state, 4);
    EXPECT_STREQ(rx_wifi_status()->ip_address, "10.0.0.7");
    EXPECT_EQ(rx_wifi_status()->rssi, -61);
    EXPECT_STREQ(rx_wifi_status()->ssid, "") << "the record is replaced whole";
}

TEST_F(WifiMonitorTest, CopyOfTheRecordIsTheRecord) {
    addClient("\nssid=home\nwpa_state=SCANNING\nip_address=10.0.0.7\nid=4\n",
              "RSSI=-61\nLINKSPEED=65\nNOISE=-90\nFREQUENCY=5180\n");
    start();
    const WpaMsg copy = readWifiStatus();
    EXPECT_EQ(memcmp(&copy, rx_wifi_status(), sizeof copy), 0);
    EXPECT_EQ(copy.frequency, 5180);
}

TEST_F(WifiMonitorTest, FailingClientZeroesTheRecord) {
    addClient("wpa_state=COMPLETED\n", "RSSI=-61\n");
    start();
    addClientThatRuns("exit 1");
    polls();
    EXPECT_EQ(rx_wifi_status()->state, 0);
    EXPECT_EQ(rx_wifi_status()->rssi, 0);
}

TEST_F(WifiMonitorTest, WithoutTheProcessNobodyIsAskedAndTheRecordStays) {
    addClient("wpa_state=COMPLETED\n", "RSSI=-61\n");
    start();
    endProcess("77");
    addClient("wpa_state=SCANNING\n", "");
    takeCalls();
    polls();
    polls();
    EXPECT_EQ(takeCalls(), "");
    EXPECT_EQ(rx_wifi_status()->state, 4);
    addProcess("78", "wpa_supplicant");
    polls();
    EXPECT_EQ(rx_wifi_status()->state, 2);
}

TEST_F(WifiMonitorTest, HotspotIsNotAsked) {
    endProcess("77");
    addProcess("78", "/usr/sbin/hostapd");
    addClient("wpa_state=COMPLETED\n", "");
    start();
    EXPECT_EQ(takeCalls(), "");
    EXPECT_EQ(rx_wifi_status()->state, 0);
}

TEST_F(WifiMonitorTest, ProcessListThatCannotBeReadIsLoggedAtEachPoll) {
    fs::remove_all(onDevice("/proc"));
    rx_wifi_monitor_start();
    sleeps();
    EXPECT_THAT(takeLog(), testing::EndsWith(")\ncan not open /proc\n"));
    polls();
    EXPECT_EQ(takeLog(), "can not open /proc\n");
}

TEST_F(WifiMonitorTest, SecondStartIsRefusedWithALineAndLeavesOneThread) {
    addClient("wpa_state=COMPLETED\n", "");
    start();
    rx_wifi_monitor_start();
    EXPECT_EQ(takeLog(), alreadyStarted);
    EXPECT_EQ(newThreads(), 1);
}

TEST_F(WifiMonitorTest, EveryStartZeroesTheRecord) {
    addClient("wpa_state=COMPLETED\n", "RSSI=-61\n");
    start();
    ASSERT_EQ(readWifiStatus().state, 4);
    rx_wifi_monitor_start();
    EXPECT_EQ(takeLog(), alreadyStarted);
    const WpaMsg record = readWifiStatus();
    const WpaMsg zero{};
    EXPECT_EQ(memcmp(&record, &zero, sizeof zero), 0) << "also one that is refused";
    polls();
    EXPECT_EQ(readWifiStatus().state, 4);
    stop();
    ASSERT_TRUE(ends());
    EXPECT_EQ(readWifiStatus().state, 4) << "the end does not";
    endProcess("77");
    mSleep.emplace();
    start();
    EXPECT_EQ(readWifiStatus().state, 0);
}

TEST_F(WifiMonitorTest, StopDoesNotWaitForTheSleep) {
    addClient("", "");
    start();
    rx_wifi_monitor_stop();
    EXPECT_EQ(newThreads(), 1) << "it sleeps on";
    mSleep->end();
    EXPECT_TRUE(ends());
}

TEST_F(WifiMonitorTest, StoppedMonitorDoesNotPollAgain) {
    addClient("", "");
    start();
    takeCalls();
    stop();
    ASSERT_TRUE(ends());
    EXPECT_EQ(takeCalls(), "");
}

TEST_F(WifiMonitorTest, StartIsRefusedUntilTheOldThreadHasEnded) {
    addClient("", "");
    start();
    rx_wifi_monitor_stop();
    rx_wifi_monitor_start();
    EXPECT_EQ(takeLog(), alreadyStarted);
    mSleep->end();
    ASSERT_TRUE(ends()) << "the refused start has not taken the stop back";
    start();
    EXPECT_EQ(newThreads(), 1);
}

TEST_F(WifiMonitorTest, StopWithoutAStartIsHarmless) {
    addClient("", "");
    rx_wifi_monitor_stop();
    rx_wifi_monitor_stop();
    start();
    EXPECT_EQ(newThreads(), 1);
}

TEST_F(WifiMonitorTest, StartsAndStopsTwentyTimes) {
    for (int i = 0; i < 20; ++i) {
        addClient("wpa_state=COMPLETED\n", "RSSI=" + std::to_string(i - 90) + "\n");
        start();
        EXPECT_EQ(rx_wifi_status()->rssi, i - 90);
        stop();
        ASSERT_TRUE(ends());
        mSleep.emplace();
    }
}

TEST_F(WifiMonitorTest, RecordIsReadWhileItIsWritten) {
    addClient("\nssid=" + std::string(63, 'a') + "\nwpa_state=COMPLETED\n", "");
    start();
    std::atomic<bool> done{false};
    std::thread reader([&done] {
        while (!done) {
            const std::string ssid = readWifiStatus().ssid;
            ASSERT_EQ(ssid, std::string(ssid.size(), ssid.empty() ? 'a' : ssid[0])) << "of one poll";
            ASSERT_LE(ssid.size(), 63u);
        }
    });
    for (int i = 0; i < 20; ++i)
        polls();
    done = true;
    reader.join();
}

TEST_F(WifiMonitorTest, ThreadThatCannotBeMadeLeavesTheMonitorStopped) {
    addClient("", "");
    pthread_attr_t normal;
    pthread_attr_t impossible;
    pthread_getattr_default_np(&normal);
    pthread_attr_init(&impossible);
    pthread_attr_setstacksize(&impossible, size_t{1} << 47); // more than there are addresses
    pthread_setattr_default_np(&impossible);
    rx_wifi_monitor_start();
    EXPECT_EQ(newThreads(), 0);
    rx_wifi_monitor_start();
    EXPECT_EQ(takeLog(), "") << "not refused";
    pthread_setattr_default_np(&normal);
    pthread_attr_destroy(&normal);
    pthread_attr_destroy(&impossible);
    start();
    EXPECT_EQ(newThreads(), 1);
}

TEST_F(WifiMonitorTest, ProcessMayEndWhileItRuns) {
    addClient("wpa_state=COMPLETED\n", "");
    const ChildResult child = inChild([this](int) {
        rx_wifi_monitor_start();
        sleeps();
    });
    EXPECT_EQ(child.exitCode, 0);
    takeLog();
}

TEST_F(HangingClientTest, HoldsUpNobodyButTheMonitor) {
    startHanging();
    const Clock::time_point begin = Clock::now();
    EXPECT_EQ(readWifiStatus().state, 0);
    EXPECT_EQ(getWifiMode(), 2);
    EXPECT_EQ(check_process_exist("wpa_supplicant", false), 77);
    rx_wifi_monitor_stop();
    rx_wifi_monitor_start();
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(2)) << "stop and start do not wait for the client";
    EXPECT_THAT(takeLog(), testing::EndsWith(alreadyStarted));
    EXPECT_EQ(newThreads(), 1);
    answer("wpa_state=COMPLETED\n");
    EXPECT_EQ(sleeps(), 3'000'000u) << "the poll is finished, also after the stop";
    EXPECT_EQ(rx_wifi_status()->state, 4);
}

TEST_F(HangingClientTest, AnswersWhenItCan) {
    startHanging();
    takeLog();
    answer("wpa_state=INACTIVE\n");
    EXPECT_EQ(sleeps(), 3'000'000u);
    EXPECT_EQ(rx_wifi_status()->state, 1);
}
