#pragma once

#include "gfx/surface.h"
#include "navora/page.h"
#include "navora/words.h"

#include <memory>
#include <string>

namespace navora {

/// What the launcher is, and how the device is.
class AboutPage : public Page {
public:
    explicit AboutPage(Shell& shell);

    void saveState(cJSON* state) override;

protected:
    void drawContent() override;
    int handleInput() override;
    void themeChanged() override;

private:
    std::unique_ptr<KestroSurface> mLogo;

    /// Draws a caption and its text below each other; returns where the next may begin.
    int drawFact(int y, const char* caption, const std::string& text) const;
};

} // namespace navora
