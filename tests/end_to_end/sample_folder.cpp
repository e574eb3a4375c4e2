#include "end_to_end/sample_folder.h"

#include "hostkit/key_table.h"

#include <SDL_image.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace fs = std::filesystem;

SampleFolder::SampleFolder() : mPath((fs::temp_directory_path() / "navora-sample-XXXXXX").string()) {
    if (!mkdtemp(mPath.data()))
        throw std::runtime_error("cannot make a folder in the place of temporary files");
}

SampleFolder::~SampleFolder() {
    hostkit::removeKeyTable(hostkit::keyTableName(mPath)); // of a device that stood here
    fs::remove_all(mPath);
}

void SampleFolder::addFile(const std::string& name, const std::string& content) {
    if (!(std::ofstream(path(name)) << content))
        throw std::runtime_error("cannot write " + path(name));
}

void SampleFolder::addFolder(const std::string& name) {
    fs::create_directories(path(name));
}

void SampleFolder::addPicture(const std::string& name, int width, int height, uint32_t color) {
    SDL_Surface* const surface = SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_RGB888);
    SDL_FillRect(surface, nullptr, color);
    const int status = IMG_SavePNG(surface, path(name).c_str());
    SDL_FreeSurface(surface);
    if (status != 0)
        throw std::runtime_error("cannot write " + path(name));
}
