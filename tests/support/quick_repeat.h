#pragma once

#include <SDL.h>

#include <vector>

/// While it lives, the key-repeat thread looks at the held keys about every millisecond instead of as
/// seldom as it asks for: it takes the place of SDL_CondWaitTimeout in this process.
class QuickRepeat {
public:
    QuickRepeat();
    ~QuickRepeat();
    QuickRepeat(const QuickRepeat&) = delete;
    QuickRepeat& operator=(const QuickRepeat&) = delete;

    /// Returns after the thread has had a whole look at what is held now. Fails the test when that does
    /// not come.
    static void awaitLook();

    /// The lengths in milliseconds that the thread asked to wait, since the last call of this.
    static std::vector<Uint32> takeWaits();
};
