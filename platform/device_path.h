#pragma once

#include <climits>
#include <string>

namespace kestro {

/// A path on the device, behind the device root of this process. See devicePath.
class DevicePath {
public:
    explicit DevicePath(const char* path);
    DevicePath(const DevicePath&) = delete;
    DevicePath& operator=(const DevicePath&) = delete;

    operator const char*() const { return mPath; }

private:
    const char* mPath;
    char mRooted[PATH_MAX];
};

/// The one door to absolute device paths: puts the device root in front of `path`, which is not null.
///
/// The root is the environment variable KESTRO_DEVICE_ROOT, read at each call. Unset or empty, which is
/// how it is on the device, and always in a privileged process, the path comes back as it is. A rooted
/// path that would be longer than the system's limit becomes "", which opens nothing.
///
/// The result refers to `path` or to itself: use it within the expression. Any thread.
inline DevicePath devicePath(const char* path) {
    return DevicePath(path);
}

/// `text` as one word of a shell command: as it is where it is of letters, digits and "/._-" only, else in
/// single quotes.
std::string shellQuoted(const std::string& text);

/// Runs a shell command and returns what `system` returns. Where the device root has a folder "/bin", the
/// programs in it are found before the system's. A device path inside the command goes through devicePath
/// and shellQuoted. Blocks until the command ends. Any thread.
int runCommand(const char* command);

} // namespace kestro
