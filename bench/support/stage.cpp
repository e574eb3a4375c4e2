#include "bench/support/stage.h"

#include "gfx/screen.h"
#include "shell/skin.h"

#include <SDL.h>
#include <SDL_image.h>
#include <SDL_ttf.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace fs = std::filesystem;

namespace bench {

namespace {

/// Removes its folders when the program ends.
struct Folders {
    std::vector<fs::path> made;

    ~Folders() {
        std::error_code ignored;
        for (const fs::path& folder : made)
            fs::remove_all(folder, ignored);
    }
};

} // namespace

void giveUp(const std::string& why) {
    fprintf(stderr, "%s\n", why.c_str());
    exit(1);
}

Stage::Stage(const std::string& folder) {
    setenv("SDL_VIDEODRIVER", "dummy", 1);
    setenv("SDL_RENDER_DRIVER", "software", 1);
    fs::current_path(folder);
    if (SDL_Init(SDL_INIT_VIDEO) != 0 || TTF_Init() != 0 || !ScreenInit(1280, 720, 32, 0))
        giveUp(std::string("no screen: ") + SDL_GetError());
    init_shared_skin();
    if (!gListFontTxt)
        giveUp("no font in " + folder);
}

Stage::~Stage() {
    uninit_shared_skin();
    ScreenUninit();
    TTF_Quit();
    SDL_Quit();
}

std::string runFolder() {
    return BENCH_RUN_FOLDER;
}

std::string temporaryFolder() {
    static Folders folders;
    std::string name = (fs::temp_directory_path() / "kestro-bench-XXXXXX").string();
    if (!mkdtemp(name.data()))
        giveUp("cannot make a folder in " + fs::temp_directory_path().string());
    folders.made.emplace_back(name);
    return name;
}

static void writePicture(const fs::path& path, int width, int height, Uint32 color) {
    SDL_Surface* const picture =
        SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_ARGB8888);
    SDL_FillRect(picture, nullptr, color);
    if (IMG_SavePNG(picture, path.c_str()) != 0)
        giveUp("cannot write " + path.string());
    SDL_FreeSurface(picture);
}

std::string opaqueSkinFolder() {
    const fs::path folder = temporaryFolder();
    fs::create_directory(folder / "skin");
    fs::create_symlink(fs::canonical(fs::path(runFolder()) / "regular.ttf"), folder / "regular.ttf");
    fs::create_symlink(fs::canonical(fs::path(runFolder()) / "skin/bg.png"), folder / "skin/bg.png");
    writePicture(folder / "skin/bg-list-f.png", 1260, 96, 0xFF305090);
    writePicture(folder / "skin/bg-list-n.png", 1260, 96, 0xFF202830);
    return folder.string();
}

} // namespace bench
