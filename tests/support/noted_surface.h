#pragma once

#include "gfx/surface.h"

#include <functional>
#include <string>
#include <vector>

/// A surface that draws nothing and notes its end.
class NotedSurface : public KestroSurface {
public:
    /// `ends` gets `name` when the surface is deleted; before that `atEnd` is called, if given.
    NotedSurface(std::vector<std::string>& ends, std::string name, std::function<void()> atEnd = {})
        : mEnds(ends), mName(std::move(name)), mAtEnd(std::move(atEnd)) {}
    ~NotedSurface() override {
        if (mAtEnd)
            mAtEnd();
        mEnds.push_back(mName);
    }

    int setBlendMode(SDL_BlendMode) override { return -1; }
    int setAlpha(unsigned char) override { return -1; }
    int getBlendMode(SDL_BlendMode*) override { return -1; }
    int getAlpha(unsigned char*) override { return -1; }
    int render(SDL_Rect*, SDL_Rect*, bool, const char*) override { return -1; }
    int getWidth() override { return 0; }
    int getHeight() override { return 0; }
    void* getPixels(int*, int*, int*, int*) override { return nullptr; }

private:
    std::vector<std::string>& mEnds;
    std::string mName;
    std::function<void()> mAtEnd;
};
