#include "support/command_log.h"
#include "support/opened_paths.h"
#include "support/wifi_test.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace fs = std::filesystem;
using namespace std::string_literals;

namespace {

/// One poll of the Wi-Fi client.
class WifiPollTest : public WifiTest {
protected:
    void TearDown() override {
        setenv("PATH", mPath.c_str(), 1);
        WifiTest::TearDown();
    }

    /// Takes all programs of this machine away.
    static void hidePrograms() { setenv("PATH", "/nowhere", 1); }

    std::string scratch() const { return onDevice("/tmp/wpa_status.txt"); }

    static bool isZero(const WpaMsg& message) {
        const WpaMsg zero{};
        return memcmp(&message, &zero, sizeof zero) == 0;
    }

private:
    std::string mPath = getenv("PATH");
};

} // namespace

TEST_F(WifiPollTest, WithoutARootTheCommandsAndTheFileAreTheDevicesOwn) {
    unsetenv("KESTRO_DEVICE_ROOT");
    CommandLog commands;
    OpenedPaths paths;
    const bool wasThere = fs::exists("/tmp/wpa_status.txt");
    rx_get_wpa_msg();
    if (!wasThere)
        fs::remove("/tmp/wpa_status.txt");
    EXPECT_THAT(
        commands.take(),
        testing::ElementsAre("wpa_cli -p /etc/wifi/sockets -i wlan0 status > /tmp/wpa_status.txt",
                             "wpa_cli -p /etc/wifi/sockets -i wlan0 signal_poll >> /tmp/wpa_status.txt"));
    EXPECT_THAT(paths.take(), testing::ElementsAre("/tmp/wpa_status.txt", "/tmp/wpa_status.txt"));
}

TEST_F(WifiPollTest, WithARootTheyAreInsideIt) {
    addClient("", "");
    rx_get_wpa_msg();
    const std::string begin = "-p " + onDevice("/etc/wifi/sockets") + " -i wlan0 ";
    EXPECT_EQ(takeCalls(), begin + "status\n" + begin + "signal_poll\n");
    EXPECT_TRUE(fs::exists(scratch()));
}

TEST_F(WifiPollTest, BothAnswersAreRead) {
    addClient("bssid=0a:00:00:00:00:01\nssid=caf\\xC3\\xA9\nid=3\nwpa_state=COMPLETED\nip_address=10.0.0.7\n",
              "RSSI=-61\nLINKSPEED=65\nNOISE=-90\nFREQUENCY=5180\n");
    const WpaMsg message = rx_get_wpa_msg();
    EXPECT_EQ(message.state, 4);
    EXPECT_STREQ(message.ssid, "caf\xC3\xA9");
    EXPECT_STREQ(message.ip_address, "10.0.0.7");
    EXPECT_EQ(message.rssi, -61);
    EXPECT_EQ(message.linkspeed, 65);
    EXPECT_EQ(message.noise, -90);
    EXPECT_EQ(message.frequency, 5180);
    EXPECT_EQ(message.id, 0) << "the bssid's tail, which begins with 0a";
}

TEST_F(WifiPollTest, LeavesTheRecordOfTheMonitorAlone) {
    const WpaMsg before = readWifiStatus();
    addClient("wpa_state=COMPLETED\n", "RSSI=-123\n");
    EXPECT_EQ(rx_get_wpa_msg().rssi, -123);
    const WpaMsg after = readWifiStatus();
    EXPECT_EQ(memcmp(&before, &after, sizeof before), 0);
}

TEST_F(WifiPollTest, EarlierAnswerIsForgotten) {
    addClient("wpa_state=COMPLETED\nip_address=10.0.0.7\n", "RSSI=-61\n");
    rx_get_wpa_msg();
    addClient("", "RSSI=-70\n");
    const WpaMsg message = rx_get_wpa_msg();
    EXPECT_EQ(message.state, 0);
    EXPECT_STREQ(message.ip_address, "");
    EXPECT_EQ(message.rssi, -70);
    EXPECT_EQ(readFile(scratch()), "RSSI=-70\n");
}

TEST_F(WifiPollTest, MissingClientSaysNothing) {
    hidePrograms();
    EXPECT_TRUE(isZero(rx_get_wpa_msg()));
    addClientThatRuns("echo wpa_state=COMPLETED");
    EXPECT_EQ(rx_get_wpa_msg().state, 4) << "as soon as it is there, it does";
}

TEST_F(WifiPollTest, FailingClientSaysNothing) {
    addClientThatRuns("echo 'Failed to connect' >&2; exit 255");
    EXPECT_TRUE(isZero(rx_get_wpa_msg()));
    addClientThatRuns("kill -9 $$");
    EXPECT_TRUE(isZero(rx_get_wpa_msg()));
}

TEST_F(WifiPollTest, FileThatCannotBeWrittenSaysNothing) {
    addClient("wpa_state=COMPLETED\n", "RSSI=-61\n");
    fs::create_directories(scratch());
    EXPECT_TRUE(isZero(rx_get_wpa_msg()));
}

TEST_F(WifiPollTest, OfAMegabyteOnlyTheBeginningIsRead) {
    addClientThatRuns("echo wpa_state=COMPLETED; head -c 1048576 /dev/zero | tr '\\0' x; echo; "
                      "echo ip_address=10.0.0.7");
    const WpaMsg message = rx_get_wpa_msg();
    EXPECT_EQ(message.state, 4);
    EXPECT_STREQ(message.ip_address, "");
    EXPECT_GT(fs::file_size(scratch()), 2u << 20);
}

