#include "support/kestro_test.h"
#include "support/scripted_file.h"
#include "system/content.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

class ContentTest : public KestroTest {
protected:
    char* text = nullptr;

    void TearDown() override {
        free(text);
        KestroTest::TearDown();
    }

    /// The result of loading a file of this content.
    int loaded(const std::string& content, const char* name = "name") {
        free(text);
        text = nullptr;
        writeFile("content", content);
        FILE* const file = fopen("content", "r");
        const int result = loadContent(name, file, &text);
        fclose(file);
        return result;
    }
};

} // namespace

TEST_F(ContentTest, IsTheWholeFileWithATerminator) {
    EXPECT_EQ(loaded("{\"vol\": 3}\n"), 0);
    EXPECT_STREQ(text, "{\"vol\": 3}\n");
    EXPECT_EQ(loaded("x"), 0);
    EXPECT_STREQ(text, "x");
}

TEST_F(ContentTest, KeepsEveryByte) {
    std::string content(100'000, 0);
    for (size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>(i * 7);
    ASSERT_EQ(loaded(content), 0);
    EXPECT_EQ(memcmp(text, content.data(), content.size()), 0);
    EXPECT_EQ(text[content.size()], 0);
}

TEST_F(ContentTest, IsReadFromTheStartWhereverTheFileStands) {
    writeFile("content", "0123456789");
    FILE* const file = fopen("content", "r");
    fseek(file, 7, SEEK_SET);
    EXPECT_EQ(loadContent("name", file, &text), 0);
    EXPECT_STREQ(text, "0123456789");
    fclose(file);
}

TEST_F(ContentTest, LeavesTheFileOpen) {
    writeFile("content", "0123456789");
    FILE* const file = fopen("content", "r");
    loadContent("name", file, &text);
    rewind(file);
    EXPECT_EQ(fgetc(file), '0');
    EXPECT_EQ(fclose(file), 0);
}

TEST_F(ContentTest, OfNoBytesIsRefusedWithoutMemory) {
    EXPECT_EQ(loaded("", "empty.json"), -1);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(takeLog(), "empty.json invalid size 0\n");
}

TEST_F(ContentTest, MayHave131071BytesButNotOneMore) {
    EXPECT_EQ(loaded(std::string(131071, 'x')), 0);
    EXPECT_EQ(strlen(text), 131071u);
    EXPECT_EQ(loaded(std::string(131072, 'x')), -1);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(takeLog(), "name invalid size 131072\n");
}

TEST_F(ContentTest, LeavesThePointerAloneWhenTheSizeIsRefused) {
    char mine[] = "mine";
    char* pointer = mine;
    writeFile("content", "");
    FILE* const file = fopen("content", "r");
    EXPECT_EQ(loadContent("name", file, &pointer), -1);
    EXPECT_EQ(pointer, mine);
    fclose(file);
    takeLog();
}

TEST_F(ContentTest, OfAFolderIsRefused) {
    FILE* const file = fopen(".", "r");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(loadContent("folder", file, &text), -1);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(takeLog(), "folder invalid size -1\n");
    fclose(file);
}

TEST_F(ContentTest, OfAPipeIsRefused) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    FILE* const file = fdopen(ends[0], "r");
    EXPECT_EQ(loadContent("pipe", file, &text), -1);
    EXPECT_EQ(takeLog(), "pipe invalid size -1\n");
    fclose(file);
    close(ends[1]);
}

TEST_F(ContentTest, SizeThatFitsNoIntIsRefused) {
    ScriptedFile file((1L << 32) + 5, {{"12345"}});
    EXPECT_EQ(loadContent("huge", file.file(), &text), -1);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(file.readsDone(), 0u);
    EXPECT_EQ(takeLog(), "huge invalid size 5\n");
}

TEST_F(ContentTest, MayComeInPieces) {
    ScriptedFile file(9, {{"abc"}, {"def"}, {"ghi"}});
    EXPECT_EQ(loadContent("name", file.file(), &text), 0);
    EXPECT_STREQ(text, "abcdefghi");
}

TEST_F(ContentTest, IsReadOnAfterAnError) {
    ScriptedFile file(6, {{"abc"}, {"", EINTR}, {"def"}});
    EXPECT_EQ(loadContent("name", file.file(), &text), 0);
    EXPECT_STREQ(text, "abcdef");
}

TEST_F(ContentTest, MayTakeTenReads) {
    std::vector<ScriptedFile::Read> reads;
    for (int i = 0; i < 9; ++i)
        reads.insert(reads.end(), {{"xy"}, {"", EINTR}});
    reads.push_back({"xy"});
    ScriptedFile file(20, reads);
    EXPECT_EQ(loadContent("name", file.file(), &text), 0);
    EXPECT_EQ(std::string(text), "xyxyxyxyxyxyxyxyxyxy");
}

TEST_F(ContentTest, ThatTakesElevenReadsFails) {
    std::vector<ScriptedFile::Read> reads;
    for (int i = 0; i < 11; ++i)
        reads.insert(reads.end(), {{"xy"}, {"", EINTR}});
    ScriptedFile file(22, reads);
    EXPECT_EQ(loadContent("name", file.file(), &text), -1);
    EXPECT_EQ(takeLog(), "read name (20 vs 22)error : 4:Interrupted system call\n");
}

TEST_F(ContentTest, FailsWithTheSystemsReason) {
    ScriptedFile file(10, std::vector<ScriptedFile::Read>(20, {"", EIO}));
    EXPECT_EQ(loadContent("broken.json", file.file(), &text), -1);
    EXPECT_EQ(takeLog(), "read broken.json (0 vs 10)error : 5:Input/output error\n");
    EXPECT_EQ(file.readsDone(), 10u);
}

TEST_F(ContentTest, ThatEndsEarlyFailsWithWhatCameBeforeTheEnd) {
    ScriptedFile file(10, {{"abc"}});
    errno = EACCES; // of something earlier
    EXPECT_EQ(loadContent("cut.json", file.file(), &text), -1);
    EXPECT_EQ(takeLog(), "read cut.json (3 vs 10)error : 0:Success\n");
}

TEST_F(ContentTest, LeavesItsMemoryToTheCallerWhenTheReadingFails) {
    ScriptedFile file(10, {{"abc"}});
    loadContent("cut.json", file.file(), &text);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(memcmp(text, "abc", 3), 0);
    takeLog();
}

TEST_F(ContentTest, BearsNullArguments) {
    EXPECT_EQ(loadContent("name", nullptr, &text), -1);
    EXPECT_EQ(text, nullptr);
    writeFile("content", "x");
    FILE* const file = fopen("content", "r");
    EXPECT_EQ(loadContent("name", file, nullptr), -1);
    EXPECT_EQ(loadContent(nullptr, file, &text), 0);
    fclose(file);
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(loaded("", nullptr), -1);
    EXPECT_EQ(takeLog(), "(null) invalid size 0\n");
}
