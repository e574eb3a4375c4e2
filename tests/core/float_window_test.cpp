#include "core/float_window.h"

#include "gfx/fill.h"
#include "shell/skin.h"
#include "support/drawing_log.h"
#include "support/input_events.h"
#include "support/noted_surface.h"
#include "support/open_dialog.h"
#include "support/sdl_memory.h"
#include "support/skinned_test.h"
#include "support/surfaces.h"
#include "support/texture_names.h"
#include "support/virtual_slot.h"

#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::is_base_of_v<KestroWindow, FloatWindow>);
static_assert(std::is_base_of_v<FloatWindow, PopUpWindow>);
static_assert(std::is_base_of_v<FloatWindow, DialogWindow>);
static_assert(std::is_constructible_v<FloatWindow, int>);
static_assert(!std::is_copy_constructible_v<FloatWindow>);
static_assert(sizeof(FloatWindow) == sizeof(KestroWindow) + sizeof(void*));

/// As a host's class: a further virtual function comes right after the library's.
class NextFloat : public FloatWindow {
public:
    using FloatWindow::FloatWindow;
    virtual void next() {}
};

class FloatWindowTest : public SkinnedTest {
protected:
    static std::vector<std::string> drawn(OpenFloat& window) {
        TextureNames names;
        names.name(window.snapshot, "page");
        names.name(gBackgroundFloat, "mask");
        DrawingLog log;
        EXPECT_EQ(window.draw(), 0);
        return log.take();
    }

    /// Gives the skin a mask.
    void addMask(Uint32 color) {
        writePicture("skin/float-win-mask.png", 16, 16, color);
        init_shared_skin();
        takeLog();
    }
};

TEST_F(FloatWindowTest, HasItsTitleTheTypeMinusOneAndNoSnapshot) {
    const OpenFloat window(7);
    EXPECT_EQ(window.titleId, 7);
    EXPECT_EQ(window.type, -1);
    EXPECT_EQ(window.snapshot, nullptr);
}

TEST_F(FloatWindowTest, AddsNoVirtualFunctionToAWindow) {
    EXPECT_EQ(virtualSlot(&NextFloat::next), virtualSlot(&KestroWindow::getTitle) + 1);
}

TEST_F(FloatWindowTest, TakesNoInput) {
    OpenFloat window(-1);
    SDL_PumpEvents();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    push(userEvent(1));
    EXPECT_EQ(window.eventHandling(), -1);
    EXPECT_EQ(waitingEvents(), 1);
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
}

TEST_F(FloatWindowTest, TheOtherCallsOfAWindowDoNothing) {
    OpenFloat window(-1);
    EXPECT_EQ(window.queryInt(), 0);
    window.update();
    window.postUpdate();
    window.onClose();
    window.quit();
    EXPECT_EQ(window.snapshot, nullptr);
    cJSON* const state = cJSON_CreateObject();
    window.saveState(state);
    EXPECT_EQ(state->child, nullptr);
    window.saveState(nullptr);
    cJSON_Delete(state);
}

TEST_F(FloatWindowTest, FreezesThePageOnceWhenItIsInitialised) {
    OpenFloat window(-1);
    FillRect(nullptr, nullptr, 10, 20, 30, 255);
    window.init();
    ASSERT_NE(window.snapshot, nullptr);
    EXPECT_EQ(window.snapshot->getWidth(), 1280);
    EXPECT_EQ(window.snapshot->getHeight(), 720);
    KestroSurface* const first = window.snapshot;
    FillRect(nullptr, nullptr, 200, 200, 200, 255);
    window.init();
    EXPECT_EQ(window.snapshot, first);
    window.draw();
    EXPECT_EQ(pixel(640, 360), 0xFF0A141E);
}

TEST_F(FloatWindowTest, DrawsTheFrozenPageThenTheMaskOverAll) {
    addMask(0x80000000);
    OpenFloat window(-1);
    window.init();
    EXPECT_THAT(drawn(window), ElementsAre("'page' all -> all on W", "'mask' all -> all on W"));
}

TEST_F(FloatWindowTest, TheMaskDarkensThePage) {
    addMask(0x80000000);
    FillRect(nullptr, nullptr, 200, 100, 50, 255);
    OpenFloat window(-1);
    window.init();
    for (int frame = 0; frame < 3; ++frame) {
        window.draw();
        EXPECT_EQ(pixel(0, 0), pixel(1279, 719));
        EXPECT_EQ(pixel(640, 360) >> 16 & 0xFF, 100u); // in every frame: nothing adds up
    }
}

