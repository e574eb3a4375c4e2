#include "bench/support/list_page.h"

#include "shell/skin.h"

namespace bench {

const std::vector<std::string> latinLabels = {"Mountain Panorama",
                                              "The Long Winding Road Across Seven Sleepy Hills",
                                              "Paper Kite and Other Stories",
                                              "Creatures of the Deep Blue Sea",
                                              "Harbour Lights at Midnight",
                                              "A Train That Never Stops"};

const std::vector<std::string> chineseLabels = {
    "超级小球大冒险之奇幻旅程",   "月光森林里的秘密花园与沉睡的巨人", "星际快车：最后一班列车",
    "深海探险队与失落的古城传说", "纸风筝的夏天和雨后的彩虹",         "沙漠之晨：骆驼商队的远征"};

ListPage::ListPage(const std::vector<std::string>& labels)
    : mMenu("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0) {
    for (const std::string& label : labels)
        mMenu.insertItem(
            static_cast<TextMenuItemProvider*>(new TextMenuItem(label.c_str(), nullptr, nullptr, false)));
}

void ListPage::draw() {
    gBackground->render(nullptr, nullptr, true, nullptr);
    mMenu.draw();
}

} // namespace bench
