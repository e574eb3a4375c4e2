#include "support/list_picture_test.h"

#include "gfx/screen.h"
#include "shell/skin.h"
#include "text/pinyin.h"

void ListPictureTest::SetUp() {
    SkinnedTest::SetUp();
    writePicture("skin/bg-list-f.png", 1260, 90, 0xFF2F5FA8, 16);
    writePicture("skin/bg-list-n.png", 1260, 90, 0xFF1B222D, 16);
    InitPinYinMap();
    if (isChinese())
        useLanguage({{3, "加载中..."}, {4, "打开"}, {5, "返回"}, {6, "亮度"}, {7, "菜单"}});
    SDL_SetRenderDrawColor(gRenderer, 0x10, 0x14, 0x1C, 0xFF);
    SDL_RenderClear(gRenderer);
    takeLog();
}

std::vector<std::string> ListPictureTest::trees() const {
    if (isChinese())
        return {"桤木",   "桦树", "雪松", "山茱萸", "榆树", "冷杉", "银杏", "榛树", "冬青", "杜松",
                "落叶松", "枫树", "橡树", "松树",   "栎树", "红杉", "云杉", "柚木", "胡桃", "紫杉"};
    return {"Alder", "Birch", "Cedar", "Dogwood", "Elm",    "Fir",     "Ginkgo", "Hazel", "Holly",  "Juniper",
            "Larch", "Maple", "Olive", "Pine",    "Quince", "Redwood", "Spruce", "Teak",  "Walnut", "Yew"};
}
