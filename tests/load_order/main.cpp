#include "core/host.h"
#include "core/window_stack.h"
#include "gfx/surface_cache.h"
#include "support/real_function.h"
#include "system/language.h"
#include "text/pinyin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

/// The objects whose destruction was arranged before main, in order. Plain memory: this is filled before
/// any object of this program is made.
static constexpr int room = 4096;
static void* sObjects[room];
static int sCount = 0;

extern "C" int __cxa_atexit(void (*destroy)(void*), void* object, void* library) noexcept {
    using Register = int (*)(void (*)(void*), void*, void*);
    static const auto real = reinterpret_cast<Register>(dlsym(RTLD_NEXT, "__cxa_atexit"));
    if (sCount < room)
        sObjects[sCount++] = object;
    return real(destroy, object, library);
}

/// The place in the order of making; -1 for an object that is not destroyed at exit.
static int placeOf(const void* object) {
    void** const end = sObjects + sCount;
    void** const found = std::find(sObjects, end, object);
    return found == end ? -1 : static_cast<int>(found - sObjects);
}

/// The library's load-time objects in their order.
static std::vector<const void*> loadedObjects() {
    return {&gIconCache, &gPopupList, &gDefaultStringList, &gTextSurfaceCache,
            &gPinyinMap, &gLangTable, getLangList()};
}

TEST(LoadOrder, ObjectsAreMadeInTheirFixedOrderAndDestroyedInReverse) {
    ASSERT_LT(sCount, room);
    int last = -1;
    for (const void* object : loadedObjects()) {
        EXPECT_GT(placeOf(object), last) << "the object after the one at place " << last;
        last = placeOf(object);
    }
}

TEST(LoadOrder, EachObjectIsMadeOnce) {
    for (const void* object : loadedObjects())
        EXPECT_EQ(std::count(sObjects, sObjects + sCount, object), 1) << placeOf(object);
}

TEST(LoadOrder, ObjectsAreAsEmptyAsTheyBegin) {
    EXPECT_TRUE(gPopupList.empty());
    EXPECT_EQ(gDefaultStringList.size(), 8u);
    EXPECT_TRUE(gPinyinMap.empty());
    EXPECT_TRUE(gLangTable.empty());
    EXPECT_TRUE(getLangList()->empty());
    EXPECT_EQ(gWinList, nullptr);
}

TEST(LoadOrder, HostThatDefinesNoKeyToneHasNone) {
    EXPECT_EQ(gKeyChunk, nullptr);
}
