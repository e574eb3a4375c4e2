#pragma once

#include <SDL.h>

#include <functional>
#include <vector>

namespace bench {

/// A page as a program without the library would draw it: the same copies of the same textures to the same
/// places, in bare SDL calls.
class BarePage {
public:
    /// Notes what `draw` copies to the renderer. It may copy only, not fill or turn.
    explicit BarePage(const std::function<void()>& draw);

    void draw() const;

private:
    struct Copy {
        SDL_Texture* texture;
        bool hasSource;
        bool hasPlace;
        SDL_Rect source;
        SDL_Rect place;
    };
    std::vector<Copy> mCopies;

    static std::vector<Copy>* sNoted;
    friend int noteCopy(SDL_Renderer*, SDL_Texture*, const SDL_Rect*, const SDL_Rect*);
};

/// The pixels that `draw` leaves on a black screen.
std::vector<Uint32> pixelsOf(const std::function<void()>& draw);

} // namespace bench
