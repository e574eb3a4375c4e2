#include "menu/setting_value_item.h"

#include "shell/skin.h"
#include "support/recorded_action.h"
#include "support/setting_drawing_test.h"
#include "support/setting_rows.h"

#include <climits>

using testing::ElementsAre;

class SettingValueItemTest : public SettingDrawingTest {
protected:
    RecordedValue value;
    KestroSurface* leftSelected = nullptr;
    KestroSurface* leftNormal = nullptr;
    KestroSurface* rightSelected = nullptr;
    KestroSurface* rightNormal = nullptr;
    KestroSurface* frame = nullptr;

    void SetUp() override {
        SettingDrawingTest::SetUp();
        leftSelected = picture("left selected", 20, 31);
        leftNormal = picture("left", 22, 32);
        rightSelected = picture("right selected", 24, 33);
        rightNormal = picture("right", 26, 100);
        frame = picture("frame", 500, 60);
    }

    SettingValueItem full(ValueHandler* handler, bool framed = true) {
        return {
            selected, normal,  leftSelected, leftNormal, rightSelected, rightNormal, framed ? frame : nullptr,
            4,        nullptr, handler};
    }

    /// The line for the value centred in its frame, or at the right of the row.
    static std::string framed(const std::string& text) {
        int w = 0;
        int h = 0;
        TTF_SizeUTF8(gListFontTxt, text.c_str(), &w, &h);
        return white(text, 755 + (500 - w) / 2, 80 + (96 - h) / 2);
    }
    static std::string atRight(const std::string& text) {
        int w = 0;
        int h = 0;
        TTF_SizeUTF8(gListFontTxt, text.c_str(), &w, &h);
        return white(text, 1230 - w, 80 + (96 - h) / 2);
    }
};

TEST_F(SettingValueItemTest, TheSelectedRowHasFrameAndMarkers) {
    SettingValueItem item = full(&value);
    EXPECT_THAT(drawn(item, true),
                ElementsAre("'selected' all -> 10,83 800x90 on W", label("OPEN"),
                            "'frame' all -> 755,98 500x60 on W", "'left selected' all -> 755,112 20x31 on W",
                            "'right selected' all -> 1183,111 24x33 on W", framed("value")));
}

TEST_F(SettingValueItemTest, OtherRowsHaveTheOtherMarkersAndNoFrameButItsPlace) {
    SettingValueItem item = full(&value);
    EXPECT_THAT(drawn(item, false), ElementsAre("'normal' all -> 10,93 900x70 on W", label("OPEN"),
                                                "'left' all -> 755,112 22x32 on W",
                                                "'right' all -> 1183,78 26x100 on W", framed("value")));
}

TEST_F(SettingValueItemTest, WithoutAFrameTheValueStandsAtTheRight) {
    SettingValueItem item = full(&value, false);
    for (const bool isSelected : {false, true}) {
        const auto calls = drawn(item, isSelected);
        EXPECT_EQ(calls.size(), 5u);
        EXPECT_EQ(calls.back(), atRight("value"));
    }
}

TEST_F(SettingValueItemTest, PicturesThatAreMissingAreLeftOut) {
    SettingValueItem bare(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 4, nullptr, &value);
    for (const bool isSelected : {false, true})
        EXPECT_THAT(drawn(bare, isSelected), ElementsAre(label("OPEN"), atRight("value")));
    SettingValueItem onlySelected(nullptr, nullptr, leftSelected, nullptr, rightSelected, nullptr, nullptr, 4,
                                  nullptr, &value);
    EXPECT_EQ(drawn(onlySelected, true).size(), 4u);
    EXPECT_EQ(drawn(onlySelected, false).size(), 2u);
    SettingValueItem onlyNormal(nullptr, nullptr, nullptr, leftNormal, nullptr, rightNormal, nullptr, 4,
                                nullptr, &value);
    EXPECT_EQ(drawn(onlyNormal, true).size(), 2u);
    EXPECT_EQ(drawn(onlyNormal, false).size(), 4u);
}

