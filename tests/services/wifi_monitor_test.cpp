#include "support/wifi_monitor_test.h"
#include "services/process_list.h"
#include "shell/status_icons.h"

#include <atomic>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

// What the Wi-Fi monitor asks, and what it makes of the answers.

namespace fs = std::filesystem;

namespace {

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
    addProcess("0", "wpa_supplicant"); // any number will do
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

TEST_F(WifiMonitorTest, IconIsDrawnWhileTheRecordIsWritten) {
    addClient("wpa_state=COMPLETED\n", "RSSI=-61\n");
    start();
    std::atomic<bool> done{false};
    std::thread polling([this, &done] {
        for (int i = 0; i < 20; ++i)
            polls();
        done = true;
    });
    while (!done)
        EXPECT_EQ(draw_wifi_icon(true, 0, 0), 42);
    polling.join();
    takeLog(); // there are no pictures
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
