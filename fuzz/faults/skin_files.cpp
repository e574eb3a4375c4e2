#include "fuzz/faults/skin_files.h"

#include <SDL_image.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace fuzz {

void addPicture(const std::string& path, int side) {
    SDL_Surface* const picture = SDL_CreateRGBSurfaceWithFormat(0, side, side, 24, SDL_PIXELFORMAT_RGB24);
    IMG_SavePNG(picture, path.c_str());
    SDL_FreeSurface(picture);
}

void prepareSkinFiles() {
    if (fs::exists("regular.ttf"))
        return;
    fs::create_symlink(FUZZ_FONT, "regular.ttf");
    for (const auto& file : fs::directory_iterator(FUZZ_ASSETS "/skin"))
        addPicture("skin/" + file.path().filename().string(), 8);
}

} // namespace fuzz
