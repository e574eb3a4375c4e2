#include "services/wpa_message.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <random>
#include <string>

using kestro::parseWpaMessage;
using namespace std::string_literals;

static WpaMsg parse(const std::string& text) {
    return parseWpaMessage(text.c_str());
}

static std::string ssidOf(const std::string& written) {
    return parse("bssid=a0:b1:c2:d3:e4:f5\nssid=" + written + "\nid=0\n").ssid;
}

static int idOf(const std::string& text) {
    return parse(text).id;
}

TEST(WpaMessageTest, EmptyTextIsAllZero) {
    const WpaMsg message = parse("");
    const WpaMsg zero{};
    EXPECT_EQ(memcmp(&message, &zero, sizeof zero), 0);
}

TEST(WpaMessageTest, WholeAnswerIsRead) {
    const WpaMsg message = parse("freq=2412\nssid=home\nmode=station\nwpa_state=COMPLETED\n"
                                 "ip_address=192.168.1.23\naddress=02:00:00:00:00:01\n"
                                 "RSSI=-58\nLINKSPEED=72\nNOISE=-95\nFREQUENCY=2412\nAVG_RSSI=-60\n");
    EXPECT_EQ(message.state, 4);
    EXPECT_EQ(message.reserved, 0);
    EXPECT_STREQ(message.ssid, "home");
    EXPECT_STREQ(message.ip_address, "192.168.1.23");
    EXPECT_EQ(message.rssi, -58);
    EXPECT_EQ(message.linkspeed, 72);
    EXPECT_EQ(message.noise, -95);
    EXPECT_EQ(message.frequency, 2412);
}

TEST(WpaMessageTest, StateIsTheWholeWord) {
    EXPECT_EQ(parse("wpa_state=COMPLETED\n").state, 4);
    EXPECT_EQ(parse("wpa_state=INACTIVE\n").state, 1);
    EXPECT_EQ(parse("wpa_state=SCANNING\n").state, 2);
    EXPECT_EQ(parse("wpa_state=4WAY_HANDSHAKE\n").state, 6);
    for (const char* word :
         {"DISABLED", "ASSOCIATING", "completed", "COMPLETED2", "COMPLET", "4WAY", "4", ""})
        EXPECT_EQ(parse("wpa_state="s + word + "\n").state, 0) << word;
}

TEST(WpaMessageTest, OnlyTheFirstWordCounts) {
    EXPECT_EQ(parse("wpa_state=COMPLETED INACTIVE\n").state, 4);
    EXPECT_EQ(ssidOf("my home"), "my");
    EXPECT_EQ(ssidOf("tab\tbed"), "tab");
}

TEST(WpaMessageTest, OnlyTheFirstOccurrenceOfAKeyCounts) {
    const WpaMsg message = parse("\nssid=a\nssid=b\nwpa_state=x\nwpa_state=COMPLETED\nip_address=1\n"
                                 "ip_address=2\nRSSI=x\nRSSI=-5\nNOISE=1\nNOISE=2\n");
    EXPECT_STREQ(message.ssid, "a");
    EXPECT_EQ(message.state, 0);
    EXPECT_STREQ(message.ip_address, "1");
    EXPECT_EQ(message.rssi, 0);
    EXPECT_EQ(message.noise, 1);
}

TEST(WpaMessageTest, LineOfTheBssidIsNoName) {
    EXPECT_STREQ(parse("bssid=a0:b1:c2:d3:e4:f5\nfreq=2412\n").ssid, "");
    EXPECT_EQ(ssidOf("home"), "home");
}

TEST(WpaMessageTest, NameNeedsALineBreakBeforeIt) {
    EXPECT_STREQ(parse("ssid=home\n").ssid, "");
    EXPECT_STREQ(parse("\nssid=home").ssid, "home");
}

TEST(WpaMessageTest, EscapesBecomeBytes) {
    EXPECT_EQ(ssidOf("caf\\xC3\\xA9"), "caf\xC3\xA9");
    EXPECT_EQ(ssidOf("caf\\xc3\\xa9"), "caf\xC3\xA9");
    EXPECT_EQ(ssidOf("\\xe6\\x97\\x85Tabi\\x21"), "\xe6\x97\x85Tabi!");
    EXPECT_EQ(ssidOf("a\\x20b"), "a b") << "a space that was escaped";
}

TEST(WpaMessageTest, EscapesThatAreNoDigitsBecomeBytesToo) {
    EXPECT_EQ(ssidOf("\\xZZ"), "\xEF");
    EXPECT_EQ(ssidOf("\\xG1"), "\xF1");
    EXPECT_EQ(ssidOf("\\x1Gq"), "\x0Fq");
}

TEST(WpaMessageTest, EscapesThatAreCutShortStayAsTheyAre) {
    EXPECT_EQ(ssidOf("ab\\x"), "ab\\x");
    EXPECT_EQ(ssidOf("ab\\xC"), "ab\\xC");
    EXPECT_EQ(ssidOf("\\x41\\x4"), "A\\x4");
}

TEST(WpaMessageTest, OtherBackslashesStayAsTheyAre) {
    EXPECT_EQ(ssidOf("a\\\"b\\\\c\\"), "a\\\"b\\\\c\\");
    EXPECT_EQ(ssidOf("\\X41"), "\\X41");
    EXPECT_EQ(ssidOf("\\\\x41"), "\\A");
}

