#include "navora/device_watch.h"

#include "core/host.h"
#include "hostkit/close_request.h"
#include "hostkit/rotation.h"
#include "hostkit/settings.h"

#include <cstdio>
#include <sys/stat.h>

namespace navora {

/// As the library takes it: settings that name no language mean the same as those that it will save.
static std::string languageOf(const SimulatedDevice& device) {
    const std::string language = device.language();
    return language.empty() ? "en.lang" : language;
}

DeviceWatch::DeviceWatch(const SimulatedDevice& device)
    : mDevice(device), mSettings(stampOf(device.settingsFile())), mRotation(stampOf(device.rotationFile())),
      mLanguage(languageOf(device)), mSwapped(device.swapped()) {}

bool DeviceWatch::Stamp::operator==(const Stamp& other) const {
    return seconds == other.seconds && nanoseconds == other.nanoseconds && file == other.file;
}

DeviceWatch::Stamp DeviceWatch::stampOf(const std::string& file) {
    struct stat found {};
    if (stat(file.c_str(), &found) != 0)
        return {};
    return {found.st_mtim.tv_sec, found.st_mtim.tv_nsec, found.st_ino};
}

void DeviceWatch::follow() {
    constexpr Uint64 pause = 1000;
    const Uint64 now = SDL_GetTicks64();
    if (now < mNextLook)
        return;
    mNextLook = now + pause;
    followSettings();
    followRotation();
}

void DeviceWatch::followSettings() {
    constexpr int swapIndex = 19;
    const Stamp stamp = stampOf(mDevice.settingsFile());
    if (stamp == mSettings)
        return;
    const std::string language = mDevice.language();
    if (language.empty())
        return; // half written, or no settings: looked at again
    mSettings = stamp;
    if (language != mLanguage)
        hostkit::changeLanguage(language);
    mLanguage = language;
    if (mDevice.swapped() != mSwapped) {
        mSwapped = !mSwapped;
        SetKeyShm(gShmInfo, swapIndex, mSwapped);
    }
}

void DeviceWatch::followRotation() {
    const Stamp stamp = stampOf(mDevice.rotationFile());
    if (stamp == mRotation)
        return;
    mRotation = stamp;
    const bool rotated = mDevice.rotated();
    if (rotated == hostkit::screenIsRotated() || hostkit::rotateScreen(rotated))
        return;
    fprintf(stderr, "navora: cannot open the screen again: %s\n", SDL_GetError());
    hostkit::requestClose();
}

} // namespace navora
