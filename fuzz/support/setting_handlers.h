#pragma once

#include "menu/setting_switch_item.h"
#include "menu/setting_value_item.h"

#include <string>

namespace fuzz {

/// A number for a setting row, which LEFT lowers and any other key raises.
class Number : public ValueHandler {
public:
    void changeValue(int code) override {
        constexpr int left = 7;
        mValue += code == left ? -1 : 1;
    }
    int getValue() override { return mValue; }
    const char* getValueText() override {
        mText = std::to_string(mValue);
        return mText.c_str();
    }

private:
    int mValue = 0;
    std::string mText;
};

/// A flag for a switch row.
class Flag : public SwitchHandler {
public:
    bool getValue() override { return mOn; }
    void setValue(bool on) override { mOn = on; }

private:
    bool mOn = false;
};

} // namespace fuzz
