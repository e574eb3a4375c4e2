#include "gfx/image.h"
#include "support/list_picture_test.h"
#include "support/setting_rows.h"
#include "system/language.h"

#include <memory>

class SettingPicturesTest : public ListPictureTest {
protected:
    std::vector<std::unique_ptr<KestroSurface>> pictures;
    RecordedValue value;
    RecordedSwitch on;
    RecordedSwitch off;

    void SetUp() override {
        ListPictureTest::SetUp();
        gLangTable.clear();
        useLanguage({{2, word("Rumble", "振动")},
                     {4, word("Network", "网络")},
                     {5, word("Volume", "音量")},
                     {6, word("Brightness", "亮度")},
                     {7, word("Key tone", "按键音")}});
        value.text = "70 %";
        on.on = true;
    }

    void TearDown() override {
        pictures.clear();
        ListPictureTest::TearDown();
    }

    KestroSurface* rounded(int w, int h, Uint32 color, int radius) {
        writePicture("picture.png", w, h, color, radius);
        pictures.emplace_back(LoadKestroSurface(nullptr, "./", "picture.png"));
        takeLog();
        return pictures.back().get();
    }
};

TEST_P(SettingPicturesTest, EachKindOfRow) {
    KestroSurface* const selected = rounded(1260, 90, 0xFF2F5FA8, 16);
    KestroSurface* const normal = rounded(1260, 90, 0xFF1B222D, 16);
    KestroSurface* const left = rounded(72, 60, 0xFFFFFFFF, 20);
    KestroSurface* const leftNormal = rounded(72, 60, 0xFF606870, 20);
    KestroSurface* const right = rounded(72, 60, 0xFFFFFFFF, 20);
    KestroSurface* const rightNormal = rounded(72, 60, 0xFF606870, 20);
    KestroSurface* const frame = rounded(500, 70, 0xFF1C3F75, 20);
    KestroSurface* const onImage = rounded(80, 44, 0xFF36C080, 22);
    KestroSurface* const offImage = rounded(80, 44, 0xFF606870, 22);
    auto page = std::make_unique<SettingMenu>();
    SettingMenu& menu = *page;
    auto* const plain = new SettingItem(selected, normal, 4, nullptr, nullptr);
    plain->setRightIcon(rounded(40, 40, 0xFFE0C030, 20));
    menu.insertSettingItem(plain);
    menu.insertSettingItem(new SettingItem(selected, normal, word("Version", "版本"), "12", nullptr));
    menu.insertSettingItem(new SettingValueItem(selected, normal, left, leftNormal, right, rightNormal, frame,
                                                6, nullptr, &value));
    menu.insertSettingItem(new SettingValueItem(selected, normal, left, leftNormal, right, rightNormal, frame,
                                                5, nullptr, &value));
    menu.insertSettingItem(new SettingSwitchItem(selected, normal, onImage, offImage, 7, &on));
    menu.insertSettingItem(new SettingSwitchItem(selected, normal, onImage, offImage, 2, &off));
    menu.setCursor(2);
    menu.draw();
    takeLog();
    expectPage("setting");
    page.reset();
    takeLog();
}

INSTANTIATE_TEST_SUITE_P(Languages, SettingPicturesTest, testing::Values("en", "ch"));
