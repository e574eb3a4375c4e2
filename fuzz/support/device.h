#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// What the fuzz targets stand on. A target takes any bytes, does with them what a device would do with a
/// file, an answer or keys, and returns 0; what must not happen, the sanitizers report. Each target is built
/// twice: with libFuzzer, which makes up inputs, and with a main of ours, by which the tests run the kept
/// ones.
namespace fuzz {

/// The folder that stands for the device's root, in memory where there is a place for that, with the folders
/// of a device and an empty working folder, "work". From the first call on it is KESTRO_DEVICE_ROOT and
/// `device() + "/work"` the current folder; the library's log goes nowhere. Removed at exit.
const std::string& device();

/// Writes the file `path`, which begins with a slash, on the device.
void put(const char* path, const uint8_t* data, size_t size);

/// The input as a text, with a zero of its own at the end.
inline std::string textOf(const uint8_t* data, size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
