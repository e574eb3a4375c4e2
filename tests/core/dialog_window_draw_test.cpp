#include "shell/skin.h"
#include "support/dialog_test.h"
#include "system/language.h"

#include <filesystem>

using testing::ElementsAre;
using testing::IsEmpty;

static constexpr SDL_Color titleColor{54, 255, 160, 0};
static constexpr SDL_Color messageColor{1, 2, 3, 255};
static constexpr SDL_Color buttonColor{4, 5, 6, 255};

class DialogDrawTest : public DialogTest {
protected:
    void SetUp() override {
        DialogTest::SetUp();
        gPopupColorTxt = messageColor;
        gPopupColorBtn = buttonColor;
        TTF_SetFontSize(gPopupFontBtn, 30); // unlike the message's, to tell them apart
    }

    static std::string title(const std::string& text, SDL_Rect rect) {
        return centred(gPopupFontTitle, text, titleColor, rect);
    }
    static std::string question(const std::string& text, SDL_Rect rect) {
        return centred(gPopupFontTxt, text, titleColor, rect);
    }
    static std::string line(const std::string& text, SDL_Rect rect) {
        return centred(gPopupFontTxt, text, messageColor, rect);
    }
    static std::string label(const std::string& text, SDL_Rect rect) {
        return centred(gPopupFontBtn, text, buttonColor, rect);
    }

    /// Takes pictures away from "./skin".
    static void remove(const std::vector<std::string>& names) {
        for (const std::string& name : names)
            std::filesystem::remove("skin/" + name);
    }
};

// On the panel of 700 x 524: at (1280 - 700) / 2, (720 - 524) / 2 = 290, 98.
static constexpr SDL_Rect titleRect{290, 98 + 80, 700, 43};
static constexpr SDL_Rect messageRect{290, 98 + 186, 700, 100};
static constexpr SDL_Rect firstButton{290 + 100, 98 + 390, 200, 72};
static constexpr SDL_Rect secondButton{390 + 200 + 100, 98 + 390, 200, 72};

TEST_F(DialogDrawTest, DrawsPanelTextsAndButtonsInOrder) {
    open("Delete", "Really?");
    EXPECT_THAT(drawn(), ElementsAre("'panel' all -> 290,98 700x524 on W", title("Delete", titleRect),
                                     question("Really?", messageRect), //
                                     "'normal' all -> 390,488 180x60 on W", label("Cancel", firstButton),
                                     "'focused' all -> 690,488 200x72 on W", label("OK", secondButton)));
}

TEST_F(DialogDrawTest, TheOtherButtonHasTheFocusAfterLeft) {
    open("Delete", "Really?");
    press(7);
    EXPECT_THAT(drawn(), ElementsAre("'panel' all -> 290,98 700x524 on W", title("Delete", titleRect),
                                     question("Really?", messageRect), //
                                     "'focused' all -> 390,488 200x72 on W", label("Cancel", firstButton),
                                     "'normal' all -> 690,488 180x60 on W", label("OK", secondButton)));
}

TEST_F(DialogDrawTest, AHostsOwnFocusIsOnCancelUnlessItIs1) {
    open("", "");
    for (const int focus : {-1, 2}) {
        dialog->focus = focus;
        EXPECT_THAT(drawn(), ElementsAre("'panel' all -> 290,98 700x524 on W",
                                         "'focused' all -> 390,488 200x72 on W", label("Cancel", firstButton),
                                         "'normal' all -> 690,488 180x60 on W", label("OK", secondButton)));
    }
}

TEST_F(DialogDrawTest, FrozenPageAndMaskComeFirst) {
    writePicture("skin/float-win-mask.png", 16, 16, 0x80000000);
    init_shared_skin();
    open("Delete", "Really?");
    dialog->init();
    const auto lines = drawn();
    ASSERT_EQ(lines.size(), 9u);
    EXPECT_EQ(lines[0], "'page' all -> all on W");
    EXPECT_EQ(lines[1], "'mask' all -> all on W");
    EXPECT_EQ(lines[2], "'panel' all -> 290,98 700x524 on W");
}

TEST_F(DialogDrawTest, SeveralLinesAreInTheColourOfTexts) {
    open("Delete", "One\nTwo", true);
    const int height = lineHeight(gPopupFontTxt);
    const int pitch = 100 / 2 > height + 4 ? 100 / 2 : height + 5;
    const auto lines = drawn();
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[1], title("Delete", titleRect));
    EXPECT_EQ(lines[2], line("One", {290, 284, 700, pitch}));
    EXPECT_EQ(lines[3], line("Two", {290, 284 + pitch, 700, pitch}));
}

TEST_F(DialogDrawTest, OneOfSeveralLinesStandsInTheMiddle) {
    open("Delete", "Really?", true);
    EXPECT_EQ(drawn()[2], line("Really?", messageRect));
}

