#include "support/picture_test.h"

#include "support/pictures.h"

void PictureTest::write32BitPicture(const std::string& path, int w, int h, Uint32 color) {
    std::string pixels;
    for (int i = 0; i < w * h; ++i)
        pixels += bigEndian(3, color & 0xFFFFFF) + static_cast<char>(color >> 24);
    std::string content = "qoif" + bigEndian(4, static_cast<uint32_t>(w)) +
                          bigEndian(4, static_cast<uint32_t>(h)) + "\x04" + std::string(1, '\0');
    for (size_t i = 0; i < pixels.size(); i += 4)
        content += "\xFF" + pixels.substr(i, 4);
    writeFile(path, content + std::string(7, '\0') + "\x01");
}

void PictureTest::write24BitPicture(const std::string& path, int w, int h, Uint32 color) {
    std::string pixels;
    for (int i = 0; i < w * h; ++i)
        pixels += bigEndian(3, color & 0xFFFFFF);
    writeFile(path, "P6 " + std::to_string(w) + " " + std::to_string(h) + " 255\n" + pixels);
}

void PictureTest::write8BitPicture(const std::string& path, int w, int h, Uint32 color) {
    writeFile(path, "P5 " + std::to_string(w) + " " + std::to_string(h) + " 255\n" +
                        std::string(static_cast<size_t>(w * h), static_cast<char>(color)));
}

SDL_Surface* PictureTest::copyOf(const KestroSurfacePtr& picture) {
    return dynamic_cast<SDL2KestroSurface&>(*picture).getSurface();
}

SDL_Texture* PictureTest::textureOf(const KestroSurfacePtr& picture) {
    return dynamic_cast<SDL2KestroSurface&>(*picture).getTexture();
}

Uint32 PictureTest::copiedPixel(const KestroSurfacePtr& picture, int x, int y) {
    SDL_Surface* const same = SDL_ConvertSurfaceFormat(copyOf(picture), SDL_PIXELFORMAT_ARGB8888, 0);
    const Uint32 color = reinterpret_cast<Uint32*>(static_cast<char*>(same->pixels) + y * same->pitch)[x];
    SDL_FreeSurface(same);
    return color;
}

void PictureTest::drawOn(Uint32 background, const KestroSurfacePtr& picture) {
    SDL_SetRenderDrawColor(gRenderer, background >> 16 & 0xFF, background >> 8 & 0xFF, background & 0xFF,
                           255);
    SDL_RenderClear(gRenderer);
    SDL_Rect place{0, 0, 0, 0};
    EXPECT_EQ(picture->render(nullptr, &place, true, nullptr), 0) << SDL_GetError();
}

std::string PictureTest::sizeOf(const KestroSurfacePtr& picture) {
    return std::to_string(picture->getWidth()) + "x" + std::to_string(picture->getHeight());
}

KestroSurfacePtr pictureOf(int w, int h, const std::vector<Uint32>& pixels) {
    std::vector<Uint32> copied = pixels;
    return KestroSurfacePtr(
        CreateFromPixels(copied.data(), w, h, 32, w * 4, 0x00FF0000, 0x0000FF00, 0x000000FF, 0xFF000000));
}
