#include "support/child_process.h"
#include "support/wifi_monitor_test.h"

#include <pthread.h>

// The beginning and the end of the Wi-Fi monitor.

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
