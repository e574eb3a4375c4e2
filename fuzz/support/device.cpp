#include "fuzz/support/device.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

namespace fuzz {

namespace {

[[noreturn]] void giveUp(const char* what) {
    perror(what);
    abort();
}

class Device {
public:
    Device() {
        std::error_code none;
        const char* const memory = "/dev/shm";
        mRoot = (fs::is_directory(memory, none) ? memory : fs::temp_directory_path().string()) +
                "/kestro-fuzz-XXXXXX";
        if (!mkdtemp(mRoot.data()))
            giveUp(mRoot.c_str());
        for (const char* folder :
             {"mnt/UDISK", "mnt/SDCARD", "tmp", "proc", "usr/kestro", "work/lang", "work/skin"})
            fs::create_directories(fs::path(mRoot) / folder);
        fs::current_path(fs::path(mRoot) / "work");
        setenv("KESTRO_DEVICE_ROOT", mRoot.c_str(), 1);
        const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (nowhere < 0 || dup2(nowhere, STDOUT_FILENO) < 0)
            giveUp("/dev/null");
        close(nowhere);
    }
    ~Device() {
        if (getpid() != mOwner)
            return; // a copy of the process, which ends before it
        std::error_code ignored;
        fs::current_path("/", ignored);
        fs::remove_all(mRoot, ignored);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    const std::string& root() const { return mRoot; }

private:
    std::string mRoot;
    const pid_t mOwner = getpid();
};

} // namespace

const std::string& device() {
    static const Device device;
    return device.root();
}

void put(const char* path, const uint8_t* data, size_t size) {
    const std::string whole = device() + path;
    FILE* const file = fopen(whole.c_str(), "w");
    if (!file || fwrite(data, 1, size, file) != size || fclose(file) != 0)
        giveUp(whole.c_str());
}

} // namespace fuzz
