#include "gfx/surface.h"

#include "gfx/fill.h"
#include "gfx/screen.h"
#include "support/creation_log.h"
#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/sdl_memory.h"
#include "support/surfaces.h"

using testing::ElementsAre;

class SurfaceTest : public ScreenTest {
protected:
    static SDL_Texture* textureOf(const KestroSurfacePtr& surface) {
        return static_cast<SDL2KestroSurface*>(surface.get())->getTexture();
    }
};

TEST_F(SurfaceTest, TakesItsSizeFromTheTexture) {
    SDL_Texture* const texture =
        SDL_CreateTexture(gRenderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STATIC, 64, 32);
    SDL_Surface* const copy = filledSurface(3, 5, 0);
    SDL2KestroSurface surface(texture, copy);
    EXPECT_EQ(surface.getWidth(), 64);
    EXPECT_EQ(surface.getHeight(), 32);
    EXPECT_EQ(surface.getTexture(), texture);
    EXPECT_EQ(surface.getSurface(), copy);
}

TEST_F(SurfaceTest, WithoutATextureIsEmptyAndAnswersWithErrors) {
    SDL2KestroSurface surface(nullptr, nullptr);
    SDL_BlendMode mode = SDL_BLENDMODE_NONE;
    unsigned char alpha = 0;
    EXPECT_EQ(surface.getWidth(), 0);
    EXPECT_EQ(surface.getHeight(), 0);
    EXPECT_EQ(surface.setBlendMode(SDL_BLENDMODE_BLEND), -1);
    EXPECT_EQ(surface.setAlpha(1), -1);
    EXPECT_EQ(surface.getBlendMode(&mode), -1);
    EXPECT_EQ(surface.getAlpha(&alpha), -1);
    EXPECT_EQ(surface.render(nullptr, nullptr, true, nullptr), -1);
}

TEST_F(SurfaceTest, FreesTextureAndCopyWithTheObject) {
    const int before = SDL_GetNumAllocations();
    CreationLog made;
    delete static_cast<KestroSurface*>(new SDL2KestroSurface(
        SDL_CreateTextureFromSurface(gRenderer, MemorySurface(create_surface(9, 9)).get()),
        create_surface(9, 9)));
    EXPECT_THAT(made.take(), ElementsAre("texture from surface", "texture destroyed"));
    EXPECT_EQ(SDL_GetNumAllocations(), before);
}

TEST_F(SurfaceTest, ForwardsTheBlendMode) {
    const KestroSurfacePtr surface = solidPicture(4, 4, 0xFFFFFFFF);
    SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
    EXPECT_EQ(surface->setBlendMode(SDL_BLENDMODE_MOD), 0);
    EXPECT_EQ(SDL_GetTextureBlendMode(textureOf(surface), &mode), 0);
    EXPECT_EQ(mode, SDL_BLENDMODE_MOD);
    SDL_SetTextureBlendMode(textureOf(surface), SDL_BLENDMODE_ADD);
    EXPECT_EQ(surface->getBlendMode(&mode), 0);
    EXPECT_EQ(mode, SDL_BLENDMODE_ADD);
    EXPECT_EQ(surface->setBlendMode(SDL_BLENDMODE_INVALID), -1);
}

TEST_F(SurfaceTest, ForwardsTheAlpha) {
    const KestroSurfacePtr surface = solidPicture(4, 4, 0xFFFFFFFF);
    Uint8 alpha = 0;
    EXPECT_EQ(surface->setAlpha(51), 0);
    EXPECT_EQ(SDL_GetTextureAlphaMod(textureOf(surface), &alpha), 0);
    EXPECT_EQ(alpha, 51);
    SDL_SetTextureAlphaMod(textureOf(surface), 102);
    EXPECT_EQ(surface->getAlpha(&alpha), 0);
    EXPECT_EQ(alpha, 102);
}

TEST_F(SurfaceTest, AlphaAndBlendModeShowOnScreen) {
    const KestroSurfacePtr surface = solidPicture(4, 4, 0xFFFFFFFF);
    surface->setAlpha(51);
    surface->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(pixel(0, 0), 0xFF333333);
    surface->setAlpha(255);
    surface->setBlendMode(SDL_BLENDMODE_MOD);
    surface->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(pixel(0, 0), 0xFF333333);
}

class CreateSurfaceTest : public SurfaceTest {};

