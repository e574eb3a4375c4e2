#include "support/window_test.h"

#include "core/frame_rate.h"
#include "core/window_stack.h"

#include <SDL.h>

void WindowTest::SetUp() {
    KestroTest::SetUp();
    ASSERT_EQ(SDL_Init(SDL_INIT_EVENTS), 0) << SDL_GetError();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    setKestroWindowFps(0, 0);
    touchBoostFps(0);
    ASSERT_TRUE(gPopupList.empty());
}

void WindowTest::TearDown() {
    for (KestroWindow* window : windows)
        delete window;
    add2PopupList(nullptr);
    gWinList = nullptr;
    setKestroWindowFps(0, 0);
    touchBoostFps(0);
    SDL_Quit();
    KestroTest::TearDown();
}

RecordedWindow* WindowTest::makeWindow(const std::string& name, int type) {
    return new RecordedWindow(mCalls, name, type);
}

RecordedWindow* WindowTest::addWindow(const std::string& name, int type) {
    RecordedWindow* const window = makeWindow(name, type);
    windows.push_back(window);
    return window;
}

std::string WindowTest::run() {
    runWindows(windows);
    std::string log = takeLog();
    const std::string begin = runBegin;
    const std::string end = runEnd;
    if (log.size() < begin.size() + end.size() || log.compare(0, begin.size(), begin) != 0 ||
        log.compare(log.size() - end.size(), end.size(), end) != 0) {
        ADD_FAILURE() << "not the log of a run: " << log;
        return log;
    }
    return log.substr(begin.size(), log.size() - begin.size() - end.size());
}

std::string WindowTest::takeCalls() {
    std::string calls;
    for (const std::string& call : mCalls)
        calls += (calls.empty() ? "" : " ") + call;
    mCalls.clear();
    return calls;
}

std::function<int()> WindowTest::answers(std::initializer_list<int> codes) {
    return [codes = std::vector<int>(codes), next = size_t{0}]() mutable {
        return next < codes.size() ? codes[next++] : 1003;
    };
}

std::string popped(int code) {
    return "a is " + std::to_string(code) + ", popup current window\n";
}

std::string left(int code) {
    return "a is " + std::to_string(code) + ", quit navora\n";
}

std::string freed(std::initializer_list<int> types) {
    std::string log = std::to_string(types.size()) + " window to free\n";
    for (const int type : types)
        log += "free window:title , type " + std::to_string(type) + "\n";
    return log;
}

std::string drawn(const std::string& name) {
    return name + ".update " + name + ".postUpdate " + name + ".draw ";
}
