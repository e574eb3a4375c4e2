#include "support/wifi_test.h"

#include <filesystem>

namespace fs = std::filesystem;

void WifiTest::SetUp() {
    KestroTest::SetUp();
    fs::create_directories(onDevice("/proc"));
}

void WifiTest::addProcess(const std::string& id, const std::string& command) const {
    writeFile(onDevice("/proc/" + id + "/cmdline"), command);
}

void WifiTest::endProcess(const std::string& id) const {
    fs::remove_all(onDevice("/proc/" + id));
}

void WifiTest::addClient(const std::string& status, const std::string& signalPoll) const {
    writeFile("status", status);
    writeFile("signal_poll", signalPoll);
    addClientThatRuns("cat " + folder() + "/$5");
}

void WifiTest::addClientThatRuns(const std::string& lines) const {
    const std::string path = onDevice("/bin/wpa_cli");
    fs::remove(path); // the old one may be running
    writeFile(path, "#!/bin/sh\necho \"$*\" >> " + folder() + "/called\n" + lines + "\n");
    fs::permissions(path, fs::perms::owner_all);
}

std::string WifiTest::takeCalls() {
    const std::string calls = readFile("called");
    fs::remove("called");
    return calls;
}
