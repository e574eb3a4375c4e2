#include "menu/text_menu.h"

#include "support/kestro_test.h"
#include "support/open_text_menu.h"
#include "support/virtual_slot.h"

#include <memory>

class TextMenuTest : public KestroTest {
protected:
    OpenTextMenu* newMenu() {
        auto* const menu = new OpenTextMenu(nullptr, nullptr, 6, 0);
        takeLog();
        return menu;
    }

    static std::vector<std::string> labels(TextMenu& menu) {
        std::vector<std::string> all;
        for (int i = 0; i < menu.getListNum(); ++i)
            all.push_back(menu.getItemByIndex(i) ? menu.getItemByIndex(i)->getLabel() : "null");
        return all;
    }
};

namespace {

/// A row that counts how many of its kind are alive.
class CountedRow : public TextMenuItem {
public:
    CountedRow(int& alive, const char* label) : TextMenuItem(label, nullptr, nullptr, false), mAlive(alive) {
        ++mAlive;
    }
    ~CountedRow() override { --mAlive; }

private:
    int& mAlive;
};

/// A row that is not a TextMenuItem.
class OtherRow : public TextMenuItemProvider {
public:
    std::string getLabel() override { return "same"; }
};

} // namespace

TEST_F(TextMenuTest, HandsItsArgumentsToTheDrawer) {
    const TextMenu menu(nullptr, nullptr, 5, 7);
    EXPECT_EQ(takeLog(), "mItemHeight = 110, mYSpaceInList = 7\n");
    EXPECT_EQ(menu.getRowsPerPage(), 5);
    EXPECT_EQ(menu.getRowGap(), 7);
}

TEST_F(TextMenuTest, TheVirtualOperationsKeepTheirSlots) {
    EXPECT_EQ(virtualSlot(&TextMenu::getItemByIndex), 5);
    EXPECT_EQ(virtualSlot(&TextMenu::getListNum), 8);
    EXPECT_EQ(virtualSlot(&TextMenu::removeItem), 13);
    EXPECT_EQ(virtualSlot(&TextMenu::clearItemList), 14);
    EXPECT_EQ(virtualSlot(&TextMenu::freeListItem), 20);
}

TEST_F(TextMenuTest, InsertsAtTheEnd) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    EXPECT_EQ(menu->getListNum(), 0);
    for (const char* const label : {"b", "a", "b"})
        menu->add(label);
    EXPECT_THAT(labels(*menu), testing::ElementsAre("b", "a", "b"));
}

TEST_F(TextMenuTest, ARowByIndexIsNullBeyondTheEnds) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    EXPECT_EQ(menu->getItemByIndex(0), nullptr);
    TextMenuItem* const row = menu->add("a");
    EXPECT_EQ(menu->getItemByIndex(0), row);
    ListMenu& base = *menu;
    EXPECT_EQ(base.getItemByIndex(0), row);
    for (const int index : {-1, 1, 100, INT32_MAX, INT32_MIN})
        EXPECT_EQ(base.getItemByIndex(index), nullptr) << index;
}

static int byLabel(void* newRow, void* existingRow) {
    const auto labelOf = [](void* row) { return static_cast<TextMenuItemProvider*>(row)->getLabel(); };
    return labelOf(newRow).compare(labelOf(existingRow));
}

static void insertSorted(TextMenu& menu, const char* label, int (*compare)(void*, void*)) {
    auto* const row = new TextMenuItem(label, nullptr, nullptr, false);
    menu.insertItemSorted(static_cast<TextMenuItemProvider*>(row), compare);
}

TEST_F(TextMenuTest, SortedInsertionKeepsAnAscendingOrder) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    for (const char* const label : {"m", "c", "x", "a", "z", "n"})
        insertSorted(*menu, label, byLabel);
    EXPECT_THAT(labels(*menu), testing::ElementsAre("a", "c", "m", "n", "x", "z"));
}

TEST_F(TextMenuTest, OfEqualRowsTheNewestComesFirst) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    insertSorted(*menu, "b", byLabel);
    insertSorted(*menu, "a", byLabel);
    TextMenuItemProvider* const older = menu->getItemByIndex(0);
    insertSorted(*menu, "a", byLabel);
    EXPECT_EQ(menu->getItemByIndex(1), older);
    EXPECT_NE(menu->getItemByIndex(0), older);
}

TEST_F(TextMenuTest, ACompareThatIsAlwaysZeroReversesTheRows) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    for (const char* const label : {"1", "2", "3"})
        insertSorted(*menu, label, [](void*, void*) { return 0; });
    EXPECT_THAT(labels(*menu), testing::ElementsAre("3", "2", "1"));
}

TEST_F(TextMenuTest, ACompareThatIsAlwaysPositiveAppends) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    for (const char* const label : {"3", "2", "1"})
        insertSorted(*menu, label, [](void*, void*) { return 1; });
    EXPECT_THAT(labels(*menu), testing::ElementsAre("3", "2", "1"));
}

TEST_F(TextMenuTest, ANullCompareAppends) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    for (const char* const label : {"3", "2", "1"})
        insertSorted(*menu, label, nullptr);
    EXPECT_THAT(labels(*menu), testing::ElementsAre("3", "2", "1"));
}

