#include "end_to_end/process.h"
#include "hostkit/key_table.h"
#include "support/kestro_test.h"

#include <csignal>
#include <cstdint>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using hostkit::KeyTable;

/// What a run of the command left behind.
struct KeysRun {
    int exitCode;
    std::string output;
    std::string errors;
};

class KestroKeysTest : public KestroTest {
protected:
    void TearDown() override {
        hostkit::removeKeyTable(hostkit::keyTableName());
        KestroTest::TearDown();
    }

    static std::unique_ptr<Process> start(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), KESTRO_KEYS);
        return std::make_unique<Process>(arguments, std::vector<std::string>{}, "");
    }

    static KeysRun run(const std::vector<std::string>& arguments) {
        const auto keys = start(arguments);
        const int exitCode = keys->wait();
        return {exitCode, keys->output(), keys->errors()};
    }

    static void expectUsageError(const std::vector<std::string>& arguments, const std::string& problem) {
        const KeysRun keys = run(arguments);
        EXPECT_EQ(keys.exitCode, 2);
        EXPECT_EQ(keys.output, "");
        EXPECT_EQ(keys.errors, "kestro-keys: " + problem + "; kestro-keys --help tells more\n");
    }
};

TEST_F(KestroKeysTest, GetPrintsWhatALauncherHasStored) {
    KeyTable table;
    table.set(0, 14);
    table.set(63, -5);
    EXPECT_EQ(run({"get", "0"}).output, "14\n");
    EXPECT_EQ(run({"get", "63"}).output, "-5\n");
    EXPECT_EQ(run({"get", "1"}).output, "0\n");
}

TEST_F(KestroKeysTest, ALauncherReadsWhatSetHasStored) {
    KeyTable table;
    const KeysRun keys = run({"set", "19", "1"});
    EXPECT_EQ(keys.exitCode, 0);
    EXPECT_EQ(keys.output + keys.errors, "");
    EXPECT_EQ(table.get(19), 1);
    EXPECT_EQ(run({"set", "19", "-2147483648"}).exitCode, 0);
    EXPECT_EQ(table.get(19), INT32_MIN);
}

TEST_F(KestroKeysTest, WatchPrintsTheValueAndEveryChange) {
    KeyTable table;
    table.set(7, 3);
    table.set(8, 1);
    const auto watch = start({"watch", "7"});
    EXPECT_TRUE(eventually([&] { return watch->output() == "3\n"; }));
    table.set(7, 4);
    EXPECT_TRUE(eventually([&] { return watch->output() == "3\n4\n"; }));
    table.set(8, 2);
    table.set(7, -1);
    EXPECT_TRUE(eventually([&] { return watch->output() == "3\n4\n-1\n"; }));
    watch->signal(SIGTERM);
    EXPECT_EQ(watch->wait(), -SIGTERM);
}

TEST_F(KestroKeysTest, ATableThatCannotBeSharedIsAnError) {
    // A folder in the object's place.
    const std::string place = "/dev/shm" + hostkit::keyTableName();
    ASSERT_EQ(mkdir(place.c_str(), 0700), 0);
    for (const char* command : {"get", "watch"}) {
        const KeysRun keys = run({command, "1"});
        EXPECT_EQ(keys.exitCode, 1);
        EXPECT_EQ(keys.output, "");
        EXPECT_EQ(keys.errors.rfind("kestro-keys: cannot open the table: ", 0), 0u) << keys.errors;
    }
    EXPECT_EQ(run({"set", "1", "2"}).exitCode, 1);
    rmdir(place.c_str());
}

TEST_F(KestroKeysTest, WrongCommandLinesAreUsageErrors) {
    expectUsageError({}, "no command");
    expectUsageError({"put", "1", "2"}, "unknown command 'put'");
    expectUsageError({"--bogus"}, "unknown command '--bogus'");
    expectUsageError({"get"}, "get needs an index");
    expectUsageError({"get", "1", "2"}, "get needs an index");
    expectUsageError({"watch"}, "watch needs an index");
    expectUsageError({"name", "1"}, "name needs nothing more");
    expectUsageError({"set", "1"}, "set needs an index and a value");
    expectUsageError({"set", "1", "2", "3"}, "set needs an index and a value");
    for (const char* index : {"64", "-1", "x", "", "1x", "99999999999999999999"})
        expectUsageError({"get", index}, "'" + std::string(index) + "' is not an index from 0 to 63");
    for (const char* value : {"2147483648", "-2147483649", "on", "", "1.5"})
        expectUsageError({"set", "1", value},
                         "'" + std::string(value) + "' is not a whole number of 32 bits");
    EXPECT_EQ(KeyTable().get(1), 0);
}

TEST_F(KestroKeysTest, WhatCannotBeWrittenIsAnError) {
    for (const char* arguments : {"get 1", "watch 1", "name", "--help", "--version"}) {
        Process keys({"sh", "-c", std::string(KESTRO_KEYS " ") + arguments + " >/dev/full"}, {}, "");
        EXPECT_EQ(keys.wait(), 1) << arguments;
        EXPECT_EQ(keys.errors(), "kestro-keys: cannot write: No space left on device\n") << arguments;
    }
}

TEST_F(KestroKeysTest, NamePrintsTheObjectsName) {
    EXPECT_EQ(run({"name"}).output, hostkit::keyTableName() + "\n");
}

TEST_F(KestroKeysTest, HelpAndVersionSayWhatItIs) {
    const KeysRun help = run({"--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_EQ(help.output.rfind("Usage: kestro-keys get INDEX\n", 0), 0u);
    EXPECT_THAT(run({"--version"}).output, testing::MatchesRegex("kestro-keys [0-9.]+\n"));
}