TEST_F(SettingValueItemTest, WithoutAHandlerThereIsOnlyTheLabel) {
    SettingValueItem item = full(nullptr);
    EXPECT_THAT(drawn(item, true), ElementsAre("'selected' all -> 10,83 800x90 on W", label("OPEN")));
    EXPECT_THAT(drawn(item, false), ElementsAre("'normal' all -> 10,93 900x70 on W", label("OPEN")));
    for (const int code : {1, 2, 4, 7, 8})
        EXPECT_EQ(item.handleEvent(code), -1);
}

TEST_F(SettingValueItemTest, TheOffsetsDoNotFollowTheRowsWidth) {
    SettingValueItem item = full(&value);
    const auto calls = drawnIn(item, {100, 0, 300, 96}, true);
    ASSERT_EQ(calls.size(), 6u);
    EXPECT_EQ(calls[2], "'frame' all -> 845,18 500x60 on W");
    EXPECT_EQ(calls[3], "'left selected' all -> 845,32 20x31 on W");
    EXPECT_EQ(calls[4], "'right selected' all -> 1273,31 24x33 on W");
    int w = 0;
    int h = 0;
    TTF_SizeUTF8(gListFontTxt, "value", &w, &h);
    EXPECT_EQ(calls[5], white("value", 845 + (500 - w) / 2, (96 - h) / 2));
    SettingValueItem unframed = full(&value, false);
    EXPECT_EQ(drawnIn(unframed, {100, 0, 300, 96}, true).back(), white("value", 360 - w, (96 - h) / 2));
}

TEST_F(SettingValueItemTest, AValueIsCutTo63Bytes) {
    SettingValueItem item = full(&value);
    for (const size_t length : {62u, 63u, 64u, 65u, 500u}) {
        value.text = std::string(length, 'x');
        EXPECT_EQ(drawn(item, false).back(), framed(std::string(std::min<size_t>(length, 63), 'x')))
            << length;
    }
    value.text = std::string(61, 'x') + "中"; // cut within the character
    EXPECT_EQ(drawn(item, false).size(), 5u);
}

TEST_F(SettingValueItemTest, TheValueIsAskedForAtEveryDraw) {
    SettingValueItem item = full(&value);
    value.text = "one";
    EXPECT_EQ(drawn(item, false).back(), framed("one"));
    value.text = "2";
    EXPECT_EQ(drawn(item, false).back(), framed("2"));
    value.text = "";
    EXPECT_EQ(drawn(item, false).size(), 4u);
    value.isNull = true;
    EXPECT_EQ(drawn(item, false).size(), 4u);
}

TEST_F(SettingValueItemTest, TheLabelFollowsTheLanguage) {
    SettingValueItem item(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, 4, nullptr, nullptr);
    useLanguage({{4, "打开"}});
    EXPECT_THAT(drawn(item, false), ElementsAre(label("打开")));
    SettingValueItem none(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, -1, nullptr,
                          nullptr);
    EXPECT_TRUE(drawn(none, false).empty());
}

TEST_F(SettingValueItemTest, LeftAndRightStepTheValue) {
    SettingValueItem item = full(&value);
    ItemDrawable& row = item;
    char line[100];
    for (const int code : {7, 8}) {
        EXPECT_EQ(row.handleEvent(code), 0);
        snprintf(line, sizeof line, "mValueChanger %p changeValue %d\n", static_cast<void*>(&value), code);
        EXPECT_EQ(takeLog(), line);
    }
    EXPECT_THAT(value.codes, ElementsAre(7, 8));
    for (const int code : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 9, 10, 11, 42, INT_MAX})
        EXPECT_EQ(row.handleEvent(code), -1);
    EXPECT_EQ(value.codes.size(), 2u);
}

TEST_F(SettingValueItemTest, OwnsItsActionOnly) {
    ActionLog log;
    auto* const action = new RecordedAction(log);
    auto* const item = new SettingValueItem(selected, normal, leftSelected, leftNormal, rightSelected,
                                            rightNormal, frame, 4, action, &value);
    EXPECT_EQ(item->getAction(), action);
    EXPECT_TRUE(item->isFocusable());
    delete item;
    EXPECT_EQ(log.deleted, 1);
    EXPECT_EQ(value.text, "value");
    EXPECT_EQ(frame->getWidth(), 500);
}

TEST_F(SettingValueItemTest, AHandlersNumberIsZeroByDefault) {
    EXPECT_EQ(static_cast<ValueHandler&>(value).getValue(), 0);
}