TEST_F(FloatWindowTest, WithoutAMaskItDrawsThePageOnly) {
    OpenFloat window(-1);
    window.init();
    EXPECT_THAT(drawn(window), ElementsAre("'page' all -> all on W"));
}

TEST_F(FloatWindowTest, BeforeInitItDrawsTheMaskOnly) {
    OpenFloat window(-1);
    EXPECT_THAT(drawn(window), IsEmpty());
    addMask(0x80000000);
    EXPECT_THAT(drawn(window), ElementsAre("'mask' all -> all on W"));
}

TEST_F(FloatWindowTest, WithoutAScreenThereIsNothingToFreezeUntilThereIsOne) {
    ScreenUninit();
    OpenFloat window(-1);
    window.init();
    EXPECT_EQ(window.snapshot, nullptr);
    EXPECT_EQ(window.draw(), 0);
    openScreen(1280, 720, 0);
    window.init();
    EXPECT_NE(window.snapshot, nullptr);
}

TEST_F(FloatWindowTest, DrawsOnASurfaceThatIsTheTarget) {
    OpenFloat window(-1);
    FillRect(nullptr, nullptr, 10, 20, 30, 255);
    window.init();
    const KestroSurfacePtr target = emptyTarget(64, 48);
    SetRenderTarget(target.get());
    window.draw();
    SetRenderTarget(nullptr);
    EXPECT_EQ(pixelOf(target.get(), 63, 47), 0xFF0A141E);
}

TEST_F(FloatWindowTest, DeletesItsSnapshot) {
    std::vector<std::string> ends;
    {
        OpenFloat window(-1);
        window.snapshot = new NotedSurface(ends, "page");
        window.init(); // which leaves it alone
        window.quit();
        EXPECT_THAT(ends, IsEmpty());
    }
    EXPECT_THAT(ends, ElementsAre("page"));
}

TEST_F(FloatWindowTest, OnARotatedScreenThePageLooksAsItDidBefore) {
    openScreen(640, 480, 1);
    for (int i = 0; i < 24; ++i) { // nothing of it symmetrical
        SDL_Rect band{i * 27 - 3, i * 20 + i % 3, 61 + i, 23};
        const auto shade = static_cast<unsigned char>(10 * i);
        FillRect(nullptr, &band, shade, static_cast<unsigned char>(255 - shade), 77, 255);
    }
    ScreenUpdateAndFlip();
    const MemorySurface before(frame());
    OpenFloat window(-1);
    window.init();
    ASSERT_NE(window.snapshot, nullptr);
    EXPECT_EQ(window.snapshot->getWidth(), 640);
    EXPECT_EQ(window.snapshot->getHeight(), 480);
    SDL_Rect all{0, 0, 640, 480};
    for (int shown = 0; shown < 3; ++shown) {
        ClearRect(nullptr, &all, 99, 0, 0, 255);
        window.draw();
        ScreenUpdateAndFlip();
        const MemorySurface after(frame());
        int wrong = 0;
        for (int y = 0; y < 640; ++y)
            for (int x = 0; x < 480; ++x)
                wrong += pixelOf(after.get(), x, y) != pixelOf(before.get(), x, y);
        ASSERT_EQ(wrong, 0);
    }
}

TEST_F(FloatWindowTest, OnARotatedScreenWithoutMemoryToTurnThePageThereIsNone) {
    openScreen(640, 480, 1);
    OpenFloat window(-1);
    SdlMemory memory;
    memory.refuse(640 * 480 * 4, 2); // but for the frame and its texture
    window.init();
    EXPECT_EQ(window.snapshot, nullptr);
}

TEST_F(FloatWindowTest, OnARotatedScreenOfOddSizesItReadsNothingBeyondTheFrame) {
    for (const SDL_Point size :
         {SDL_Point{641, 480}, SDL_Point{480, 641}, SDL_Point{1, 7}, SDL_Point{7, 1}}) {
        openScreen(size.x, size.y, 1);
        ScreenUpdateAndFlip();
        OpenFloat window(-1);
        window.init();
        ASSERT_NE(window.snapshot, nullptr);
        EXPECT_EQ(window.snapshot->getWidth(), size.x);
        EXPECT_EQ(window.snapshot->getHeight(), size.y);
    }
}
