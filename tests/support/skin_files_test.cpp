#include "support/skin_files_test.h"

#include "shell/skin.h"

#include <SDL_image.h>

#include <filesystem>

namespace fs = std::filesystem;

const std::vector<std::string> SkinFilesTest::pictureNames = {
    "skin/ic-video.png",   "skin/ic-folder.png", "skin/bg.png",     "skin/icon-back.png",
    "skin/tips-MENU2.png", "skin/tips-A.png",    "skin/tips-B.png", "skin/float-win-mask.png",
};

void SkinFilesTest::SetUp() {
    ScreenTest::SetUp();
    fs::create_symlink(TEST_FONT, "regular.ttf");
}

void SkinFilesTest::TearDown() {
    uninit_shared_skin();
    ScreenTest::TearDown();
}

void SkinFilesTest::writePicture(const std::string& path, int w, int h, Uint32 color) {
    if (fs::path(path).has_parent_path())
        fs::create_directories(fs::path(path).parent_path());
    SDL_Surface* const picture = filledSurface(w, h, color);
    ASSERT_EQ(IMG_SavePNG(picture, path.c_str()), 0);
    SDL_FreeSurface(picture);
}

void SkinFilesTest::writePictures(const std::string& folder, int size) {
    for (const std::string& name : pictureNames) {
        writePicture(folder + name, size, size);
        ++size;
    }
}

std::string SkinFilesTest::fallbackLine(const std::string& name, const std::string& theme) {
    return theme + "/" + name + " open fail, use .//" + name + "\n";
}

std::string SkinFilesTest::fontLines() {
    std::string lines;
    for (int i = 0; i < 9; ++i)
        lines += "open ./regular.ttf\n";
    return lines;
}
