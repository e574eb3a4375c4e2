#pragma once

#include "menu/text_menu.h"

#include <string>
#include <vector>

namespace bench {

/// Six rows each.
extern const std::vector<std::string> latinLabels;
extern const std::vector<std::string> chineseLabels;

/// A page of rows over the theme's background, as the launcher shows one. It needs a Stage.
class ListPage {
public:
    explicit ListPage(const std::vector<std::string>& labels);

    void draw();

private:
    TextMenu mMenu;
};

} // namespace bench
