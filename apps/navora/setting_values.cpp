#include "navora/setting_values.h"

#include <algorithm>
#include <utility>

namespace navora {

SteppedValue::SteppedValue(Range range, std::function<int()> get, std::function<void(int)> set,
                           std::function<std::string(int)> show)
    : mRange(range), mGet(std::move(get)), mSet(std::move(set)), mShow(std::move(show)) {}

void SteppedValue::changeValue(int code) {
    constexpr int left = 7;
    int value = mGet() + (code == left ? -mRange.step : mRange.step);
    if (mRange.wraps && value < mRange.lowest)
        value = mRange.highest;
    else if (mRange.wraps && value > mRange.highest)
        value = mRange.lowest;
    mSet(std::clamp(value, mRange.lowest, mRange.highest));
}

const char* SteppedValue::getValueText() {
    mText = mShow(mGet());
    return mText.c_str();
}

} // namespace navora
