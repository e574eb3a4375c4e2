#pragma once

#include "support/fake_clock.h"
#include "support/kestro_test.h"
#include "support/quick_repeat.h"
#include "support/recorded_window.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

/// A test with a window stack, a standing clock and SDL's event queue, but without a screen; the
/// key-repeat thread looks every millisecond. Everything that the loop remembers from run to run is at its
/// start again: frame rates, boost, pop-up queue.
class WindowTest : public KestroTest {
protected:
    void SetUp() override;
    void TearDown() override;

    /// A new window that notes its calls; addWindow puts it on top of `windows` too.
    RecordedWindow* makeWindow(const std::string& name, int type = 0);
    RecordedWindow* addWindow(const std::string& name, int type = 0);

    /// Runs `windows` and returns what was logged between the lines of the beginning and those of the end,
    /// which must be there.
    std::string run();

    /// The calls of all windows since the last call of this, with spaces between them.
    std::string takeCalls();

    /// A handler of input that answers these codes one after the other, then 1003 for ever.
    static std::function<int()> answers(std::initializer_list<int> codes);

    FakeClock clock{laterStart()};
    QuickRepeat quick;
    std::vector<KestroWindow*> windows;

    /// How a run begins and ends in the log.
    static constexpr const char* runBegin = "runWindows\nclear repeat time\ninit check_repeat_thread\n";
    static constexpr const char* runEnd = "deinit check_repeat_thread\n";

private:
    WindowLog mCalls;
};

/// What is logged after a code of window "a" that closes it, and after one that leaves the loop.
std::string popped(int code);
std::string left(int code);

/// The log lines of freeing windows without a title, of these types from the top of the stack down.
std::string freed(std::initializer_list<int> types);

/// "name.update name.postUpdate name.draw", with a space at the end.
std::string drawn(const std::string& name);
