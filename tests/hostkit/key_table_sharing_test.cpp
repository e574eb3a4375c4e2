#include "hostkit/key_table.h"
#include "support/kestro_test.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <pthread.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

using hostkit::KeyTable;
using hostkit::keyTableName;
using State = KeyTable::State;

/// What a table shares with other processes, and how they keep out of each other's way.
class KeyTableSharingTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        name = keyTableName();
    }

    void TearDown() override {
        hostkit::removeKeyTable(name);
        KestroTest::TearDown();
    }

    /// A new object, without a table yet, that this process has locked as another one would.
    int lockedObject() const {
        const int object = shm_open(name.c_str(), O_RDWR | O_CREAT, 0600);
        EXPECT_EQ(flock(object, LOCK_EX), 0);
        return object;
    }

    /// Whether somebody waits for the lock of this object.
    static bool isAwaited(int object) {
        struct stat status {};
        fstat(object, &status);
        std::ifstream locks("/proc/locks");
        for (std::string line; std::getline(locks, line);)
            if (line.find("-> FLOCK") != std::string::npos &&
                line.find(":" + std::to_string(status.st_ino) + " ") != std::string::npos)
                return true;
        return false;
    }

    /// Opens a table while the object is locked; `meanwhile` happens when that waits.
    State openedWhile(int object, const std::function<void(pthread_t)>& meanwhile) {
        State state = State::closed;
        std::atomic<bool> opened{false};
        std::thread opening([&] {
            state = table.open(name);
            opened = true;
        });
        while (!opened && !isAwaited(object))
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        EXPECT_FALSE(opened) << "without the lock";
        meanwhile(opening.native_handle());
        flock(object, LOCK_UN);
        opening.join();
        close(object);
        return state;
    }

    std::string name;
    KeyTable table;
};

TEST_F(KeyTableSharingTest, ATableThatIsBeingLaidOutIsWaitedFor) {
    std::string bytes;
    {
        KeyTable other;
        other.set(5, 77);
        bytes = readFile("/dev/shm" + name);
        hostkit::removeKeyTable(name);
    }
    const int object = lockedObject();
    const auto layOut = [&](pthread_t) {
        EXPECT_EQ(pwrite(object, bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
    };
    EXPECT_EQ(openedWhile(object, layOut), State::attached);
    EXPECT_EQ(table.get(5), 77);
}

TEST_F(KeyTableSharingTest, ASignalDoesNotEndTheWait) {
    struct sigaction interrupting {};
    struct sigaction before {};
    interrupting.sa_handler = [](int) {};
    sigaction(SIGUSR1, &interrupting, &before);
    const int object = lockedObject();
    const auto interrupt = [object](pthread_t opening) {
        for (int i = 0; i < 20; ++i) {
            pthread_kill(opening, SIGUSR1);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        EXPECT_TRUE(isAwaited(object));
    };
    EXPECT_EQ(openedWhile(object, interrupt), State::created);
    sigaction(SIGUSR1, &before, nullptr);
}

TEST_F(KeyTableSharingTest, AnObjectThatIsDeletedDuringTheWaitIsNotUsed) {
    const int object = lockedObject();
    EXPECT_EQ(openedWhile(object, [this](pthread_t) { hostkit::removeKeyTable(name); }), State::created);
    KeyTable other;
    EXPECT_EQ(other.open(name), State::attached);
    table.set(1, 3);
    EXPECT_EQ(other.get(1), 3);
}

TEST_F(KeyTableSharingTest, AClosedTableHoldsNothing) {
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    };
    const auto before = openFiles();
    table.set(1, 3);
    EXPECT_THAT(readFile("/proc/self/maps"), testing::HasSubstr(name));
    table.close();
    EXPECT_EQ(openFiles(), before);
    EXPECT_THAT(readFile("/proc/self/maps"), testing::Not(testing::HasSubstr(name)));
}

TEST_F(KeyTableSharingTest, TheLongestNameHas63Characters) {
    const std::string longest = "/" + std::string(62, 'k');
    EXPECT_EQ(table.open(longest + "k"), State::notShared);
    EXPECT_EQ(table.error(), ENAMETOOLONG);
    EXPECT_EQ(table.open(longest), State::created);
    EXPECT_EQ(table.error(), 0) << "that of the time before is forgotten";
    EXPECT_TRUE(hostkit::removeKeyTable(longest));
}
