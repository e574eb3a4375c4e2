#pragma once

#include <cstddef>

/// While it lives, watches the memory that SDL and SDL_image ask for, and can refuse some of it. Not what
/// the decoders under SDL_image ask for themselves.
class SdlMemory {
public:
    SdlMemory();
    ~SdlMemory();
    SdlMemory(const SdlMemory&) = delete;
    SdlMemory& operator=(const SdlMemory&) = delete;

    /// The bytes of the largest single request so far.
    size_t largest() const;

    /// From now on grants `granted` requests for at least `bytes`, and refuses all further ones.
    void refuse(size_t bytes, int granted = 0);
};
