#include "navora/programs.h"

#include <gmock/gmock.h>

using navora::placeIn;
using navora::Programs;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

/// What is wrong with a text, and the command that it gives for "/games/a b.nes".
class ProgramsTest : public ::testing::Test {
protected:
    std::vector<std::string> command(const std::string& text, const std::string& path = "/games/a b.nes") {
        Programs programs;
        mProblem = programs.read(text);
        return programs.commandFor(path);
    }

    std::string mProblem;
};

TEST_F(ProgramsTest, ATextIsCutAtItsSpaces) {
    EXPECT_THAT(command(R"({"programs": {"nes": "  play  --full %f "}})"),
                ElementsAre("play", "--full", "/games/a b.nes"));
    EXPECT_EQ(mProblem, "");
}

TEST_F(ProgramsTest, QuotesKeepSpacesAndEmptyArguments) {
    EXPECT_THAT(command(R"({"programs": {"nes": "play 'a b' \"it's\" '' x'y z'"}})"),
                ElementsAre("play", "a b", "it's", "", "xy z", "/games/a b.nes"));
}

TEST_F(ProgramsTest, AListIsTakenAsItIs) {
    EXPECT_THAT(command(R"({"programs": {"nes": ["my program", "'%f'", "", "-x y"]}})"),
                ElementsAre("my program", "'/games/a b.nes'", "", "-x y"));
}

TEST_F(ProgramsTest, PlaceholdersAreFilledInWhereverTheyStand) {
    EXPECT_THAT(command(R"({"programs": {"nes": "p --rom=%f --dir=%d 100%% %x %"}})"),
                ElementsAre("p", "--rom=/games/a b.nes", "--dir=/games", "100%", "%x", "%"));
    EXPECT_THAT(command(R"({"programs": {"nes": "p %%f"}})"), ElementsAre("p", "%f", "/games/a b.nes"));
}

TEST_F(ProgramsTest, APathIsNeverReadAgainForPlaceholdersOrSpaces) {
    EXPECT_THAT(command(R"({"programs": {"nes": "p %f"}})", "/%d/ '%f;$(x).nes"),
                ElementsAre("p", "/%d/ '%f;$(x).nes"));
}

TEST_F(ProgramsTest, AnEntryMayNameSeveralExtensionsInAnyCase) {
    for (const char* name : {"nes fds", "FDS,Nes", ".fds, .nes", "x nes"})
        EXPECT_THAT(command(R"({"programs": {")" + std::string(name) + R"(": "p"}})"),
                    ElementsAre("p", "/games/a b.nes"))
            << name;
    EXPECT_THAT(command(R"({"programs": {"nes": "p"}})", "/B.NES"), ElementsAre("p", "/B.NES"));
}

TEST_F(ProgramsTest, OtherKindsHaveNoProgram) {
    for (const char* path : {"/a.gb", "/nes", "/.nes", "/a.nes/b", "/a.", "/a.nes.gb", ""})
        EXPECT_THAT(command(R"({"programs": {"nes": "p"}})", path), IsEmpty()) << path;
}

TEST_F(ProgramsTest, NoJsonIsToldByLineAndColumn) {
    EXPECT_THAT(command("{\n  \"programs\": {\n    \"é\": oops\n  }\n}"), IsEmpty());
    EXPECT_EQ(mProblem, "line 3, column 10: this is no JSON");
    EXPECT_THAT(command(""), IsEmpty());
    EXPECT_EQ(mProblem, "line 1, column 1: this is no JSON");
    EXPECT_THAT(command(R"({"programs": {"nes": "p"}} more)"), IsEmpty());
    EXPECT_THAT(mProblem, StartsWith("line 1, column 2"));
}

TEST_F(ProgramsTest, WhatIsNoProgramIsNamedAndTheRestIsTaken) {
    const std::pair<const char*, const char*> wrong[] = {
        {R"("gb": 7)", "\"gb\" is no command"},
        {R"("gb": ["p", 7])", "\"gb\" is no command"},
        {R"("gb": "p 'a")", "\"gb\" is no command"},
        {R"("gb": "")", "\"gb\" names no program"},
        {R"("gb": [])", "\"gb\" names no program"},
        {R"("gb": [""])", "\"gb\" names no program"},
        {R"(" ": "p")", "a program without an extension"},
    };
    for (const auto& [entry, problem] : wrong) {
        const std::string text = R"({"programs": {)" + std::string(entry) + R"(, "nes": "p %f"}})";
        EXPECT_THAT(command(text), ElementsAre("p", "/games/a b.nes")) << entry;
        EXPECT_EQ(mProblem, problem);
        EXPECT_THAT(command(text, "/a.gb"), IsEmpty());
    }
}

TEST_F(ProgramsTest, WithoutAnObjectOfProgramsThereAreNone) {
    for (const char* text : {"{}", "[]", "7", R"({"programs": []})", R"({"Programs": {"nes": "p"}})"}) {
        EXPECT_THAT(command(text), IsEmpty()) << text;
        EXPECT_EQ(mProblem, "there is no object \"programs\"");
    }
}

TEST(PlaceInText, CountsLinesAndCharacters) {
    EXPECT_EQ(placeIn("", 0), "line 1, column 1");
    EXPECT_EQ(placeIn("ab", 1), "line 1, column 2");
    EXPECT_EQ(placeIn("a\nb", 1), "line 1, column 2");
    EXPECT_EQ(placeIn("a\nb", 2), "line 2, column 1");
    EXPECT_EQ(placeIn("a\n\néx", 5), "line 3, column 2");
    EXPECT_EQ(placeIn("a", 99), "line 1, column 2");
}
