#include "services/wifi_monitor.h"

#include "core/log.h"
#include "platform/device_path.h"
#include "services/process_list.h"
#include "services/process_list_internal.h"
#include "services/wpa_message.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <pthread.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

using kestro::devicePath;
using kestro::shellQuoted;

WpaMsg g_wpa_msg;

static struct {
    std::atomic<int> running{0}; // whether it should run
    std::atomic<int> alive{0};   // whether there is a thread, which outlives its order to stop
    std::mutex asking;           // the commands write to one file
} sMonitor;

// The record is copied as words, each of them atomic, so that a reader needs no lock. As a whole it is not:
// a copy may be half old and half new.
using Word = uint32_t __attribute__((may_alias));
static constexpr size_t words = sizeof(WpaMsg) / sizeof(Word);
static_assert(sizeof(WpaMsg) % sizeof(Word) == 0 && alignof(WpaMsg) == alignof(Word));

static Word* wordsOf(WpaMsg& message) {
    return reinterpret_cast<Word*>(&message);
}

static void publish(WpaMsg message) {
    for (size_t i = 0; i < words; ++i)
        __atomic_store_n(wordsOf(g_wpa_msg) + i, wordsOf(message)[i], __ATOMIC_RELAXED);
}

WpaMsg readWifiStatus() {
    WpaMsg message;
    for (size_t i = 0; i < words; ++i)
        wordsOf(message)[i] = __atomic_load_n(wordsOf(g_wpa_msg) + i, __ATOMIC_RELAXED);
    return message;
}

WpaMsg* rx_wifi_status() {
    return &g_wpa_msg;
}

static void ask(const std::string& command, const std::string& redirection) {
    const std::string sockets(devicePath("/etc/wifi/sockets"));
    const std::string answer(devicePath("/tmp/wpa_status.txt"));
    kestro::runCommand(("wpa_cli -p " + shellQuoted(sockets) + " -i wlan0 " + command + " " + redirection +
                        " " + shellQuoted(answer))
                           .c_str());
}

static bool isOwnFile(int descriptor) {
    struct stat status {};
    return descriptor >= 0 && fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == geteuid() && status.st_nlink == 1;
}

/// Makes sure that the file that the shell is about to write is our own. Everybody may write to its folder,
/// and a link that somebody has put there could lead to any file.
static bool claimScratchFile(const char* path) {
    constexpr int flags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    constexpr mode_t mode = 0644;
    int descriptor = open(path, flags, mode);
    bool ours = isOwnFile(descriptor);
    if (!ours && unlink(path) == 0) {
        if (descriptor >= 0)
            close(descriptor);
        descriptor = open(path, flags | O_EXCL, mode);
        ours = descriptor >= 0;
    }
    if (descriptor >= 0)
        close(descriptor);
    return ours;
}

WpaMsg rx_get_wpa_msg() {
    const std::lock_guard<std::mutex> lock(sMonitor.asking);
    if (!claimScratchFile(devicePath("/tmp/wpa_status.txt")))
        return {};
    ask("status", ">");
    ask("signal_poll", ">>");
    char text[4096] = "";
    if (FILE* const file = fopen(devicePath("/tmp/wpa_status.txt"), "r")) {
        text[fread(text, 1, sizeof text - 1, file)] = 0; // the rest of a longer answer does not count
        fclose(file);
    }
    return kestro::parseWpaMessage(text);
}

static void* monitorWifi(void*) {
    const auto thread = static_cast<unsigned>(gettid());
    tprintf("%s pid %u tid %u (0x%x)\n", "new thread_wifi_monitor:", static_cast<unsigned>(getpid()), thread,
            thread);
    while (sMonitor.running) {
        if (check_process_exist("wpa_supplicant", false) >= 0)
            publish(rx_get_wpa_msg());
        usleep(3'000'000);
    }
    sMonitor.alive = 0;
    return nullptr;
}

static bool startThread() {
    pthread_t thread;
    return pthread_create(&thread, nullptr, monitorWifi, nullptr) == 0 && pthread_detach(thread) == 0;
}

void rx_wifi_monitor_start() {
    publish({});
    if (sMonitor.alive.exchange(1)) {
        tprintf("wifi monitor already started.");
        return;
    }
    sMonitor.running = 1;
    if (startThread())
        return;
    sMonitor.running = 0;
    sMonitor.alive = 0;
}

void rx_wifi_monitor_stop() {
    sMonitor.running = 0;
}

int getWifiMode() {
    const int running = kestro::firstRunning("wpa_supplicant", "hostapd");
    return running < 0 ? 1 : 2 + running;
}

int rssi2Level(int rssi) {
    if (rssi < -126 || rssi > 127)
        return 0;
    if (rssi < -80)
        return 1;
    return rssi < -70 ? 2 : 3;
}