TEST_F(WifiPollTest, AnswerIsReadUpTo4095Bytes) {
    const std::string fill = "RSSI=" + std::string(4095 - strlen("RSSI=-61"), ' ');
    addClient(fill + "-61", "2");
    EXPECT_EQ(rx_get_wpa_msg().rssi, -61);
    EXPECT_EQ(readFile(scratch()), fill + "-612");
}

TEST_F(WifiPollTest, FilesAreClosedAgain) {
    const auto openFiles = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), {}); };
    addClient("wpa_state=COMPLETED\n", "");
    rx_get_wpa_msg();
    const auto before = openFiles();
    for (int i = 0; i < 3; ++i)
        rx_get_wpa_msg();
    EXPECT_EQ(openFiles(), before);
}

TEST_F(WifiPollTest, MegabyteInOneValueIsCut) {
    addClientThatRuns("echo; printf ssid=; head -c 1048576 /dev/zero | tr '\\0' x");
    EXPECT_EQ(rx_get_wpa_msg().ssid, std::string(63, 'x'));
}

TEST_F(WifiPollTest, TextEndsAtAZeroByte) {
    addClient("wpa_state=SCANNING\n\0\nip_address=10.0.0.7\n"s, "RSSI=-61\n");
    const WpaMsg message = rx_get_wpa_msg();
    EXPECT_EQ(message.state, 2);
    EXPECT_STREQ(message.ip_address, "");
    EXPECT_EQ(message.rssi, 0);
}

TEST_F(WifiPollTest, BinaryAnswerIsHarmless) {
    std::string bytes;
    for (int i = 0; i < 8192; ++i)
        bytes += static_cast<char>(i * 167 + i / 256);
    addClient(bytes, bytes);
    EXPECT_TRUE(isZero(rx_get_wpa_msg()));
    addClient("\nssid=\xff\xfe\x01\x80\nid=2\n", "RSSI=\xff\n");
    EXPECT_STREQ(rx_get_wpa_msg().ssid, "\xff\xfe\x01\x80");
}

TEST_F(WifiPollTest, RootMayHoldSpacesAndQuotes) {
    const std::string plain = folder() + "/device";
    const std::string root = folder() + "/it's a \"device\"; $(echo x)";
    addClient("wpa_state=COMPLETED\n", "");
    fs::rename(plain, root);
    setenv("KESTRO_DEVICE_ROOT", root.c_str(), 1);
    EXPECT_EQ(rx_get_wpa_msg().state, 4);
    EXPECT_TRUE(fs::exists(root + "/tmp/wpa_status.txt"));
}

TEST_F(WifiPollTest, PollsOfSeveralThreadsTakeTurns) {
    addClientThatRuns("case $5 in\n"
                      "status) echo wpa_state=COMPLETED; sleep 0.01; echo ip_address=10.0.0.7 ;;\n"
                      "*) sleep 0.01; echo RSSI=-61 ;;\n"
                      "esac");
    std::vector<WpaMsg> messages(8);
    std::vector<std::thread> threads;
    for (WpaMsg& message : messages)
        threads.emplace_back([&message] { message = rx_get_wpa_msg(); });
    for (std::thread& thread : threads)
        thread.join();
    std::string turns;
    for (size_t i = 0; i < messages.size(); ++i)
        turns += "-p " + onDevice("/etc/wifi/sockets") + " -i wlan0 status\n-p " +
                 onDevice("/etc/wifi/sockets") + " -i wlan0 signal_poll\n";
    EXPECT_EQ(takeCalls(), turns);
    for (const WpaMsg& message : messages) {
        EXPECT_EQ(message.state, 4);
        EXPECT_STREQ(message.ip_address, "10.0.0.7");
        EXPECT_EQ(message.rssi, -61);
    }
}

// Everybody may write to the folder of the scratch file.
TEST_F(WifiPollTest, NothingThatOthersHavePutThereIsWrittenTo) {
    addClient("wpa_state=COMPLETED\n", "");
    const std::string victim = onDevice("/tmp/victim");
    for (const bool hardLink : {false, true}) {
        writeFile(victim, "precious");
        fs::remove(scratch());
        hardLink ? fs::create_hard_link(victim, scratch()) : fs::create_symlink(victim, scratch());
        EXPECT_EQ(rx_get_wpa_msg().state, 4) << hardLink;
        EXPECT_EQ(readFile(victim), "precious") << hardLink;
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(scratch()))) << hardLink;
    }
    takeCalls();
}

TEST_F(WifiPollTest, APipeInItsPlaceKeepsNobodyWaiting) {
    addClient("wpa_state=COMPLETED\n", "");
    fs::remove(scratch());
    ASSERT_EQ(mkfifo(scratch().c_str(), 0600), 0);
    EXPECT_EQ(rx_get_wpa_msg().state, 4);
    takeCalls();
}

TEST_F(WifiPollTest, WhatCannotBeRemovedIsNotAsked) {
    addClient("wpa_state=COMPLETED\n", "");
    fs::create_directories(scratch() + "/folder");
    EXPECT_TRUE(isZero(rx_get_wpa_msg()));
    EXPECT_EQ(takeCalls(), "");
}
