#include "menu/text_menu.h"

#include "support/fake_clock.h"
#include "support/kestro_test.h"

#include <algorithm>
#include <random>

namespace {

/// What a list of `rows` rows on pages of six does, told in another way than the list tells it: the page is
/// a window that slides just far enough.
struct ListModel {
    int rows;
    bool wraps = true;
    bool swapped = false;
    int cursor = 0;
    int top = 0;

    // The run of a held key: when its last press counted, and how many followed the first.
    uint64_t lastPress = 0;
    int heldKey = 0;
    int repeats = 0;

    int page() const { return std::min(rows, 6); }

    void drawn() {
        if (rows > 0)
            top = std::clamp(top, cursor - page() + 1, cursor);
    }

    void noteHeld(int code, uint64_t now) {
        if (now - lastPress >= 200) {
            heldKey = repeats = 0;
            lastPress = now;
        } else if (heldKey == 0 || heldKey == code) {
            heldKey = code;
            ++repeats;
            lastPress = now;
        }
    }

    /// The row's number decides: every third has no action, every third one that fails.
    int chosen(int result) const { return cursor >= 0 && cursor < rows && cursor % 3 == 1 ? result : -1; }

    int up() {
        if (repeats > 10) {
            cursor = cursor < 6 ? 0 : cursor - 6;
            return 5;
        }
        if (cursor <= 0 && !wraps)
            return 1008;
        cursor = cursor <= 0 ? rows - 1 : cursor - 1;
        return 5;
    }

    int down() {
        if (repeats > 10)
            cursor = rows - cursor > 6 ? cursor + 6 : rows - 1;
        else
            cursor = rows - cursor > 1 ? cursor + 1 : 0;
        return 6;
    }

    int key(int code, uint64_t now) {
        if (code >= 5 && code <= 8)
            noteHeld(code, now);
        if (code == (swapped ? 2 : 1))
            return chosen(40);
        if (code == 3)
            return chosen(50);
        return code == 5 ? up() : code == 6 ? down() : code;
    }
};

class ThirdsAction : public Action {
public:
    explicit ThirdsAction(bool fails) : mFails(fails) {}
    int dowork(void*) override { return mFails ? -9 : 40; }
    int xdowork(void*) override { return mFails ? -9 : 50; }

private:
    bool mFails;
};

} // namespace

class ListMenuModelTest : public KestroTest, public testing::WithParamInterface<int> {
protected:
    ThirdsAction works{false};
    ThirdsAction fails{true};
    FakeClock clock;
    std::mt19937 random{20240229};

    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

    void fill(TextMenu& menu, int rows) {
        for (int i = 0; i < rows; ++i) {
            Action* const action = i % 3 == 0 ? nullptr : i % 3 == 1 ? &works : &fails;
            menu.insertItem(new TextMenuItem(std::to_string(i).c_str(), nullptr, action, false));
        }
    }

    void changeSettings(TextMenu& menu, ListModel& model) {
        model.wraps = upTo(1) == 0;
        model.swapped = upTo(1) == 0;
        menu.setWrap(model.wraps);
        gTestHost.table[19] = model.swapped;
    }

    void restore(TextMenu& menu, ListModel& model) {
        const int cursor = upTo(model.rows + 1) - 1;
        const int top = upTo(model.rows + 1) - 1;
        const int last = top + model.page() - 1;
        menu.restorePos(cursor, top, last);
        if (cursor >= 0 && cursor < model.rows)
            model.cursor = cursor;
        if (top >= 0 && last < model.rows && model.rows > 0)
            model.top = top;
    }

    /// A key, as a person presses them: now and then held for a while.
    void press(TextMenu& menu, ListModel& model, int& pressesLeft) {
        static constexpr int keys[] = {0, 1, 2, 3, 4, 5, 5, 5, 5, 6, 6, 6, 6, 7, 8, 9, 11, 26, 42};
        const int code = keys[upTo(std::size(keys) - 1)];
        const int times = std::min(pressesLeft, upTo(9) == 0 ? upTo(40) : 1);
        for (int i = 0; i < times; ++i, --pressesLeft) {
            clock.advance(static_cast<uint64_t>(i == 0 ? upTo(400) : upTo(205)));
            ASSERT_EQ(menu.handleEvent(code), model.key(code, clock.now()));
            ASSERT_EQ(menu.getCursor(), model.cursor);
            if (upTo(2) == 0)
                continue;
            menu.draw();
            model.drawn();
            if (model.rows == 0)
                continue;
            ASSERT_EQ(menu.getFirstVisible(), model.top);
            ASSERT_EQ(menu.getLastVisible(), model.top + model.page() - 1);
        }
    }
};

TEST_P(ListMenuModelTest, MovesLikeTheModelOver100000Keys) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    fill(menu, GetParam());
    menu.draw();
    ListModel model{GetParam()};
    for (int pressesLeft = 100000; pressesLeft > 0;) {
        press(menu, model, pressesLeft);
        ASSERT_FALSE(HasFatalFailure()) << pressesLeft << " keys before the end";
        if (upTo(300) == 0)
            changeSettings(menu, model);
        if (upTo(300) == 0)
            restore(menu, model);
        if (upTo(1000) == 0)
            takeLog();
    }
    takeLog();
}

TEST_P(ListMenuModelTest, EveryKeyOnEveryEndIsThatOfTheModel) {
    TextMenu menu(nullptr, nullptr, 6, 0);
    const int rows = GetParam();
    fill(menu, rows);
    for (const int settings : {0, 1, 2, 3})
        for (const int cursor : {-1, 0, 1, 5, 6, rows - 7, rows - 6, rows - 3, rows - 2, rows - 1})
            for (int code = -2; code < 50; ++code) {
                if (cursor >= rows || cursor < -1 || (cursor == -1 && rows > 0))
                    continue;
                clock.advance(1000);
                ListModel model{rows, (settings & 1) != 0, (settings & 2) != 0, cursor};
                menu.setWrap(model.wraps);
                gTestHost.table[19] = model.swapped;
                menu.setCursor(cursor);
                ASSERT_EQ(menu.handleEvent(code), model.key(code, clock.now())) << code;
                ASSERT_EQ(menu.getCursor(), model.cursor) << code;
            }
    takeLog();
}

INSTANTIATE_TEST_SUITE_P(Rows, ListMenuModelTest, testing::Values(0, 1, 5, 6, 7, 20000));
