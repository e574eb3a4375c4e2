#include "core/clock.h"
#include "core/file_util.h"
#include "core/frame_rate.h"
#include "core/input.h"
#include "core/key_repeat.h"
#include "core/log.h"
#include "core/window.h"
#include "core/window_stack.h"
#include "core/window_state.h"
#include "services/lru_cache.h"
#include "support/plain_window.h"
#include "system/current_language.h"
#include "system/language.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <type_traits>
#include <vector>

// Hosts are compiled against these: a change of a type or of a slot breaks every host that exists.

using Windows = std::vector<KestroWindow*>;

template <typename Wanted, typename Given>
constexpr bool is(Given) {
    return std::is_same_v<Wanted, Given>;
}

static_assert(is<uint64_t (*)()>(systemms));
static_assert(is<void (*)(int)>(initLogger));
static_assert(is<int (*)(const char*, ...)>(tprintf));
static_assert(is<int (*)(const char*, const void*, int)>(dumpToFile));
static_assert(is<int (*)(const char*, const char*)>(fileWriteString));
static_assert(is<int (*)(const char*, int)>(fileWriteInt));
static_assert(is<int (*)(const char*, void*)>(fileToMem));
static_assert(is<unsigned char (*)(unsigned char)>(CharToHex));
static_assert(is<unsigned char (*)(unsigned char)>(HexToChar));
static_assert(is<void (*)(Windows&)>(runWindows));
static_assert(is<void (*)(KestroWindow*)>(add2PopupList));
static_assert(is<void (*)(Windows&)>(freeWindows));
static_assert(is<void (*)(Windows&, const char*)>(saveWindowsState));
static_assert(is<int (*)(int, int)>(setKestroWindowFps));
static_assert(is<void (*)(int)>(touchBoostFps));
static_assert(is<int (*)(SDL_Event*)>(wait_event));
static_assert(is<void (*)(int)>(setRepeatTime));
static_assert(is<void (*)()>(clearRepeatTime));
static_assert(is<int (*)(void*)>(checkRepeatThread));
static_assert(is<const char* (*)(int)>(getLangStr));
static_assert(is<const char* (*)(int)>(getDefLang));
static_assert(is<int (*)()>(getLangIndexNum));
static_assert(is<void (*)(const char*)>(setSystemLanguage));
static_assert(is<const char* (*)()>(getSystemLanguage));
static_assert(std::is_same_v<decltype(gWinList), Windows*>);
static_assert(std::is_same_v<decltype(gPopupList), Windows>);

static_assert(is<int (KestroWindow::*)()>(&KestroWindow::eventHandling));
static_assert(is<int (KestroWindow::*)()>(&KestroWindow::draw));
static_assert(is<void (KestroWindow::*)()>(&KestroWindow::quit));
static_assert(is<void (KestroWindow::*)()>(&KestroWindow::init));
static_assert(is<void (KestroWindow::*)(cJSON*)>(&KestroWindow::saveState));
static_assert(is<int (KestroWindow::*)()>(&KestroWindow::queryInt));
static_assert(is<void (KestroWindow::*)()>(&KestroWindow::update));
static_assert(is<void (KestroWindow::*)()>(&KestroWindow::postUpdate));
static_assert(is<void (KestroWindow::*)()>(&KestroWindow::onClose));
static_assert(is<const char* (KestroWindow::*)()>(&KestroWindow::getTitle));
static_assert(is<void (KestroWindow::*)()>(&KestroWindow::dump));
static_assert(std::is_abstract_v<KestroWindow> && !std::is_copy_constructible_v<KestroWindow>);

static_assert(std::is_constructible_v<LRUCache, void (*)(void*), int>);
static_assert(is<void* (LRUCache::*)(std::string)>(&LRUCache::get));
static_assert(is<void (LRUCache::*)(std::string, void*)>(&LRUCache::put));
static_assert(is<void* (LRUCache::*)(std::string)>(&LRUCache::pop));
static_assert(is<void (LRUCache::*)()>(&LRUCache::clear));
static_assert(!std::is_copy_constructible_v<LRUCache> && !std::is_copy_assignable_v<LRUCache>);

/// The number of a virtual function in its class's table, from 0; -1 for one that is not virtual.
template <typename Member>
static long slotOf(Member member) {
    struct {
        ptrdiff_t function;
        ptrdiff_t adjustment;
    } pointer;
    static_assert(sizeof pointer == sizeof member);
    memcpy(&pointer, &member, sizeof pointer);
    const bool isVirtual = (pointer.function | pointer.adjustment) & 1; // one or the other, by machine
    return isVirtual ? static_cast<long>((pointer.function & ~ptrdiff_t{1}) / ptrdiff_t{sizeof(void*)}) : -1;
}

TEST(WindowInterface, SlotsAreInTheirFixedOrder) {
    // 0 and 1 are the destructors.
    EXPECT_EQ(slotOf(&KestroWindow::eventHandling), 2);
    EXPECT_EQ(slotOf(&KestroWindow::draw), 3);
    EXPECT_EQ(slotOf(&KestroWindow::quit), 4);
    EXPECT_EQ(slotOf(&KestroWindow::init), 5);
    EXPECT_EQ(slotOf(&KestroWindow::saveState), 6);
    EXPECT_EQ(slotOf(&KestroWindow::queryInt), 7);
    EXPECT_EQ(slotOf(&KestroWindow::update), 8);
    EXPECT_EQ(slotOf(&KestroWindow::postUpdate), 9);
    EXPECT_EQ(slotOf(&KestroWindow::onClose), 10);
    EXPECT_EQ(slotOf(&KestroWindow::getTitle), 11);
    EXPECT_EQ(slotOf(&KestroWindow::dump), -1);
}

/// Reads a field of an object at its place.
template <typename Field>
static Field fieldAt(const void* object, size_t offset) {
    Field field;
    memcpy(&field, static_cast<const char*>(object) + offset, sizeof field);
    return field;
}

TEST(WindowInterface, FieldsAreInTheirFixedOrder) {
    const PlainWindow window(11, 22);
    EXPECT_EQ(sizeof(KestroWindow), sizeof(void*) + 8);
    EXPECT_EQ(fieldAt<int32_t>(&window, sizeof(void*)), 11);
    EXPECT_EQ(fieldAt<int32_t>(&window, sizeof(void*) + 4), 22);
}

static void releaseNothing(void*) {}

TEST(CacheInterface, FieldsAreInTheirFixedOrder) {
    LRUCache cache(releaseNothing, 77);
    cache.put("a", nullptr);
    cache.put("b", nullptr);
    constexpr size_t word = sizeof(void*);
    EXPECT_EQ(sizeof(LRUCache), 6 * word);
    EXPECT_EQ(fieldAt<uint64_t>(&cache, 2 * word), 2u) << "the count of the list, after its two links";
    EXPECT_EQ(fieldAt<void (*)(void*)>(&cache, 3 * word), &releaseNothing);
    EXPECT_NE(fieldAt<void*>(&cache, 4 * word), nullptr) << "the lock";
    EXPECT_EQ(fieldAt<int32_t>(&cache, 5 * word), 77);
}
