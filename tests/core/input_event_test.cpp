#include "core/input.h"
#include "gfx/screen.h"
#include "support/input_model.h"
#include "support/input_test.h"
#include "support/screen_test.h"
#include "support/tone_log.h"

#include <climits>
#include <cstring>
#include <random>
#include <vector>

class EventRecordTest : public InputTest {};

static bool same(const SDL_Event& a, const SDL_Event& b) {
    return memcmp(&a, &b, sizeof a) == 0;
}

TEST_F(EventRecordTest, WholeRecordIsCopiedForEveryType) {
    std::vector<Uint32> types{SDL_WINDOWEVENT,
                              SDL_KEYDOWN,
                              SDL_KEYUP,
                              SDL_TEXTINPUT,
                              SDL_MOUSEMOTION,
                              SDL_MOUSEBUTTONDOWN,
                              SDL_JOYAXISMOTION,
                              SDL_JOYBALLMOTION,
                              SDL_JOYHATMOTION,
                              SDL_JOYBUTTONDOWN,
                              SDL_JOYBUTTONUP,
                              0x653,
                              0x654,
                              SDL_FINGERDOWN,
                              SDL_CLIPBOARDUPDATE,
                              SDL_RENDER_TARGETS_RESET,
                              SDL_USEREVENT,
                              SDL_USEREVENT + 1,
                              SDL_LASTEVENT};
    for (const Uint32 type : types) {
        SDL_Event sent;
        memset(&sent, static_cast<int>(type % 251 + 1), sizeof sent);
        sent.type = type;
        SDL_FlushEvent(SDL_POLLSENTINEL);
        ASSERT_EQ(SDL_PushEvent(&sent), 1); // notes the time in the record
        SDL_Event got{};
        wait_event(&got);
        EXPECT_TRUE(same(sent, got)) << type;
    }
    takeLog();
}

TEST_F(EventRecordTest, RecordOfAQuitRequestIsCopiedToo) {
    push(plainEvent(SDL_QUIT));
    SDL_Event got{};
    EXPECT_EQ(wait_event(&got), 0);
    EXPECT_EQ(got.type, 256u);
}

TEST_F(EventRecordTest, WithoutAnEventTheRecordIsLeftAlone) {
    SDL_Event got;
    memset(&got, 0x5A, sizeof got);
    const SDL_Event before = got;
    EXPECT_EQ(wait_event(&got), 0);
    EXPECT_TRUE(same(got, before));
}

TEST_F(EventRecordTest, NullRecordIsAllowed) {
    EXPECT_EQ(wait_event(nullptr), 0);
    EXPECT_EQ(give(keyUp(SDLK_SPACE)), 1);
}

TEST_F(EventRecordTest, OneEventIsTakenAtATime) {
    push(keyUp(SDLK_SPACE));
    push(keyUp(SDLK_LCTRL));
    EXPECT_EQ(wait_event(nullptr), 1);
    EXPECT_EQ(waitingEvents(), 1);
    EXPECT_EQ(wait_event(nullptr), 2);
}

TEST_F(EventRecordTest, UserEventGivesItsCodeAsItIs) {
    for (const int code : {0, 1, 5, 25, 1002, 1003, 65536, -1, -1002, INT_MAX, INT_MIN})
        EXPECT_EQ(give(userEvent(code)), code);
}

TEST_F(EventRecordTest, OtherUserTypesGiveNothing) {
    for (const Uint32 type : {0x8001u, 0x8002u, 0x9000u, 0xFFFEu, 0xFFFFu}) {
        SDL_Event event = userEvent(25);
        event.type = type;
        EXPECT_EQ(give(event), 0) << type;
    }
}

TEST_F(EventRecordTest, OtherTypesGiveNothing) {
    for (const Uint32 type :
         {0u, 1u, 0x1FFu, 0x302u, 0x400u, 0x5FFu, 0x601u, 0x605u, 0x606u, 0x650u, 0x655u, 0x700u, 0x7FFFu})
        EXPECT_EQ(give(plainEvent(type)), 0) << type;
    EXPECT_EQ(takeLog(), "");
    EXPECT_EQ(gTestHost.joystickOpenings, 0);
}

TEST_F(EventRecordTest, QuitRequestShutsSdlDown) {
    EXPECT_EQ(give(plainEvent(SDL_QUIT)), 0);
    EXPECT_EQ(SDL_WasInit(0), 0u);
    EXPECT_EQ(wait_event(nullptr), 0) << "and later calls are harmless";
}

