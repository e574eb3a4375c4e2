#include "menu/action.h"

#include "support/kestro_test.h"
#include "support/virtual_slot.h"

#include <type_traits>

class ActionTest : public KestroTest {};

namespace {

class PlainAction : public Action {
public:
    int dowork(void*) override { return 5; }
};

class FullAction : public Action {
public:
    explicit FullAction(bool& deleted) : mDeleted(deleted) {}
    ~FullAction() override { mDeleted = true; }
    int dowork(void* row) override { return *static_cast<int*>(row); }
    int xdowork(void* row) override { return *static_cast<int*>(row) + 1; }
    int queryKind() override { return 3; }
    int queryState() override { return 4; }

private:
    bool& mDeleted;
};

} // namespace

TEST_F(ActionTest, HasItsDefaults) {
    PlainAction action;
    int row = 0;
    EXPECT_EQ(action.xdowork(&row), 0);
    EXPECT_EQ(action.queryKind(), -1);
    EXPECT_EQ(action.queryState(), 0);
    EXPECT_EQ(action.sortGroup, 0u);
}

TEST_F(ActionTest, TheVirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(virtualSlot(&Action::dowork), 2);
    EXPECT_EQ(virtualSlot(&Action::xdowork), 3);
    EXPECT_EQ(virtualSlot(&Action::queryKind), 4);
    EXPECT_EQ(virtualSlot(&Action::queryState), 5);
}

TEST_F(ActionTest, CallsThroughTheBaseReachTheOverride) {
    bool deleted = false;
    Action* const action = new FullAction(deleted);
    int row = 41;
    EXPECT_EQ(action->dowork(&row), 41);
    EXPECT_EQ(action->xdowork(&row), 42);
    EXPECT_EQ(action->queryKind(), 3);
    EXPECT_EQ(action->queryState(), 4);
    delete action;
    EXPECT_TRUE(deleted);
}

TEST_F(ActionTest, TheSortGroupIsTheMakers) {
    PlainAction action;
    action.sortGroup = 0xFFFFFFFF;
    EXPECT_EQ(action.sortGroup, 0xFFFFFFFF);
    static_assert(std::is_same_v<decltype(action.sortGroup), uint32_t>);
}

static int addOne(void* number) {
    return ++*static_cast<int*>(number);
}

TEST_F(ActionTest, AGeneralActionCallsItsFunctionWithItsOwnArgument) {
    int number = 7;
    int row = 100;
    GeneralAction action(addOne, &number);
    EXPECT_EQ(action.dowork(&row), 8);
    EXPECT_EQ(action.dowork(nullptr), 9);
    EXPECT_EQ(row, 100);
    EXPECT_EQ(action.sortGroup, 0u);
    EXPECT_EQ(takeLog(), "");
}

static int isNull(void* argument) {
    return argument == nullptr ? -77 : 1;
}

TEST_F(ActionTest, AGeneralActionPassesANullArgumentAndAnyResultOn) {
    GeneralAction action(isNull, nullptr);
    EXPECT_EQ(action.dowork(&action), -77);
}

TEST_F(ActionTest, AGeneralActionLogsItsRunsForDebugging) {
    int number = 0;
    for (const int64_t debug : {int64_t{1}, int64_t{-1}, int64_t{1} << 32}) {
        GeneralAction action(addOne, &number, debug);
        action.dowork(nullptr);
        EXPECT_EQ(takeLog(), "GeneralAction dowork\n") << debug;
    }
}

TEST_F(ActionTest, AGeneralActionWithoutFunctionFails) {
    GeneralAction quiet(nullptr, this);
    EXPECT_EQ(quiet.dowork(nullptr), -1);
    EXPECT_EQ(takeLog(), "");
    GeneralAction talking(nullptr, this, 1);
    EXPECT_EQ(talking.dowork(nullptr), -1);
    EXPECT_EQ(takeLog(), "GeneralAction dowork dosth (nil)\n");
}