TEST(WpaMessageTest, ZeroByteEndsTheName) {
    EXPECT_EQ(ssidOf("a\\x00b"), "a");
}

TEST(WpaMessageTest, LongestNameOfANetworkIsDecodedWhole) {
    std::string written;
    std::string name;
    for (int i = 0; i < 32; ++i) {
        written += "\\xe9";
        name += "\xe9";
    }
    EXPECT_EQ(written.size(), 128u);
    EXPECT_EQ(ssidOf(written), name);
}

TEST(WpaMessageTest, NameIsDecodedFirstAndCutAfter) {
    EXPECT_EQ(ssidOf(std::string(62, 'a') + "\\x62\\x63"), std::string(62, 'a') + "b");
    EXPECT_EQ(ssidOf(std::string(4000, 'a')), std::string(63, 'a'));
    EXPECT_EQ(ssidOf(std::string(63, 'a')), std::string(63, 'a'));
}

TEST(WpaMessageTest, AddressIsCut) {
    EXPECT_STREQ(parse("ip_address=12345678901234567890123\n").ip_address, "12345678901234567890123");
    EXPECT_STREQ(parse("ip_address=123456789012345678901234\n").ip_address, "12345678901234567890123");
    EXPECT_STREQ(parse("ip_address=" + std::string(4000, '1') + "\n").ip_address,
                 std::string(23, '1').c_str());
}

TEST(WpaMessageTest, EmptyValueReadsTheNextLinesWord) {
    EXPECT_EQ(ssidOf(""), "id=0");
    EXPECT_STREQ(parse("ip_address=\naddress=02:00\n").ip_address, "address=02:00");
    EXPECT_EQ(parse("wpa_state=\nCOMPLETED\n").state, 4);
    EXPECT_EQ(parse("RSSI=\n-7\n").rssi, -7);
}

TEST(WpaMessageTest, IdIsTheTailOfTheBssidThatComesFirst) {
    EXPECT_EQ(idOf("bssid=02:11:22:33:44:55\nssid=home\nid=5\n"), 2);
    EXPECT_EQ(idOf("bssid=94:11:22:33:44:55\nid=5\n"), 94);
    EXPECT_EQ(idOf("bssid=a4:11:22:33:44:55\nssid=home\nid=5\n"), 0);
    EXPECT_EQ(idOf("\nssid=7up\nid=5\n"), 7) << "or of the ssid";
}

TEST(WpaMessageTest, IdIsItsOwnLineWhenThatComesFirst) {
    EXPECT_EQ(idOf("id=5\nbssid=02:11:22:33:44:55\n"), 5);
    EXPECT_EQ(idOf("mode=station\nid=-1\n"), -1);
}

TEST(WpaMessageTest, NumbersThatAreNoneStayZero) {
    const WpaMsg message = parse("RSSI=\nLINKSPEED=fast\nNOISE=--3\nFREQUENCY=.5\n");
    EXPECT_EQ(message.rssi, 0);
    EXPECT_EQ(message.linkspeed, 0);
    EXPECT_EQ(message.noise, 0);
    EXPECT_EQ(message.frequency, 0);
}

TEST(WpaMessageTest, KeysAreInUpperAndLowerCaseAsWritten) {
    const WpaMsg message = parse("freq=2412\nrssi=-5\nWPA_STATE=COMPLETED\n");
    EXPECT_EQ(message.frequency, 0);
    EXPECT_EQ(message.rssi, 0);
    EXPECT_EQ(message.state, 0);
}

TEST(WpaMessageTest, FailureMessagesSayNothing) {
    const WpaMsg message =
        parse("Failed to connect to non-global ctrl_ifname: wlan0  error: No such file\nFAIL\n");
    const WpaMsg zero{};
    EXPECT_EQ(memcmp(&message, &zero, sizeof zero), 0);
}

TEST(WpaMessageTest, TextIsReadUpTo4095Bytes) {
    const std::string last = "\nRSSI=-5";
    const std::string fill(4095 - last.size(), 'x');
    EXPECT_EQ(parse(fill + last).rssi, -5);
    EXPECT_EQ(parse(fill + last + "5").rssi, -5) << "the second 5 is not seen";
    EXPECT_EQ(parse(std::string(4095, 'x') + last).rssi, 0);
}

TEST(WpaMessageTest, TextsAlwaysEndWhateverIsRead) {
    static const char* const pieces[] = {
        "\nssid=", "ip_address=",          "wpa_state=", "id=", "RSSI=", "\\x",
        "%s%n",    "99999999999999999999", "-",          "\n",  " ",     "COMPLETED"};
    std::mt19937 random(7);
    for (int i = 0; i < 5000; ++i) {
        std::string text;
        for (auto j = random() % 60; j > 0; --j) {
            if (random() % 2)
                text += pieces[random() % std::size(pieces)];
            else
                text.append(1 + random() % 90, static_cast<char>(1 + random() % 255));
        }
        const WpaMsg message = parse(text);
        ASSERT_EQ(message.ssid[63], 0) << text;
        ASSERT_EQ(message.ip_address[23], 0) << text;
        ASSERT_EQ(message.reserved, 0) << text;
        ASSERT_TRUE(message.state >= 0 && message.state <= 6) << text;
    }
}
