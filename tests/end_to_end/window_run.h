#pragma once

#include "end_to_end/navora_run.h"
#include "end_to_end/x_display.h"

/// The launcher in a window.
class NavoraOnX : public NavoraTest {
protected:
    static constexpr int tolerance = 8;

    /// Starts the launcher on the sample content. In a build with the address sanitizer, leaks are not looked
    /// for here: the graphics driver is unloaded before the end, and what it leaves can no longer be told
    /// from ours. The runs without a display look for them.
    static std::unique_ptr<Navora> start(const XDisplay& display,
                                         const std::vector<std::string>& options = {}) {
        const std::vector<std::string> environment{display.environment(), "ASAN_OPTIONS=detect_leaks=0"};
        return std::make_unique<Navora>(options, environment);
    }

    /// Where the home page has its clock, anything will do.
    static bool comesToShow(const XDisplay& display, const Picture& page) {
        const Picture timeless = page.without(layout::clock);
        return eventually([&] {
            const Picture screen = display.capture();
            return screen.width == page.width && screen.height == page.height &&
                   looksLike(screen.without(layout::clock), timeless, tolerance);
        });
    }
};
