#pragma once

#include "menu/setting_item.h"
#include "support/skinned_test.h"

#include <memory>
#include <string>
#include <vector>

/// A test of what setting rows draw, by the drawing log. There are two backgrounds, 'selected' of 800 x 90
/// pixels and 'normal' of 900 x 70, and pictures that a test makes and names.
class SettingDrawingTest : public SkinnedTest {
protected:
    void SetUp() override;
    void TearDown() override;

    KestroSurface* selected = nullptr;
    KestroSurface* normal = nullptr;

    /// A picture with a name, which lives until the end of the test.
    KestroSurface* picture(const std::string& name, int w, int h);

    /// What a row draws at 10,80 1260x96, or elsewhere.
    std::vector<std::string> drawn(ItemDrawable& row, bool isSelected);
    std::vector<std::string> drawnIn(ItemDrawable& row, SDL_Rect rect, bool isSelected);

    /// The line for a text in the list's font and white, and for a label of the row at 10,80.
    static std::string white(const std::string& text, int x, int y);
    static std::string label(const std::string& text);

private:
    std::vector<std::pair<std::string, std::unique_ptr<KestroSurface>>> mPictures;
};