TEST_F(TextMenuTest, SortedInsertionStopsAtTheFirstRowThatIsNotBefore) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    for (const char* const label : {"a", "z", "b"}) // not in order
        menu->add(label);
    insertSorted(*menu, "c", byLabel);
    EXPECT_THAT(labels(*menu), testing::ElementsAre("a", "c", "z", "b"));
}

TEST_F(TextMenuTest, UniqueInsertionRefusesAStoredLabelThatIsThere) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    menu->add("a");
    TextMenuItem same("a", nullptr, nullptr, false);
    EXPECT_EQ(menu->insertItemUnique(&same), 0);
    EXPECT_EQ(menu->getListNum(), 1);
    for (const char* const label : {"A", "aa", "", "a "})
        EXPECT_EQ(menu->insertItemUnique(new TextMenuItem(label, nullptr, nullptr, false)), 1) << label;
    EXPECT_THAT(labels(*menu), testing::ElementsAre("a", "A", "aa", "", "a "));
}

TEST_F(TextMenuTest, UniqueInsertionLooksAtTheStoredLabelNotAtTheShownOne) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    menu->add("")->setLabelId(4);
    TextMenuItem otherWord("", nullptr, nullptr, false);
    otherWord.setLabelId(5);
    EXPECT_EQ(menu->insertItemUnique(&otherWord), 0);
    EXPECT_EQ(menu->insertItemUnique(new TextMenuItem("OPEN", nullptr, nullptr, false)), 1);
}

TEST_F(TextMenuTest, UniqueInsertionPassesOverRowsOfOtherKinds) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    menu->insertItem(static_cast<TextMenuItemProvider*>(new OtherRow));
    menu->insertItem(nullptr);
    EXPECT_EQ(menu->insertItemUnique(nullptr), 0);
    EXPECT_EQ(menu->insertItemUnique(new TextMenuItem("same", nullptr, nullptr, false)), 1);
    EXPECT_THAT(labels(*menu), testing::ElementsAre("same", "null", "same"));
}

TEST_F(TextMenuTest, RemovesAndDeletesOneRow) {
    int alive = 0;
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    for (const char* const label : {"a", "b", "c"})
        menu->insertItem(static_cast<TextMenuItemProvider*>(new CountedRow(alive, label)));
    static_cast<ListMenu&>(*menu).removeItem(1);
    EXPECT_EQ(alive, 2);
    EXPECT_THAT(labels(*menu), testing::ElementsAre("a", "c"));
}

TEST_F(TextMenuTest, IgnoresARemovalBeyondTheEnds) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    menu->removeItem(0);
    menu->addRows(3);
    for (const int index : {3, -1, 100, INT32_MAX, INT32_MIN})
        menu->removeItem(index);
    EXPECT_EQ(menu->getListNum(), 3);
}

TEST_F(TextMenuTest, NullRowsAreHeldAndRemovedLikeOthers) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    menu->insertItem(nullptr);
    menu->insertItem(nullptr);
    EXPECT_EQ(menu->getListNum(), 2);
    EXPECT_EQ(menu->getItemByIndex(0), nullptr);
    menu->removeItem(0);
    EXPECT_EQ(menu->getListNum(), 1);
    menu->freeListItem();
    EXPECT_EQ(menu->getListNum(), 0);
}

TEST_F(TextMenuTest, ClearingDeletesAllRowsThroughTheVirtualOperation) {
    class Noting : public OpenTextMenu {
    public:
        using OpenTextMenu::OpenTextMenu;
        int freed = 0;
        void freeListItem() override {
            ++freed;
            OpenTextMenu::freeListItem();
        }
    };
    Noting menu(nullptr, nullptr, 6, 0);
    takeLog();
    int alive = 0;
    for (const char* const label : {"a", "b", "c"})
        menu.insertItem(static_cast<TextMenuItemProvider*>(new CountedRow(alive, label)));
    static_cast<ListMenu&>(menu).clearItemList();
    EXPECT_EQ(menu.freed, 1);
    EXPECT_EQ(alive, 0);
    EXPECT_EQ(menu.getListNum(), 0);
    EXPECT_EQ(menu.draw(), 0);
    EXPECT_TRUE(menu.drawnNumbers.empty());
}

TEST_F(TextMenuTest, TheDestructorDeletesTheRows) {
    OpenTextMenu* const menu = newMenu();
    int alive = 0;
    for (const char* const label : {"a", "b"})
        menu->insertItem(static_cast<TextMenuItemProvider*>(new CountedRow(alive, label)));
    EXPECT_EQ(alive, 2);
    delete static_cast<ListMenu*>(menu);
    EXPECT_EQ(alive, 0);
}

TEST_F(TextMenuTest, NoOperationMovesTheCursorOrTheVisibleRange) {
    const std::unique_ptr<OpenTextMenu> menu(newMenu());
    menu->addRows(20);
    menu->restorePos(15, 12, 17);
    insertSorted(*menu, "a", byLabel);
    menu->add("b");
    menu->insertItemUnique(new TextMenuItem("c", nullptr, nullptr, false));
    menu->removeItem(3);
    menu->removeItem(15);
    menu->clearItemList();
    EXPECT_EQ(menu->getCursor(), 15);
    EXPECT_EQ(menu->getFirstVisible(), 12);
    EXPECT_EQ(menu->getLastVisible(), 17);
    EXPECT_EQ(menu->select(), -1);
    EXPECT_EQ(takeLog(), "");
}
