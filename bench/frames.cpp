// A page that stands still, for tools/measure-frames to look at from outside.
// Usage: kestro-frames FRAMES [rotated] [full-caches], in a run folder. Prints the processor time of one
// frame in microseconds, the median of all, and the memory at the end in kilobytes that is the process's own.

#include "bench/support/list_page.h"
#include "bench/support/stage.h"
#include "hostkit/hostkit.h"
#include "kestro.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int leaveLoop = 1003;
constexpr size_t cacheCapacity = 100;

/// The pages that no other process shares.
long ownKilobytes() {
    std::ifstream rollup("/proc/self/smaps_rollup");
    long sum = 0;
    for (std::string name; rollup >> name;)
        if (name == "Private_Clean:" || name == "Private_Dirty:") {
            long kilobytes = 0;
            rollup >> kilobytes;
            sum += kilobytes;
        }
    return sum;
}

double processorMicroseconds() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

/// A list of six rows between the two bars.
class Page : public hostkit::MenuWindow {
public:
    Page(std::unique_ptr<ListMenu> list, size_t frames)
        : MenuWindow("Fruit", std::move(list)), mFrames(frames) {}

    int eventHandling() override {
        mStarts.push_back(processorMicroseconds());
        const int code = MenuWindow::eventHandling();
        return mStarts.size() > mFrames ? leaveLoop : code;
    }

    int draw() override {
        MenuWindow::draw();
        drawNavBar(0);
        drawStatBar(0);
        return 0;
    }

    void quit() override { printf("%.1f %ld\n", medianOfAFrame(), ownKilobytes()); }

private:
    const size_t mFrames;
    std::vector<double> mStarts;

    /// From one frame's start to the next one's.
    double medianOfAFrame() const {
        std::vector<double> times;
        for (size_t i = 1; i < mStarts.size(); ++i)
            times.push_back(mStarts[i] - mStarts[i - 1]);
        std::nth_element(times.begin(), times.begin() + static_cast<ptrdiff_t>(times.size() / 2),
                         times.end());
        return times[times.size() / 2];
    }
};

/// A hundred texts of a row's width, and a hundred icons under names of their own.
void fillCaches() {
    for (size_t i = 0; i < cacheCapacity; ++i) {
        const std::string text = "The Long Winding Road Across Seven Hills " + std::to_string(i);
        DrawString(gListFontTxt, {}, text.c_str(), {255, 255, 255, 255}, 0, false, false);
        const std::string slashes(i, '/');
        getIconFromCache(("skin" + slashes + "/ic-batery-0%.png").c_str());
    }
}

} // namespace

int main(int argc, char** argv) {
    const auto given = [&](const char* word) {
        return std::any_of(argv + 1, argv + argc, [word](const char* a) { return strcmp(a, word) == 0; });
    };
    const long frames = argc > 1 ? atol(argv[1]) : 0;
    hostkit::SessionOptions options;
    options.rotate = given("rotated");
    hostkit::Session session(options);
    if (frames < 1 || !session.isOpen())
        bench::giveUp(frames < 1 ? "Usage: kestro-frames FRAMES [rotated] [full-caches]" : session.problem());
    auto list = std::make_unique<TextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
    for (const std::string& label : bench::latinLabels)
        list->insertItem(
            static_cast<TextMenuItemProvider*>(new TextMenuItem(label.c_str(), nullptr, nullptr, false)));
    if (given("full-caches"))
        fillCaches();
    std::vector<KestroWindow*> windows{new Page(std::move(list), static_cast<size_t>(frames))};
    runWindows(windows);
}
