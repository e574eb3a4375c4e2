#include "support/settings_test.h"
#include "system/system_state.h"

#include <climits>
#include <optional>
#include <ostream>

// What the keys of the settings file put into the host's table.

namespace {

constexpr int untouched = -99;

/// A key and its place in the table. Without `otherwise`, the place keeps what it holds.
struct TableKey {
    const char* key;
    int index;
    std::optional<int> otherwise;
    int largest = 0;
};

void PrintTo(const TableKey& key, std::ostream* out) {
    *out << key.key;
}

std::string nameOfKey(const testing::TestParamInfo<TableKey>& info) {
    return info.param.key;
}

class TableKeyTest : public SettingsTest, public testing::WithParamInterface<TableKey> {
protected:
    /// What the place holds after a file with this value for the key.
    int stored(const std::string& value) const { return storedBy("{\"" + key() + "\": " + value + "}"); }

    int storedBy(const std::string& json) const {
        gTestHost.table[GetParam().index] = untouched;
        load(json);
        return gTestHost.table[GetParam().index];
    }

    std::string key() const { return GetParam().key; }
    static int otherwise() { return GetParam().otherwise.value_or(untouched); }

    void expectOtherwiseForWhatIsNoNumber() const {
        for (const std::string& value : notNumbers)
            EXPECT_EQ(stored(value), otherwise()) << value;
        EXPECT_EQ(storedBy("{}"), otherwise()) << "absent";
        EXPECT_EQ(storedBy(R"({"other": 1})"), otherwise()) << "absent";
    }
};

class RangedTableKeyTest : public TableKeyTest {};
class SwitchTableKeyTest : public TableKeyTest {};
class ValueTableKeyTest : public TableKeyTest {};

} // namespace

INSTANTIATE_TEST_SUITE_P(Settings, RangedTableKeyTest,
                         testing::Values(TableKey{"vol", 0, 14, 20}, TableKey{"keymap", 2, 0, 1},
                                         TableKey{"brightness", 1, 6, 10}, TableKey{"rumblelevel", 12, 4, 5}),
                         nameOfKey);

TEST_P(RangedTableKeyTest, TakesEveryNumberUpToItsLargest) {
    for (int value = 0; value <= GetParam().largest; ++value)
        EXPECT_EQ(stored(std::to_string(value)), value);
}

TEST_P(RangedTableKeyTest, TakesTheWholePartOfAFraction) {
    EXPECT_EQ(stored(std::to_string(GetParam().largest) + ".99"), GetParam().largest);
    EXPECT_EQ(stored("0.5"), 0);
    EXPECT_EQ(stored("-0.9"), 0);
}

TEST_P(RangedTableKeyTest, HasItsDefaultForNumbersOutOfRange) {
    for (const char* value : {"-1", "-20", "1000", "2147483647", "-2147483648", "4294967296", "1e300",
                              "-1e300", "1e999", "-1e999"})
        EXPECT_EQ(stored(value), otherwise()) << value;
    EXPECT_EQ(stored(std::to_string(GetParam().largest + 1)), otherwise());
}

TEST_P(RangedTableKeyTest, HasItsDefaultForWhatIsNoNumber) {
    expectOtherwiseForWhatIsNoNumber();
}

INSTANTIATE_TEST_SUITE_P(Settings, SwitchTableKeyTest,
                         testing::Values(TableKey{"netplay", 6, 0}, TableKey{"wifi", 14, std::nullopt},
                                         TableKey{"hostap", 15, std::nullopt},
                                         TableKey{"bluetooth", 16, std::nullopt}, TableKey{"ledswitch", 8, 1},
                                         TableKey{"bconfirm", 19, 0}),
                         nameOfKey);

TEST_P(SwitchTableKeyTest, IsOnForEveryNumberButZero) {
    for (const char* value : {"1", "2", "-1", "1.5", "2147483647", "1e999", "-1e999"})
        EXPECT_EQ(stored(value), 1) << value;
}

TEST_P(SwitchTableKeyTest, IsOffForNumbersWhoseWholePartIsZero) {
    for (const char* value : {"0", "-0", "0.0", "0.9", "-0.9", "1e-300"})
        EXPECT_EQ(stored(value), 0) << value;
}

TEST_P(SwitchTableKeyTest, HasItsDefaultOrStaysForWhatIsNoNumber) {
    expectOtherwiseForWhatIsNoNumber();
}

INSTANTIATE_TEST_SUITE_P(Settings, ValueTableKeyTest,
                         testing::Values(TableKey{"ledvalue", 10, 4}, TableKey{"menustylel1", 9, 1},
                                         TableKey{"menustylel2", 11, 0}, TableKey{"dimtime", 13, 300},
                                         TableKey{"osdshortcut", 18, 0}),
                         nameOfKey);

TEST_P(ValueTableKeyTest, TakesAnyNumberAsItIs) {
    EXPECT_EQ(stored("0"), 0);
    EXPECT_EQ(stored("7"), 7);
    EXPECT_EQ(stored("-7"), -7);
    EXPECT_EQ(stored("123456"), 123456);
    EXPECT_EQ(stored("2147483647"), INT_MAX);
    EXPECT_EQ(stored("-2147483648"), INT_MIN);
}

TEST_P(ValueTableKeyTest, TakesTheNearestIntegerThatThereIs) {
    EXPECT_EQ(stored("7.9"), 7);
    EXPECT_EQ(stored("-7.9"), -7);
    EXPECT_EQ(stored("1e300"), INT_MAX);
    EXPECT_EQ(stored("-1e300"), INT_MIN);
    EXPECT_EQ(stored("1e999"), INT_MAX);
    EXPECT_EQ(stored("-1e999"), INT_MIN);
}

TEST_P(ValueTableKeyTest, HasItsDefaultForWhatIsNoNumber) {
    expectOtherwiseForWhatIsNoNumber();
}

namespace {
class CpuFrequencyKeyTest : public TableKeyTest {};
} // namespace

INSTANTIATE_TEST_SUITE_P(Settings, CpuFrequencyKeyTest, testing::Values(TableKey{"cpufreq", 7, 0}),
                         nameOfKey);

TEST_P(CpuFrequencyKeyTest, TakesNumbersThatAreNotNegative) {
    EXPECT_EQ(stored("0"), 0);
    EXPECT_EQ(stored("1"), 1);
    EXPECT_EQ(stored("1800000"), 1800000);
    EXPECT_EQ(stored("3.9"), 3);
    EXPECT_EQ(stored("1e999"), INT_MAX);
}

TEST_P(CpuFrequencyKeyTest, IsZeroForNegativeNumbers) {
    EXPECT_EQ(stored("-1"), 0);
    EXPECT_EQ(stored("-2147483648"), 0);
    EXPECT_EQ(stored("-1e999"), 0);
}

TEST_P(CpuFrequencyKeyTest, IsZeroForWhatIsNoNumber) {
    expectOtherwiseForWhatIsNoNumber();
}
