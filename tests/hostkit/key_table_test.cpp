#include "hostkit/key_table.h"

#include "core/host.h"
#include "support/child_process.h"
#include "support/kestro_test.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using hostkit::gKeyTable;
using hostkit::KeyTable;
using hostkit::keyTableName;
using hostkit::removeKeyTable;
using State = KeyTable::State;

static std::optional<uid_t> sUser;

/// Takes the system call's place in this program.
uid_t geteuid() noexcept {
    return sUser.value_or(static_cast<uid_t>(syscall(SYS_geteuid)));
}

/// Each test has a device of its own, and so a table of its own.
class KeyTableTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        name = keyTableName();
    }

    void TearDown() override {
        sUser.reset();
        gKeyTable.close();
        removeKeyTable(name);
        KestroTest::TearDown();
    }

    std::string path() const { return "/dev/shm" + name; }

    /// Overwrites a part of the object.
    void write(off_t at, const std::string& bytes) const {
        const int file = shm_open(name.c_str(), O_RDWR | O_CREAT, 0600);
        EXPECT_EQ(pwrite(file, bytes.data(), bytes.size(), at), static_cast<ssize_t>(bytes.size()));
        close(file);
    }

    std::string name;
};

static std::string number(uint32_t value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

TEST_F(KeyTableTest, ANewTableHoldsZeros) {
    KeyTable table;
    EXPECT_EQ(table.state(), State::closed);
    EXPECT_EQ(table.open(), State::created);
    for (int index = 0; index < KeyTable::size; ++index)
        EXPECT_EQ(table.get(index), 0) << index;
    EXPECT_EQ(table.error(), 0);
}

TEST_F(KeyTableTest, EveryIndexKeepsAValueOfItsOwn) {
    KeyTable table;
    for (int index = 0; index < KeyTable::size; ++index)
        table.set(index, 1000 - 37 * index);
    for (int index = 0; index < KeyTable::size; ++index)
        EXPECT_EQ(table.get(index), 1000 - 37 * index) << index;
    table.set(5, INT32_MIN);
    table.set(6, INT32_MAX);
    EXPECT_EQ(table.get(5), INT32_MIN);
    EXPECT_EQ(table.get(6), INT32_MAX);
}

TEST_F(KeyTableTest, AnIndexOutOfRangeReadsZeroAndStoresNothing) {
    KeyTable table;
    for (const int index : {-1, 64, 65, INT32_MIN, INT32_MAX}) {
        table.set(index, 7);
        EXPECT_EQ(table.get(index), 0) << index;
    }
    for (int index = 0; index < KeyTable::size; ++index)
        EXPECT_EQ(table.get(index), 0) << index;
}

TEST_F(KeyTableTest, TheLayoutIsFixed) {
    KeyTable table;
    table.set(0, 0x01020304);
    table.set(63, -2);
    const std::string bytes = readFile(path());
    ASSERT_EQ(bytes.size(), 320u);
    EXPECT_EQ(bytes.substr(0, 8), "KESTROKT");
    EXPECT_EQ(bytes.substr(8, 8), number(1) + number(64));
    EXPECT_EQ(bytes.substr(16, 48), std::string(48, '\0'));
    EXPECT_EQ(bytes.substr(64, 4), number(0x01020304));
    EXPECT_EQ(bytes.substr(316), number(static_cast<uint32_t>(-2)));
}

TEST_F(KeyTableTest, OnlyItsUserMayReadIt) {
    KeyTable table;
    table.open();
    struct stat status {};
    ASSERT_EQ(stat(path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, static_cast<mode_t>(S_IFREG | 0600));
}

TEST_F(KeyTableTest, TwoOpeningsShareTheValues) {
    KeyTable one;
    KeyTable other;
    one.set(19, 1);
    EXPECT_EQ(other.open(), State::attached);
    EXPECT_EQ(other.get(19), 1);
    other.set(19, 5);
    EXPECT_EQ(one.get(19), 5);
}

TEST_F(KeyTableTest, ASecondProcessSeesAndChangesTheValues) {
    KeyTable table;
    table.set(1, 42);
    const ChildResult child = inChild([](int report) {
        KeyTable own;
        writeTo(report, std::to_string(own.get(1)));
        own.set(2, 77);
    });
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_EQ(child.report, "42");
    EXPECT_EQ(table.get(2), 77);
}

TEST_F(KeyTableTest, TheValuesOutliveTheirProcess) {
    EXPECT_EQ(inChild([](int) { KeyTable().set(3, 9); }).exitCode, 0);
    KeyTable table;
    EXPECT_EQ(table.open(), State::attached);
    EXPECT_EQ(table.get(3), 9);
}

TEST_F(KeyTableTest, ProcessesThatStartTogetherMakeOneTable) {
    constexpr int children = 8;
    int go[2];
    ASSERT_EQ(pipe(go), 0);
    for (int child = 0; child < children; ++child)
        if (fork() == 0) {
            char start = 0;
            close(go[1]);
            _exit(read(go[0], &start, 1) == 0 && (KeyTable().set(child, child + 1), true) ? 0 : 1);
        }
    close(go[0]);
    close(go[1]);
    for (int child = 0; child < children; ++child) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    KeyTable table;
    for (int child = 0; child < children; ++child)
        EXPECT_EQ(table.get(child), child + 1);
}

TEST_F(KeyTableTest, AnObjectThatIsNoTableIsReplaced) {
    const struct {
        const char* what;
        off_t at;
        std::string bytes;
    } changes[] = {{"foreign", 0, "NOTATABL"},
                   {"older version", 8, number(0)},
                   {"newer version", 8, number(2)},
                   {"fewer values", 12, number(20)},
                   {"more values", 12, number(65)}};
    for (const auto& change : changes) {
        KeyTable().set(0, 5);
        write(change.at, change.bytes);
        KeyTable table;
        EXPECT_EQ(table.open(), State::replaced) << change.what;
        EXPECT_EQ(table.get(0), 0) << change.what;
        table.set(0, 6);
        EXPECT_EQ(KeyTable().get(0), 6) << change.what;
    }
}

TEST_F(KeyTableTest, ATruncatedObjectIsReplaced) {
    for (const off_t length : {1, 63, 64, 319}) {
        KeyTable().set(0, 5);
        ASSERT_EQ(truncate(path().c_str(), length), 0);
        KeyTable table;
        EXPECT_EQ(table.open(), State::replaced) << length;
        EXPECT_EQ(table.get(0), 0);
    }
}

TEST_F(KeyTableTest, WhoUsesAReplacedObjectIsNotDisturbed) {
    write(0, std::string(4096, 'x'));
    const int file = shm_open(name.c_str(), O_RDWR, 0600);
    auto* const foreign =
        static_cast<char*>(mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0));
    close(file);
    KeyTable table;
    EXPECT_EQ(table.open(), State::replaced);
    table.set(0, 1);
    EXPECT_EQ(std::string(foreign, 4096), std::string(4096, 'x'));
    munmap(foreign, 4096);
}

TEST_F(KeyTableTest, AnEmptyObjectBecomesATable) {
    write(0, "");
    KeyTable table;
    EXPECT_EQ(table.open(), State::created);
    table.set(1, 3);
    EXPECT_EQ(KeyTable().get(1), 3);
}

TEST_F(KeyTableTest, ATableThatIsCutWhileInUseComesBackWithWhatThisProcessStored) {
    KeyTable table;
    table.set(1, 3);
    ASSERT_EQ(truncate(path().c_str(), 0), 0);
    EXPECT_EQ(table.get(1), 3);
    EXPECT_EQ(KeyTable().get(1), 3);
    ASSERT_EQ(truncate(path().c_str(), 100), 0);
    table.set(2, 4);
    EXPECT_EQ(KeyTable().get(1), 3);
    EXPECT_EQ(KeyTable().get(2), 4);
}

TEST_F(KeyTableTest, ATableThatIsDeletedWhileInUseComesBackWithAllValues) {
    KeyTable table;
    table.set(1, 3);
    KeyTable().set(2, 4);
    EXPECT_TRUE(removeKeyTable(name));
    EXPECT_EQ(table.get(1), 3);
    EXPECT_EQ(KeyTable().get(1), 3);
    EXPECT_EQ(KeyTable().get(2), 4);
    removeKeyTable(name);
    EXPECT_FALSE(removeKeyTable(name));
}

TEST_F(KeyTableTest, AnotherUsersObjectIsLeftAloneAndTheValuesStayPrivate) {
    KeyTable().set(1, 3);
    const std::string before = readFile(path());
    sUser = geteuid() + 1;
    KeyTable table;
    EXPECT_EQ(table.open(name), State::notShared);
    EXPECT_EQ(table.error(), EPERM);
    EXPECT_EQ(table.get(1), 0);
    table.set(1, 8);
    EXPECT_EQ(table.get(1), 8);
    EXPECT_EQ(readFile(path()), before);
}

TEST_F(KeyTableTest, WithoutSharedMemoryTheValuesArePrivate) {
    for (const std::string& bad : {std::string("/a/b"), std::string(), "/" + std::string(300, 'n')}) {
        KeyTable table;
        EXPECT_EQ(table.open(bad), State::notShared) << bad;
        EXPECT_NE(table.error(), 0);
        EXPECT_EQ(table.get(4), 0);
        table.set(4, 2);
        EXPECT_EQ(table.get(4), 2);
        EXPECT_EQ(table.state(), State::notShared);
    }
}

TEST_F(KeyTableTest, TheNameTellsUsersAndDevicesApart) {
    const std::string user = std::to_string(geteuid());
    EXPECT_EQ(name.rfind("/kestro-keys-v1-" + user + "-", 0), 0u) << name;
    EXPECT_EQ(name.size(), ("/kestro-keys-v1-" + user + "-0123456789abcdef").size());
    std::filesystem::create_directory("other");
    setenv("KESTRO_DEVICE_ROOT", (folder() + "/other").c_str(), 1);
    const std::string other = keyTableName();
    EXPECT_NE(other, name);
    setenv("KESTRO_DEVICE_ROOT", "./other/../other/", 1);
    EXPECT_EQ(keyTableName(), other) << "the same folder by another path";
    sUser = geteuid() + 1;
    EXPECT_NE(keyTableName(), other);
    sUser = 4294967294u;
    setenv("KESTRO_DEVICE_ROOT", "", 1);
    EXPECT_EQ(keyTableName(), "/kestro-keys-v1-4294967294");
    unsetenv("KESTRO_DEVICE_ROOT");
    EXPECT_EQ(keyTableName(), "/kestro-keys-v1-4294967294");
}

TEST_F(KeyTableTest, TheHostSymbolsReachIt) {
    ASSERT_EQ(gShmInfo, &gKeyTable);
    EXPECT_EQ(GetKeyShm(gShmInfo, 19), 0);
    SetKeyShm(gShmInfo, 19, 1);
    EXPECT_EQ(GetKeyShm(gShmInfo, 19), 1);
    EXPECT_EQ(KeyTable().get(19), 1);
    KeyTable().set(19, 0);
    EXPECT_EQ(GetKeyShm(gShmInfo, 19), 0);
}

TEST_F(KeyTableTest, ANullHandleReadsZeroAndStoresNothing) {
    SetKeyShm(nullptr, 1, 5);
    EXPECT_EQ(GetKeyShm(nullptr, 1), 0);
    EXPECT_EQ(GetKeyShm(gShmInfo, 1), 0);
}

TEST_F(KeyTableTest, OtherIndexesOfTheHostSymbolsReadZero) {
    SetKeyShm(gShmInfo, -1, 5);
    SetKeyShm(gShmInfo, 64, 5);
    EXPECT_EQ(GetKeyShm(gShmInfo, -1), 0);
    EXPECT_EQ(GetKeyShm(gShmInfo, 64), 0);
}

TEST_F(KeyTableTest, ClosedItForgetsWhatItStored) {
    gKeyTable.set(1, 5);
    gKeyTable.close();
    removeKeyTable(name);
    EXPECT_EQ(gKeyTable.get(1), 0);
}
