#pragma once

#include "gfx/surface.h"

/// A surface of some size that shows nothing, and counts how many of its kind are alive.
class CountedSurface : public KestroSurface {
public:
    CountedSurface(int& alive, int w, int h) : mAlive(alive), mWidth(w), mHeight(h) { ++mAlive; }
    ~CountedSurface() override { --mAlive; }

    int setBlendMode(SDL_BlendMode) override { return 0; }
    int setAlpha(unsigned char) override { return 0; }
    int getBlendMode(SDL_BlendMode*) override { return 0; }
    int getAlpha(unsigned char*) override { return 0; }
    int render(SDL_Rect*, SDL_Rect*, bool, const char*) override { return 0; }
    int getWidth() override { return mWidth; }
    int getHeight() override { return mHeight; }
    void* getPixels(int*, int*, int*, int*) override { return nullptr; }

private:
    int& mAlive;
    int mWidth;
    int mHeight;
};
