#pragma once

#include "core/window.h"
#include "menu/list_menu.h"

#include <memory>
#include <string>

namespace hostkit {

/// A full-screen window around one list: the theme's background, a title above, the list. Back (B, or A where
/// the two are swapped) closes it; without another window beneath it, that ends the loop. Main thread.
class MenuWindow : public KestroWindow {
public:
    /// `list` is not null.
    MenuWindow(std::string title, std::unique_ptr<ListMenu> list);

    ListMenu& list() const { return *mList; } ///< the window owns it

    /// A result of the list that means back, 1 or 2, becomes 1005; others are returned as they are.
    int eventHandling() override;
    int draw() override;
    const char* getTitle() override { return mTitle.c_str(); }

    /// Takes over a theme that changeTheme has put in force meanwhile.
    void update() override;

    void quit() override {}
    void init() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }

private:
    std::string mTitle;
    std::unique_ptr<ListMenu> mList;
    int mThemeNumber;
};

} // namespace hostkit
