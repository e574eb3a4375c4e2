#include "support/threads.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

int threadsNamed(const std::string& name) {
    int count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream file(task.path() / "comm");
        std::string line;
        std::getline(file, line);
        count += line == name;
    }
    return count;
}

static bool comesToPass(const std::function<bool()>& wanted) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point end = Clock::now() + std::chrono::seconds(10);
    while (Clock::now() < end) {
        if (wanted())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

bool threadAppears(const std::string& name) {
    return comesToPass([&] { return threadsNamed(name) > 0; });
}

bool threadDisappears(const std::string& name) {
    return comesToPass([&] { return threadsNamed(name) == 0; });
}