class QuitEventOnScreenTest : public ScreenTest {};

TEST_F(QuitEventOnScreenTest, ScreenIsClosedFirst) {
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    push(plainEvent(SDL_QUIT));
    EXPECT_EQ(wait_event(nullptr), 0);
    EXPECT_EQ(SDL_WasInit(0), 0u);
    EXPECT_EQ(gRenderer, nullptr);
    EXPECT_EQ(GetRenderTarget(), nullptr);
}

/// Any events in any order, compared with what the model makes of them.
class RandomEventsTest : public InputTest {
protected:
    SDL_Event anyEvent() {
        switch (pick(12)) {
        case 0:
            return keyDown(anyKey(), pick(2) == 0);
        case 1:
            return keyUp(anyKey());
        case 2:
            return axisMoved(pick(8), anyAxisValue());
        case 3:
            return hatMoved(pick(17));
        case 4:
            return buttonDown(pick(16));
        case 5:
            return buttonUp(pick(16));
        case 6:
            return userEvent(pick(3000) - 1000);
        case 7:
            return anyDevice();
        default:
            return anyOther();
        }
    }

    int pick(int count) { return std::uniform_int_distribution<>(0, count - 1)(mRandom); }

private:
    std::mt19937 mRandom{20240229};

    SDL_Keycode anyKey() {
        constexpr SDL_Keycode keys[] = {SDLK_SPACE, SDLK_LCTRL, SDLK_LSHIFT, SDLK_LALT,   SDLK_UP,
                                        SDLK_DOWN,  SDLK_LEFT,  SDLK_RIGHT,  SDLK_RETURN, SDLK_RCTRL,
                                        SDLK_TAB,   SDLK_TAB,   SDLK_ESCAPE, SDLK_POWER,  SDLK_BACKSPACE,
                                        SDLK_a,     SDLK_F5};
        return keys[pick(sizeof keys / sizeof *keys)];
    }

    int anyAxisValue() {
        constexpr int values[] = {0, 16384, 16385, -16384, -16385, 32767, -32768};
        return pick(3) == 0 ? pick(65536) - 32768 : values[pick(7)];
    }

    SDL_Event anyDevice() {
        SDL_Event event = plainEvent(pick(2) ? 0x653 : 0x654);
        event.jdevice.which = pick(9) - 1;
        return event;
    }

    SDL_Event anyOther() {
        constexpr Uint32 types[] = {SDL_WINDOWEVENT, SDL_MOUSEMOTION,   SDL_TEXTINPUT,     SDL_FINGERUP,
                                    0x8001,          SDL_JOYBALLMOTION, SDL_KEYMAPCHANGED, SDL_LASTEVENT};
        SDL_Event event = plainEvent(types[pick(8)]);
        event.user.code = pick(100);
        return event;
    }
};

TEST_F(RandomEventsTest, NoneOfTenThousandIsLostOrOutOfOrder) {
    Mix_Chunk sound{};
    gKeyChunk = &sound;
    ToneLog tones;
    std::vector<SDL_Event> events(10'000);
    for (SDL_Event& event : events) {
        event = anyEvent();
        ASSERT_EQ(SDL_PushEvent(&event), 1);
    }
    InputModel model;
    bool grabbed = false;
    bool displayUp = false;
    for (size_t i = 0; i < events.size(); ++i) {
        if (pick(50) == 0)
            setGrabbed(grabbed = !grabbed);
        if (pick(displayUp ? 5 : 100) == 0)
            setDisplayUp(displayUp = !displayUp);
        clock.advance(static_cast<uint64_t>(pick(100)));
        const int wanted = model.give(events[i], grabbed, displayUp, clock.now());
        SDL_Event got{};
        ASSERT_EQ(wait_event(&got), wanted) << "event " << i << " of type " << events[i].type;
        ASSERT_TRUE(displayUp || same(got, events[i])) << i;
        ASSERT_EQ(takeLog(), model.takeLog()) << i;
    }
    EXPECT_EQ(wait_event(nullptr), 0);
    EXPECT_EQ(gTestHost.joystickOpenings, model.joystickOpenings);
    EXPECT_EQ(tones.take().size(), 2 * static_cast<size_t>(model.tones));
    EXPECT_GT(model.tones, 100);
}
