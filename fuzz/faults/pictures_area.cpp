#include "fuzz/faults/memory_areas.h"
#include "fuzz/faults/skin_files.h"
#include "kestro.h"

#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

namespace {

void preparePictures() {
    fuzz::prepareSkinFiles();
    if (!fs::exists("picture.png"))
        fuzz::addPicture("picture.png", 40);
    gIconCache.clear();
}

void useSurface(KestroSurface* surface) {
    if (!surface)
        return;
    surface->getPixels(nullptr, nullptr, nullptr, nullptr);
    SDL_Rect part{0, 0, 4, 4};
    delete ScaleSurface(surface, 7, 9);
    delete RotateSurface(surface, 45);
    delete CropSurface(surface, &part);
    delete surface;
}

void usePictures() {
    useSurface(LoadKestroSurface("missing/", "./", "picture.png"));
    useSurface(LoadKestroSurfaceSpecSized("picture.png", 20, 20, nullptr, false, true));
    useSurface(LoadKestroSurfaceSpecSized("", 20, 20, "picture.png", true, false));
    drawCachedIconCentered({0, 0, 20, 20}, "skin/ic-video.png");
    useSurface(CreateSurface(8, 8));
    useSurface(ScreenSnapshot());
}

bool picturesAreThere() {
    const std::unique_ptr<KestroSurface> picture(LoadKestroSurface(nullptr, "./", "picture.png"));
    const std::unique_ptr<KestroSurface> sized(
        LoadKestroSurfaceSpecSized("picture.png", 20, 20, nullptr, false, true));
    return picture && picture->getWidth() == 40 && sized && sized->getWidth() == 20 &&
           getIconFromCache("skin/ic-video.png");
}

} // namespace

fuzz::MemoryArea fuzz::picturesArea() {
    return {"pictures", preparePictures, usePictures, picturesAreThere, true};
}
