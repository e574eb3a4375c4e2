#include "end_to_end/golden.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

Picture goldenPicture(const std::string& name, const Picture& got) {
    const std::string path = NAVORA_GOLDEN "/" + name + ".png";
    if (getenv("KESTRO_UPDATE_GOLDEN")) {
        EXPECT_TRUE(writePicture(got, path)) << path;
        ADD_FAILURE() << "wrote " << path << "; look at it, and run again without KESTRO_UPDATE_GOLDEN";
    }
    return readPicture(path);
}

// The pictures were made where SDL blends with x86-64's own instructions. Elsewhere it rounds otherwise.
#ifdef __x86_64__
static constexpr int sTolerance = 0;
#else
static constexpr int sTolerance = 2;
#endif

/// White where the two differ.
static Picture difference(const Picture& wanted, const Picture& got) {
    Picture result = got;
    std::transform(wanted.pixels.begin(), wanted.pixels.end(), got.pixels.begin(), result.pixels.begin(),
                   [](uint32_t a, uint32_t b) { return looksLike(a, b, sTolerance) ? 0u : 0xFFFFFFu; });
    return result;
}

void expectSamePicture(const std::string& name, const Picture& wanted, const Picture& got) {
    if (looksLike(wanted, got, sTolerance))
        return;
    const std::string failed = NAVORA_FAILED_PICTURES "/" + name;
    std::filesystem::create_directories(NAVORA_FAILED_PICTURES);
    EXPECT_TRUE(writePicture(got, failed + "-got.png"));
    if (wanted.width != got.width || wanted.height != got.height) {
        ADD_FAILURE() << name << (wanted.width == 0 ? " is missing" : " has another size") << "; got "
                      << failed << "-got.png";
        return;
    }
    const Picture differing = difference(wanted, got);
    EXPECT_TRUE(writePicture(wanted, failed + "-wanted.png"));
    EXPECT_TRUE(writePicture(differing, failed + "-difference.png"));
    ADD_FAILURE() << std::count(differing.pixels.begin(), differing.pixels.end(), 0xFFFFFFu)
                  << " pixels differ; see " << failed << "-{wanted,got,difference}.png";
}
