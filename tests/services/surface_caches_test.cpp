#include "gfx/surface.h"
#include "gfx/surface_cache.h"
#include "support/child_process.h"
#include "support/kestro_test.h"

/// A surface that does nothing but tell of its end.
class CountedSurface : public KestroSurface {
public:
    explicit CountedSurface(std::function<void()> onDelete) : mOnDelete(std::move(onDelete)) {}
    ~CountedSurface() override { mOnDelete(); }
    int setBlendMode(SDL_BlendMode) override { return 0; }
    int setAlpha(unsigned char) override { return 0; }
    int getBlendMode(SDL_BlendMode*) override { return 0; }
    int getAlpha(unsigned char*) override { return 0; }
    int render(SDL_Rect*, SDL_Rect*, bool, const char*) override { return 0; }
    int getWidth() override { return 0; }
    int getHeight() override { return 0; }
    void* getPixels(int*, int*, int*, int*) override { return nullptr; }

private:
    std::function<void()> mOnDelete;
};

/// The two caches that live as long as the library.
class SurfaceCachesTest : public KestroTest, public testing::WithParamInterface<LRUCache*> {
protected:
    void SetUp() override {
        KestroTest::SetUp();
        cache().clear();
    }
    void TearDown() override {
        cache().clear();
        KestroTest::TearDown();
    }

    static LRUCache& cache() { return *GetParam(); }

    void put(const std::string& key) {
        KestroSurface* const surface = new CountedSurface([this] { ++deleted; });
        cache().put(key, surface);
    }

    int deleted = 0;
};

TEST_P(SurfaceCachesTest, DeletesWhatItReleases) {
    put("a");
    put("a");
    EXPECT_EQ(deleted, 1);
    cache().clear();
    EXPECT_EQ(deleted, 2);
}

TEST_P(SurfaceCachesTest, IgnoresNull) {
    cache().put("a", nullptr);
    cache().put("a", nullptr);
    cache().clear();
    EXPECT_EQ(cache().get("a"), nullptr);
}

TEST_P(SurfaceCachesTest, HoldsOneMoreThanAHundred) {
    for (int i = 0; i < 101; ++i)
        put(std::to_string(i));
    EXPECT_EQ(deleted, 0);
    put("one more");
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(cache().get("0"), nullptr);
    EXPECT_NE(cache().get("1"), nullptr);
}

TEST_P(SurfaceCachesTest, DeletesWhatIsLeftAtExit) {
    const ChildResult child = inChild([](int report) {
        KestroSurface* const surface = new CountedSurface([report] { writeTo(report, "deleted\n"); });
        cache().put("a", surface);
        writeTo(report, "exit\n");
    });
    EXPECT_EQ(child.exitCode, 0);
    EXPECT_EQ(child.report, "exit\ndeleted\n");
}

TEST_P(SurfaceCachesTest, TheTwoAreNotOne) {
    put("a");
    LRUCache& other = &cache() == &gIconCache ? gTextSurfaceCache : gIconCache;
    EXPECT_EQ(other.get("a"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(IconsAndTexts, SurfaceCachesTest, testing::Values(&gIconCache, &gTextSurfaceCache),
                         [](const auto& test) {
                             return std::string(test.param == &gIconCache ? "Icons" : "Texts");
                         });