TEST_F(DialogDrawTest, LinesMayRunOutOfThePanel) {
    open("Delete", "1\n2\n3\n4", true);
    const int pitch = lineHeight(gPopupFontTxt) + 5;
    EXPECT_EQ(drawn()[5], line("4", {290, 284 + 3 * pitch, 700, pitch}));
}

TEST_F(DialogDrawTest, EmptyLinesAreLeftOut) {
    open("Delete", "\n\nOne\n\n\nTwo\n", true);
    const auto lines = drawn();
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_THAT(lines[2], testing::StartsWith("\"One\""));
    EXPECT_THAT(lines[3], testing::StartsWith("\"Two\""));
}

TEST_F(DialogDrawTest, OnlyLineBreaksSeparateLines) {
    open("Delete", "a b,c;d\te\rf|g", true);
    EXPECT_EQ(drawn().size(), 7u);
}

TEST_F(DialogDrawTest, EmptyTextsDrawNothing) {
    for (const bool multiLine : {false, true}) {
        open("", "", multiLine);
        EXPECT_THAT(drawn(), ElementsAre("'panel' all -> 290,98 700x524 on W",
                                         "'normal' all -> 390,488 180x60 on W", label("Cancel", firstButton),
                                         "'focused' all -> 690,488 200x72 on W", label("OK", secondButton)));
    }
}

TEST_F(DialogDrawTest, TheBoxOfBothLabelsHasTheFocusedButtonsSize) {
    writePicture("skin/btn-bg-f.png", 120, 40, 0xFFFFFFFF);
    writePicture("skin/btn-bg-n.png", 300, 90, 0xFFFFFFFF);
    open("", "");
    EXPECT_THAT(drawn(),
                ElementsAre("'panel' all -> 290,98 700x524 on W", "'normal' all -> 390,488 300x90 on W",
                            label("Cancel", {390, 488, 120, 40}), "'focused' all -> 610,488 120x40 on W",
                            label("OK", {610, 488, 120, 40})));
}

TEST_F(DialogDrawTest, APanelLargerThanTheScreenIsPlacedTowardZero) {
    writePicture("skin/pop-bg.png", 1283, 725, 0xFFFFFFFF);
    open("Delete", "");
    EXPECT_THAT(drawn(),
                ElementsAre("'panel' all -> -1,-2 1283x725 on W", title("Delete", {-1, -2 + 80, 1283, 43}),
                            "'normal' all -> 99,388 180x60 on W", label("Cancel", {99, 388, 200, 72}),
                            "'focused' all -> 399,388 200x72 on W", label("OK", {399, 388, 200, 72})));
}

TEST_F(DialogDrawTest, APanelOfOddSizeIsPlacedTowardZeroToo) {
    writePicture("skin/pop-bg.png", 301, 203, 0xFFFFFFFF);
    open("Delete", "");
    EXPECT_THAT(drawn(),
                ElementsAre("'panel' all -> 489,258 301x203 on W", title("Delete", {489, 258 + 80, 301, 43}),
                            "'normal' all -> 589,648 180x60 on W", label("Cancel", {589, 648, 200, 72}),
                            "'focused' all -> 889,648 200x72 on W", label("OK", {889, 648, 200, 72})));
}

TEST_F(DialogDrawTest, WithoutAPanelTextsAndButtonsHaveFixedPlaces) {
    remove({"pop-bg.png"});
    open("Delete", "Really?");
    // x (604 - 200 - 180 - 12) / 2 + 338, y (60 - 72) / 2 + 428
    EXPECT_THAT(drawn(),
                ElementsAre(title("Delete", {338, 142 + 80, 604, 43}),
                            question("Really?", {338, 328, 604, 100}), //
                            "'normal' all -> 444,422 180x60 on W", label("Cancel", {444, 422, 200, 72}),
                            "'focused' all -> 744,422 200x72 on W", label("OK", {744, 422, 200, 72})));
}

TEST_F(DialogDrawTest, WithoutAPanelTextsOfEvenAndOfOddWidthAreCentred) {
    remove({"pop-bg.png"});
    bool evenSeen = false;
    bool oddSeen = false;
    for (const char* const text : {"i", "ii", "iii", "W", "Wi", "Wii"}) {
        (textWidth(gPopupFontTitle, text) % 2 == 0 ? evenSeen : oddSeen) = true;
        open(text, "");
        EXPECT_EQ(drawn()[0], title(text, {338, 222, 604, 43}));
    }
    EXPECT_TRUE(evenSeen && oddSeen);
}

TEST_F(DialogDrawTest, WithoutAPanelSeveralLinesBeginAtAFixedPlaceToo) {
    remove({"pop-bg.png"});
    open("", "Really?", true);
    EXPECT_EQ(drawn()[0], line("Really?", {338, 328, 604, 100}));
}

