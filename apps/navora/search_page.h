#pragma once

#include "navora/game_index.h"
#include "navora/game_list_menu.h"
#include "navora/letter_pad.h"
#include "navora/page.h"

namespace navora {

/// Finds games by the initials of their names: letters at the left, and at the right what they find. A types
/// and B deletes; right goes to the games and left returns to the letters.
class SearchPage : public Page {
public:
    /// Searches below `folder`.
    SearchPage(Shell& shell, const std::string& folder);

    void update() override;

protected:
    void drawContent() override;
    int handleInput() override;

private:
    GameIndex mIndex;
    LetterPad mPad;
    GameListMenu mFound;
    std::string mKey;
    bool mInList = false;

    void search();
    void type(char letter);
    int deleteLast();
    int handlePad(int code);
    int handleList(int code);
    void drawKeyLine() const;
    void drawMessage() const;
};

} // namespace navora
