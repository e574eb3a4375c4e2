#pragma once

#include "menu/setting_menu.h"
#include "menu/setting_switch_item.h"
#include "menu/setting_value_item.h"

#include <string>
#include <vector>

/// What happened to recorded setting rows.
struct SettingRowLog {
    std::vector<std::string> draws; ///< such as "2 at 10,272 1260x96 selected"
    std::vector<int> codes;         ///< given to handleEvent
    int deleted = 0;
};

/// A row that notes what is asked of it, and answers keys as the test says.
class RecordedSettingRow : public ItemDrawable {
public:
    RecordedSettingRow(SettingRowLog& log, int number, Action* action = nullptr)
        : ItemDrawable(action), mLog(log), mNumber(number) {}
    ~RecordedSettingRow() override { ++mLog.deleted; }

    int answer = -1;

    int draw(SDL_Rect& rect, bool selected) override {
        char line[100];
        snprintf(line, sizeof line, "%d at %d,%d %dx%d%s", mNumber, rect.x, rect.y, rect.w, rect.h,
                 selected ? " selected" : "");
        mLog.draws.emplace_back(line);
        rect = {}; // the row may do with its rectangle what it likes
        return 1;
    }
    int handleEvent(int code) override {
        mLog.codes.push_back(code);
        return answer;
    }

private:
    SettingRowLog& mLog;
    int mNumber;
};

/// A value that notes how it is stepped.
class RecordedValue : public ValueHandler {
public:
    std::vector<int> codes;
    std::string text = "value";
    bool isNull = false;

    void changeValue(int code) override { codes.push_back(code); }
    const char* getValueText() override { return isNull ? nullptr : text.c_str(); }
};

/// A switch that counts how often it is set.
class RecordedSwitch : public SwitchHandler {
public:
    bool on = false;
    int settings = 0;

    bool getValue() override { return on; }
    void setValue(bool value) override {
        on = value;
        ++settings;
    }
};
