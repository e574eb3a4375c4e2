#include "core/log.h"
#include "support/child_process.h"
#include "support/kestro_test.h"
#include "support/opened_paths.h"
#include "support/system_log.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <thread>
#include <unistd.h>

class LogTest : public KestroTest {};

TEST_F(LogTest, GoesToStandardOutputFromTheStart) {
    tprintf("hello\n");
    EXPECT_EQ(takeLog(), "hello\n");
}

TEST_F(LogTest, FormatsLikePrintf) {
    tprintf("%s %d %ld %5.1f %p %%\n", "text", -3, 4'000'000'000L, 2.25, static_cast<void*>(nullptr));
    EXPECT_EQ(takeLog(), "text -3 4000000000   2.2 (nil) %\n");
}

TEST_F(LogTest, AddsNothing) {
    tprintf("free window:");
    tprintf("x");
    EXPECT_EQ(takeLog(), "free window:x");
}

TEST_F(LogTest, ReturnsTheNumberOfBytesWritten) {
    EXPECT_EQ(tprintf("12345\n"), 6);
    EXPECT_EQ(tprintf("%s", ""), 0);
    takeLog();
}

TEST_F(LogTest, WritesTextOfAnyLength) {
    const std::string text(100'000, 'x');
    EXPECT_EQ(tprintf("%s", text.c_str()), 100'000);
    EXPECT_EQ(takeLog(), text);
}

TEST_F(LogTest, StandardOutputWhenNoSystemLogIsAskedFor) {
    initLogger(0);
    tprintf("hello\n");
    EXPECT_EQ(takeLog(), "hello\n");
}

TEST_F(LogTest, OneCallsTextStaysTogether) {
    constexpr int threads = 4;
    constexpr int lines = 500;
    std::vector<std::thread> writers;
    for (int i = 0; i < threads; ++i)
        writers.emplace_back([i] {
            for (int line = 0; line < lines; ++line)
                tprintf("%s %d %s\n", "begin", i, "end");
        });
    for (std::thread& writer : writers)
        writer.join();
    std::istringstream log(takeLog());
    int counts[threads] = {};
    for (std::string line; std::getline(log, line);) {
        int writer = -1;
        ASSERT_EQ(sscanf(line.c_str(), "begin %d end", &writer), 1) << line;
        ASSERT_EQ(line.size(), 11u) << line;
        ++counts[writer];
    }
    EXPECT_THAT(counts, testing::Each(lines));
}

/// The system log is opened for good, so each of these has a process of its own.
class SystemLogTest : public KestroTest {
protected:
    /// What reaches the system log while `body` runs and until the process ends. Its name in the device's
    /// /proc is `comm`, unless that is null.
    std::string systemLogOf(const char* comm, const std::function<void()>& body) {
        const ChildResult child = inChild([&](int report) {
            noteSystemLogIn(report);
            if (comm)
                writeFile(onDevice("/proc/" + std::to_string(getpid()) + "/comm"), comm);
            body();
            fflush(stdout);
        });
        EXPECT_EQ(child.exitCode, 0);
        return child.report;
    }

    static void start() { initLogger(1); }

    static std::string opened(const std::string& name) {
        return "openlog [" + name + "] option 1 facility 0\n";
    }
    static constexpr const char* closed = "closelog\n";
};

TEST_F(SystemLogTest, IsOpenedUnderTheNameOfTheProcessAndClosedAtExit) {
    EXPECT_EQ(systemLogOf("navora\n", start), opened("navora") + closed);
}

TEST_F(SystemLogTest, TakesTheMessagesAsDebugMessages) {
    const auto body = [] {
        initLogger(1);
        EXPECT_EQ(tprintf("%d windows %s\n", 3, "open"), 0);
        tprintf("free window:");
    };
    EXPECT_EQ(systemLogOf("navora\n", body), opened("navora") + "vsyslog priority 7 [3 windows open\n]\n" +
                                                 "vsyslog priority 7 [free window:]\n" + closed);
    EXPECT_EQ(takeLog(), "") << "and standard output stays empty";
}

TEST_F(SystemLogTest, AnyValueButZeroAsksForIt) {
    EXPECT_EQ(systemLogOf("a\n", [] { initLogger(-1); }), opened("a") + closed);
}

TEST_F(SystemLogTest, NameOf63CharactersIsKeptWhole) {
    const std::string name(63, 'n');
    EXPECT_EQ(systemLogOf((name + "\n").c_str(), start), opened(name) + closed);
}

TEST_F(SystemLogTest, LongerNameIsCutTo63Characters) {
    const std::string name(63, 'n');
    EXPECT_EQ(systemLogOf((name + "more\n").c_str(), start), opened(name) + closed);
}

TEST_F(SystemLogTest, NameWithoutANewlineIsKeptWhole) {
    EXPECT_EQ(systemLogOf("short", start), opened("short") + closed);
    const std::string name(63, 'n');
    EXPECT_EQ(systemLogOf(name.c_str(), start), opened(name) + closed);
}

TEST_F(SystemLogTest, OnlyTheFirstLineIsTheName) {
    EXPECT_EQ(systemLogOf("first\nsecond\n", start), opened("first") + closed);
}

TEST_F(SystemLogTest, WithoutTheFileTheNameIsEmpty) {
    EXPECT_EQ(systemLogOf(nullptr, start), opened("") + closed);
}

TEST_F(SystemLogTest, AnEmptyFileGivesAnEmptyName) {
    EXPECT_EQ(systemLogOf("", start), opened("") + closed);
}

TEST_F(SystemLogTest, NameStaysWhenTheFileIsGoneTheSecondTime) {
    const auto body = [this] {
        initLogger(1);
        std::remove(onDevice("/proc/" + std::to_string(getpid()) + "/comm").c_str());
        initLogger(1);
    };
    EXPECT_EQ(systemLogOf("navora\n", body), opened("navora") + opened("navora") + closed);
}

TEST_F(SystemLogTest, CanBeLeftAgain) {
    const auto body = [] {
        initLogger(1);
        tprintf("to the system\n");
        initLogger(0);
        tprintf("to the terminal\n");
    };
    EXPECT_EQ(systemLogOf("a\n", body), opened("a") + "vsyslog priority 7 [to the system\n]\n" + closed);
    EXPECT_EQ(takeLog(), "to the terminal\n");
}

TEST_F(SystemLogTest, ZeroOpensNothing) {
    const auto body = [] { initLogger(0); };
    EXPECT_EQ(systemLogOf("a\n", body), "");
}