TEST_F(DialogDrawTest, WithoutAPanelDivisionsAreTowardZero) {
    remove({"pop-bg.png"});
    writePicture("skin/btn-bg-f.png", 350, 75, 0xFFFFFFFF);
    writePicture("skin/btn-bg-n.png", 253, 75, 0xFFFFFFFF);
    open("", "");
    EXPECT_EQ(drawn()[0], "'normal' all -> 333,421 253x75 on W"); // -11 / 2 and -15 / 2
}

TEST_F(DialogDrawTest, WithoutTheFocusedButtonTheLabelsHaveBoxesOfNoSize) {
    remove({"btn-bg-f.png"});
    open("", "");
    EXPECT_THAT(drawn(),
                ElementsAre("'panel' all -> 290,98 700x524 on W", "'normal' all -> 390,488 180x60 on W",
                            label("Cancel", {390, 488, 0, 0}), label("OK", {490, 488, 0, 0})));
}

TEST_F(DialogDrawTest, WithoutTheOtherButtonOnlyItsPictureIsMissing) {
    remove({"btn-bg-n.png"});
    open("", "");
    EXPECT_THAT(drawn(), ElementsAre("'panel' all -> 290,98 700x524 on W", label("Cancel", firstButton),
                                     "'focused' all -> 690,488 200x72 on W", label("OK", secondButton)));
}

TEST_F(DialogDrawTest, WithoutAnyPictureThereAreTextsOnly) {
    remove({"pop-bg.png", "btn-bg-f.png", "btn-bg-n.png"});
    open("Delete", "Really?");
    EXPECT_THAT(drawn(),
                ElementsAre(title("Delete", {338, 222, 604, 43}), question("Really?", {338, 328, 604, 100}),
                            label("Cancel", {634, 458, 0, 0}), label("OK", {734, 458, 0, 0})));
}

TEST_F(DialogDrawTest, WithoutAFontThereArePicturesOnly) {
    uninit_shared_skin();
    for (const bool multiLine : {false, true}) {
        open("Delete", "Really?", multiLine);
        EXPECT_THAT(drawn(),
                    ElementsAre("'panel' all -> 290,98 700x524 on W", "'normal' all -> 390,488 180x60 on W",
                                "'focused' all -> 690,488 200x72 on W"));
    }
}

TEST_F(DialogDrawTest, LabelsFollowTheLanguageWhileTextsStay) {
    useLanguage({{0, "Nein"}, {1, "Ja"}, {3, "Titel"}, {4, "Frage"}});
    dialog = std::make_unique<OpenDialog>(3, 4, false, nullptr, nullptr);
    takeLog();
    EXPECT_EQ(drawn()[4], label("Nein", firstButton));
    EXPECT_EQ(drawn()[6], label("Ja", secondButton));
    gLangTable.back().strings = {{0, "No"}, {1, "Si"}, {3, "Titulo"}, {4, "Pregunta"}};
    EXPECT_EQ(drawn()[1], title("Titel", titleRect));
    EXPECT_EQ(drawn()[2], question("Frage", messageRect));
    EXPECT_EQ(drawn()[4], label("No", firstButton));
    EXPECT_EQ(drawn()[6], label("Si", secondButton));
}

TEST_F(DialogDrawTest, VeryLongTextsReachOutAtBothSides) {
    const std::string text =
        "Really? Nobody will ever read all of this, and it is not even half of what there is to say about it";
    open(text, text);
    const int x = 290 + (700 - textWidth(gPopupFontTxt, text)) / 2;
    EXPECT_LT(x, 0);
    EXPECT_EQ(drawn()[1], title(text, titleRect));
    EXPECT_EQ(drawn()[2], question(text, messageRect));
    EXPECT_THAT(drawn()[2], testing::HasSubstr(" -> " + std::to_string(x) + ","));
}

TEST_F(DialogDrawTest, AbsurdTextsDoNoHarm) {
    std::string lines;
    for (int i = 0; i < 300; ++i)
        lines += "line " + std::to_string(i) + "\n";
    open(std::string(5000, 'W'), lines, true);
    EXPECT_GE(drawn().size(), 5u);
    open("\xFF\xC0 cut \xE4\xBD", "\xED\xA0\x80\n\xF8", true);
    EXPECT_GE(drawn().size(), 5u);
    open("two\nlines", "two\nlines");
    EXPECT_EQ(drawn()[2], question("two\nlines", messageRect));
}

TEST_F(DialogDrawTest, ItDrawsTheSameEachTime) {
    open("Delete", "One\nTwo", true);
    dialog->init();
    EXPECT_EQ(drawn(), drawn());
    EXPECT_THAT(drawn(), testing::Not(IsEmpty()));
}