TEST_F(CreateSurfaceTest, InMemoryIsZeroedArgb) {
    const MemorySurface surface(create_surface(7, 3));
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->w, 7);
    EXPECT_EQ(surface->h, 3);
    EXPECT_EQ(surface->format->format, 0x16362004u);
    EXPECT_EQ(surface->format->BitsPerPixel, 32);
    EXPECT_EQ(surface->format->Rmask, 0x00FF0000u);
    EXPECT_EQ(surface->format->Gmask, 0x0000FF00u);
    EXPECT_EQ(surface->format->Bmask, 0x000000FFu);
    EXPECT_EQ(surface->format->Amask, 0xFF000000u);
    EXPECT_EQ(pixelOf(surface.get(), 6, 2), 0u);
}

TEST_F(CreateSurfaceTest, InMemoryNeedsAPositiveSize) {
    EXPECT_EQ(create_surface(-1, 5), nullptr);
}

TEST_F(CreateSurfaceTest, FromMemoryTakesNoCopyAndLeavesTheSource) {
    const MemorySurface source(filledSurface(6, 5, 0xFFFF8040));
    const KestroSurfacePtr surface(CreateSurface(source.get()));
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->getWidth(), 6);
    EXPECT_EQ(surface->getHeight(), 5);
    EXPECT_EQ(static_cast<SDL2KestroSurface*>(surface.get())->getSurface(), nullptr);
    EXPECT_EQ(pixelOf(source.get(), 5, 4), 0xFFFF8040);
    SDL_FillRect(source.get(), nullptr, 0xFFFFFFFF);
    surface->render(nullptr, nullptr, false, nullptr);
    EXPECT_EQ(pixel(0, 0), 0xFFFF8040);
}

TEST_F(CreateSurfaceTest, FromMemoryBlends) {
    SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
    solidPicture(2, 2, 0x80FFFFFF)->getBlendMode(&mode);
    EXPECT_EQ(mode, SDL_BLENDMODE_BLEND);
}

TEST_F(CreateSurfaceTest, FromMemoryIsNullWithoutATexture) {
    const MemorySurface source(filledSurface(2, 2, 0));
    CreationLog made;
    made.allowTexturesFromSurfaces(0);
    EXPECT_EQ(CreateSurface(source.get()), nullptr);
    EXPECT_EQ(CreateSurface(nullptr), nullptr);
}

TEST_F(CreateSurfaceTest, AsATargetIsAnArgbTextureWithTargetAccess) {
    CreationLog made;
    const KestroSurfacePtr surface = emptyTarget(64, 32);
    EXPECT_THAT(made.take(), ElementsAre("texture 64x32 target ARGB8888"));
    EXPECT_EQ(surface->getWidth(), 64);
    EXPECT_EQ(surface->getHeight(), 32);
    EXPECT_EQ(static_cast<SDL2KestroSurface*>(surface.get())->getSurface(), nullptr);
    SDL_BlendMode mode = SDL_BLENDMODE_INVALID;
    surface->getBlendMode(&mode);
    EXPECT_EQ(mode, SDL_BLENDMODE_NONE);
}

TEST_F(CreateSurfaceTest, AsATargetStartsTransparent) {
    const KestroSurfacePtr surface = emptyTarget(64, 32);
    EXPECT_EQ(pixelOf(surface.get(), 0, 0), 0u);
    EXPECT_EQ(pixelOf(surface.get(), 63, 31), 0u);
}

TEST_F(CreateSurfaceTest, AsATargetIsClearedOnce) {
    DrawingLog drawn; // graphics memory cannot be made to hold something on purpose
    const KestroSurfacePtr surface = emptyTarget(64, 32);
    EXPECT_THAT(drawn.take(), ElementsAre("clear #00000000 on T"));
}

TEST_F(CreateSurfaceTest, AsATargetDisturbsNeitherColourNorTargetNorScreen) {
    const KestroSurfacePtr other = emptyTarget(8, 8);
    FillRect(nullptr, nullptr, 9, 9, 9, 255);
    SDL_SetRenderTarget(gRenderer, textureOf(other));
    SDL_SetRenderDrawColor(gRenderer, 11, 22, 33, 44);
    const KestroSurfacePtr surface = emptyTarget(64, 32);
    EXPECT_EQ(SDL_GetRenderTarget(gRenderer), textureOf(other));
    SDL_SetRenderTarget(gRenderer, nullptr);
    Uint8 color[4] = {};
    SDL_GetRenderDrawColor(gRenderer, &color[0], &color[1], &color[2], &color[3]);
    EXPECT_THAT(color, ElementsAre(11, 22, 33, 44));
    EXPECT_EQ(pixel(0, 0), 0xFF090909);
}

TEST_F(CreateSurfaceTest, AsATargetOfNoSizeFailsWithALine) {
    EXPECT_EQ(CreateSurface(0, 10), nullptr);
    ASSERT_STRNE(SDL_GetError(), "");
    EXPECT_EQ(takeLog(), "Unable to create texture: " + std::string(SDL_GetError()) + "\n");
}
