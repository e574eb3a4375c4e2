#include "core/file_util.h"
#include "core/log.h"
#include "support/child_process.h"
#include "support/kestro_test.h"

#include <climits>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

class DumpToFileTest : public KestroTest {};

TEST_F(DumpToFileTest, WritesTheBytesAsTheyAre) {
    const std::string bytes("a\0b\r\n\xff", 6);
    EXPECT_EQ(dumpToFile("out", bytes.data(), 6), 0);
    EXPECT_EQ(readFile("out"), bytes);
}

TEST_F(DumpToFileTest, ReplacesALongerFile) {
    writeFile("out", "something longer");
    EXPECT_EQ(dumpToFile("out", "ab", 2), 0);
    EXPECT_EQ(readFile("out"), "ab");
}

TEST_F(DumpToFileTest, FailureToOpenIsPrintedAndReturnsWhatThePrintReturned) {
    const std::string line = "can not open missing/out\n";
    EXPECT_EQ(dumpToFile("missing/out", "ab", 2), static_cast<int>(line.size()));
    EXPECT_EQ(takeLog(), line);
}

TEST_F(DumpToFileTest, FolderCannotBeOpened) {
    EXPECT_EQ(dumpToFile(".", "ab", 2), 15);
    EXPECT_EQ(takeLog(), "can not open .\n");
}

TEST_F(DumpToFileTest, NullPathCannotBeOpened) {
    EXPECT_EQ(dumpToFile(nullptr, "ab", 2), 20);
    EXPECT_EQ(takeLog(), "can not open (null)\n");
}

TEST_F(DumpToFileTest, FailureIsPrintedEvenWhenTheLogGoesToTheSystem) {
    const ChildResult child = inChild([](int) {
        initLogger(1);
        dumpToFile("missing/out", "ab", 2);
    });
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_EQ(takeLog(), "can not open missing/out\n");
}

TEST_F(DumpToFileTest, NothingToWriteLeavesAnEmptyFile) {
    for (const int size : {0, -1, INT_MIN}) {
        writeFile("out", "old");
        EXPECT_EQ(dumpToFile("out", "ab", size), 0) << size;
        EXPECT_EQ(readFile("out"), "") << size;
    }
}

TEST_F(DumpToFileTest, NullDataLeavesAnEmptyFile) {
    writeFile("out", "old");
    EXPECT_EQ(dumpToFile("out", nullptr, 5), 0);
    EXPECT_EQ(readFile("out"), "");
}

TEST_F(DumpToFileTest, ReturnsTheResultOfClosingTheFile) {
    EXPECT_EQ(dumpToFile("/dev/full", "ab", 2), EOF);
}

class WriteTextTest : public KestroTest {};

TEST_F(WriteTextTest, StringHasNeitherTerminatorNorNewline) {
    EXPECT_EQ(fileWriteString("out", "text"), 0);
    EXPECT_EQ(readFile("out"), "text");
}

TEST_F(WriteTextTest, EmptyStringLeavesAnEmptyFile) {
    writeFile("out", "old");
    EXPECT_EQ(fileWriteString("out", ""), 0);
    EXPECT_EQ(readFile("out"), "");
}

TEST_F(WriteTextTest, NullStringLeavesTheFileUntouched) {
    writeFile("out", "old");
    EXPECT_EQ(fileWriteString("out", nullptr), 0);
    EXPECT_EQ(readFile("out"), "old");
    fileWriteString("new", nullptr);
    EXPECT_FALSE(std::filesystem::exists("new"));
}

TEST_F(WriteTextTest, FailureIsThatOfDumpToFile) {
    EXPECT_EQ(fileWriteString("missing/out", "text"), 25);
    EXPECT_EQ(takeLog(), "can not open missing/out\n");
    EXPECT_EQ(fileWriteInt("missing/out", 1), 25);
    EXPECT_EQ(takeLog(), "can not open missing/out\n");
    EXPECT_EQ(fileWriteString("missing/out", nullptr), 0);
}

