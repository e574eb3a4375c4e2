#pragma once

#include "menu/setting_switch_item.h"
#include "menu/setting_value_item.h"

#include <functional>
#include <string>

namespace navora {

/// A number that left and right step through a range, and how it is shown.
class SteppedValue : public ValueHandler {
public:
    struct Range {
        int lowest;
        int highest;
        int step;
        bool wraps;
    };

    SteppedValue(Range range, std::function<int()> get, std::function<void(int)> set,
                 std::function<std::string(int)> show);

    void changeValue(int code) override;
    int getValue() override { return mGet(); }
    const char* getValueText() override;

private:
    Range mRange;
    std::function<int()> mGet;
    std::function<void(int)> mSet;
    std::function<std::string(int)> mShow;
    std::string mText;
};

class Switch : public SwitchHandler {
public:
    Switch(std::function<bool()> get, std::function<void(bool)> set)
        : mGet(std::move(get)), mSet(std::move(set)) {}

    bool getValue() override { return mGet(); }
    void setValue(bool on) override { mSet(on); }

private:
    std::function<bool()> mGet;
    std::function<void(bool)> mSet;
};

} // namespace navora
