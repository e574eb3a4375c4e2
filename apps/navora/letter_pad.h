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
    LetterPad();

    /// What the selected key adds to a text: one character. 0 for the delete key.
    char key() const;

    /// Moves for the codes of up, down, left and right, and wraps, except that right from the last column
    /// returns false, as other codes do.
    bool move(int code);

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
