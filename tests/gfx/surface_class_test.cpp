#include "gfx/surface.h"

#include "support/drawing_log.h"
#include "support/screen_test.h"
#include "support/surfaces.h"

#include <cstring>
#include <type_traits>

static_assert(std::is_abstract_v<KestroSurface>);
static_assert(std::has_virtual_destructor_v<KestroSurface>);
static_assert(sizeof(KestroSurface) == sizeof(void*), "the base has no data");
static_assert(!std::is_copy_constructible_v<SDL2KestroSurface>);
static_assert(!std::is_copy_assignable_v<SDL2KestroSurface>);

/// Programs built against another release call the operations by their slot and read the fields by their
/// offset.
class SurfaceLayoutTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        surface.reset(CreateFromPixels(pixels, 2, 1, 32, 8, 0xFF0000, 0xFF00, 0xFF, 0xFF000000));
        ASSERT_NE(surface, nullptr);
    }

    void TearDown() override {
        surface.reset();
        ScreenTest::TearDown();
    }

    /// The function in a slot, counted from 1.
    template <class Function>
    Function slot(size_t number) const {
        void** table = nullptr;
        memcpy(&table, static_cast<void*>(surface.get()), sizeof table);
        Function function = nullptr;
        memcpy(&function, &table[number - 1], sizeof function);
        return function;
    }

    template <class Field>
    Field field(size_t offset) const {
        Field value{};
        memcpy(&value, reinterpret_cast<const char*>(surface.get()) + offset, sizeof value);
        return value;
    }

    Uint32 pixels[2] = {0xFF000001, 0xFF000002};
    KestroSurfacePtr surface;
};

TEST_F(SurfaceLayoutTest, SlotsThreeToSixAreBlendModeAndAlpha) {
    EXPECT_EQ(slot<int (*)(KestroSurface*, SDL_BlendMode)>(3)(surface.get(), SDL_BLENDMODE_ADD), 0);
    EXPECT_EQ(slot<int (*)(KestroSurface*, unsigned char)>(4)(surface.get(), 77), 0);
    SDL_BlendMode mode = SDL_BLENDMODE_NONE;
    EXPECT_EQ(slot<int (*)(KestroSurface*, SDL_BlendMode*)>(5)(surface.get(), &mode), 0);
    EXPECT_EQ(mode, SDL_BLENDMODE_ADD);
    unsigned char alpha = 0;
    EXPECT_EQ(slot<int (*)(KestroSurface*, unsigned char*)>(6)(surface.get(), &alpha), 0);
    EXPECT_EQ(alpha, 77);
}

TEST_F(SurfaceLayoutTest, SlotSevenDraws) {
    using Render = int (*)(KestroSurface*, SDL_Rect*, SDL_Rect*, bool, const char*);
    DrawingLog drawn;
    SDL_Rect place{10, 20, 5, 5};
    EXPECT_EQ(slot<Render>(7)(surface.get(), nullptr, &place, true, nullptr), 0);
    EXPECT_THAT(drawn.take(), testing::ElementsAre("copy all -> 10,20 2x1 on W"));
}

TEST_F(SurfaceLayoutTest, SlotsEightAndNineAreWidthAndHeight) {
    EXPECT_EQ(slot<int (*)(KestroSurface*)>(8)(surface.get()), 2);
    EXPECT_EQ(slot<int (*)(KestroSurface*)>(9)(surface.get()), 1);
}

TEST_F(SurfaceLayoutTest, SlotTenGivesThePixels) {
    using GetPixels = void* (*)(KestroSurface*, int*, int*, int*, int*);
    int pitch = 0;
    int bytes = 0;
    int width = 2;
    int height = 1;
    EXPECT_EQ(slot<GetPixels>(10)(surface.get(), &pitch, &bytes, &width, &height),
              static_cast<SDL2KestroSurface*>(surface.get())->getSurface()->pixels);
    EXPECT_EQ(pitch, 8);
    EXPECT_EQ(bytes, 4);
}

TEST_F(SurfaceLayoutTest, SlotTwoDeletes) {
    const int before = SDL_GetNumAllocations();
    slot<void (*)(KestroSurface*)>(2)(surface.get());
    (void)surface.release();
    EXPECT_LT(SDL_GetNumAllocations(), before);
}

TEST_F(SurfaceLayoutTest, TextureCopyWidthAndHeightFollowTheTable) {
    const auto* const whole = static_cast<SDL2KestroSurface*>(surface.get());
    EXPECT_EQ(field<SDL_Texture*>(8), whole->getTexture());
    EXPECT_EQ(field<SDL_Surface*>(16), whole->getSurface());
    EXPECT_EQ(field<int>(24), 2);
    EXPECT_EQ(field<int>(28), 1);
}