TEST_F(WriteTextTest, IntIsWrittenInDecimal) {
    const std::pair<int, const char*> rows[] = {
        {-5, "-5"}, {0, "0"}, {7, "7"}, {INT_MAX, "2147483647"}, {INT_MIN, "-2147483648"}};
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(fileWriteInt("out", value), 0);
        EXPECT_EQ(readFile("out"), text);
    }
}

class FileToMemTest : public KestroTest {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        memset(buffer, '#', sizeof buffer);
    }

    /// Whether the buffer still holds what was there before, from `begin` on.
    bool untouchedFrom(size_t begin) const {
        return std::string(buffer + begin, sizeof buffer - begin) == std::string(sizeof buffer - begin, '#');
    }

    char buffer[4096];
};

TEST_F(FileToMemTest, ReadsTheWholeFileAndAddsNothing) {
    const std::string bytes("a\0b\r\n\xff", 6);
    writeFile("in", bytes);
    EXPECT_EQ(fileToMem("in", buffer), 6);
    EXPECT_EQ(std::string(buffer, 6), bytes);
    EXPECT_TRUE(untouchedFrom(6));
}

TEST_F(FileToMemTest, ReadsALongFile) {
    std::string bytes(4096, 'x');
    bytes[4095] = 'y';
    writeFile("in", bytes);
    EXPECT_EQ(fileToMem("in", buffer), 4096);
    EXPECT_EQ(std::string(buffer, 4096), bytes);
}

TEST_F(FileToMemTest, EmptyFileLeavesTheBufferUnchanged) {
    writeFile("in", "");
    EXPECT_EQ(fileToMem("in", buffer), 0);
    EXPECT_TRUE(untouchedFrom(0));
}

TEST_F(FileToMemTest, MissingFileReadsNothing) {
    EXPECT_EQ(fileToMem("in", buffer), 0);
    EXPECT_TRUE(untouchedFrom(0));
}

TEST_F(FileToMemTest, FolderReadsNothing) {
    EXPECT_EQ(fileToMem(".", buffer), 0);
    EXPECT_TRUE(untouchedFrom(0));
}

TEST_F(FileToMemTest, PipeReadsNothing) {
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    const int writer = open("pipe", O_RDWR); // or opening it for reading would wait
    ASSERT_EQ(write(writer, "abc", 3), 3);
    EXPECT_EQ(fileToMem("pipe", buffer), 0);
    EXPECT_TRUE(untouchedFrom(0));
    close(writer);
}

TEST_F(FileToMemTest, NullReadsNothing) {
    writeFile("in", "abc");
    EXPECT_EQ(fileToMem(nullptr, buffer), 0);
    EXPECT_EQ(fileToMem("in", nullptr), 0);
    EXPECT_TRUE(untouchedFrom(0));
}

TEST_F(FileToMemTest, ReadsBackWhatWasWritten) {
    fileWriteInt("out", -123);
    EXPECT_EQ(fileToMem("out", buffer), 4);
    EXPECT_EQ(std::string(buffer, 4), "-123");
}

TEST(HexDigits, AreReadInBothCases) {
    for (int c = 0; c < 256; ++c) {
        const char* const digits = "0123456789ABCDEF0123456789abcdef";
        const char* const found = c ? strchr(digits, c) : nullptr;
        const long wanted = found ? (found - digits) % 16 : 255;
        EXPECT_EQ(CharToHex(static_cast<unsigned char>(c)), wanted) << c;
    }
    EXPECT_EQ(CharToHex('g'), 255);
}

TEST(HexDigits, AreWrittenInUpperCase) {
    for (int v = 0; v < 256; ++v) {
        const int wanted = v < 16 ? "0123456789ABCDEF"[v] : 255;
        EXPECT_EQ(HexToChar(static_cast<unsigned char>(v)), wanted) << v;
    }
    EXPECT_EQ(HexToChar(16), 255);
}
