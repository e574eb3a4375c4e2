#pragma once

#include "gfx/surface.h"

#include <SDL.h>

#include <memory>
#include <string>

namespace navora {

/// Keys on the screen: the letters, the digits, space and delete, in six columns. The directions move
/// between them.
class LetterPad {
public:
    LetterPad() { loadPictures(); }

    /// Loads the pictures of the keys, anew for a new theme.
    void loadPictures();

    /// What the selected key adds to a text: one character. 0 for the delete key.
    char key() const;

    /// Whether one of the keys adds this character.
    static bool has(char letter);

    /// Moves for the codes of up, down, left and right, and wraps, except that right from the last column
    /// returns false, as other codes do.
    bool move(int code);

    /// The number of the selected key: those of the letters and digits from 0 on, then space and delete.
    int selected() const;

    /// Selects a key by its number; does nothing for a number that is none.
    void select(int number);

    /// Draws the keys. Without `focused`, none is shown as selected.
    void draw(bool focused) const;

private:
    int mRow = 0;
    int mColumn = 0;
    std::unique_ptr<KestroSurface> mSelected, mNormal, mWideSelected, mWideNormal, mSpace, mDelete;

    void drawKey(int row, int column, bool selected) const;
    bool isWide() const;
};

} // namespace navora
