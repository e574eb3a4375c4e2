#pragma once

#include "navora/game_index.h"
#include "navora/game_list_menu.h"
#include "navora/json_file.h"
#include "navora/letter_pad.h"
#include "navora/page.h"

#include <string>

namespace navora {

/// Finds games by the initials of their names: letters at the left, and at the right what they find. A types
/// and B deletes; right goes to the games and left returns to the letters.
class SearchPage : public Page {
public:
    /// Searches below `folder`.
    SearchPage(Shell& shell, const std::string& folder);

    /// As it was kept by saveState. The caller owns it. The cursor returns to its game once the folder has
    /// been looked through, unless a key comes before.
    static SearchPage* reopened(Shell& shell, const std::string& folder, const cJSON* state);

    void saveState(cJSON* state) override;
    void update() override;

protected:
    void drawContent() override;
    int handleInput() override;
    void themeChanged() override;
    bool hasOptions() const override { return mInList; }

private:
    std::string mFolder;
    GameIndex mIndex;
    LetterPad mPad;
    GameListMenu mFound;
    std::string mKey;
    bool mInList = false;
    JsonPtr mAwaited; // where the cursor is to return to

    bool listHasCursor();
    void search();
    void type(char letter);
    int deleteLast();
    int handlePad(int code);
    int handleList(int code);
    void drawKeyLine() const;
    void drawMessage() const;
};

} // namespace navora
