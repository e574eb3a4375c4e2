#include "bench/support/comparison.h"
#include "gfx/scale.h"

#include <SDL.h>
#include <libyuv.h>
#include <opencv2/imgproc.hpp>
#include <pixman.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

struct Size {
    int srcW, srcH, dstW, dstH;
};

constexpr Size sizes[] = {{1280, 720, 300, 169}, {1920, 1080, 400, 225}, {400, 300, 200, 150},
                          {640, 480, 320, 240},  {200, 200, 400, 400},   {64, 64, 1280, 720}};

struct Free {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Image = std::unique_ptr<pixman_image_t, Free>;
using Surface = std::unique_ptr<SDL_Surface, Free>;

/// A picture of noise, and room for what it is scaled to: the same memory for every scaler.
class Pictures {
public:
    explicit Pictures(const Size& size)
        : mSize(size), mFrom(count(size.srcW, size.srcH)), mTo(count(size.dstW, size.dstH)) {
        std::mt19937 random(1);
        for (unsigned& pixel : mFrom)
            pixel = static_cast<unsigned>(random());
        mFromSurface = surface(mFrom, size.srcW, size.srcH);
        mToSurface = surface(mTo, size.dstW, size.dstH);
        mFromImage = image(mFrom, size.srcW, size.srcH);
        mToImage = image(mTo, size.dstW, size.dstH);
        // Beyond its border the picture goes on as it ends, as with all the others.
        pixman_transform_t transform;
        pixman_transform_init_scale(&transform, pixman_double_to_fixed(1.0 * size.srcW / size.dstW),
                                    pixman_double_to_fixed(1.0 * size.srcH / size.dstH));
        pixman_image_set_transform(mFromImage.get(), &transform);
        pixman_image_set_repeat(mFromImage.get(), PIXMAN_REPEAT_PAD);
        pixman_image_set_filter(mFromImage.get(), PIXMAN_FILTER_BILINEAR, nullptr, 0);
    }

    std::string name() const {
        return std::to_string(mSize.srcW) + "x" + std::to_string(mSize.srcH) + " to " +
               std::to_string(mSize.dstW) + "x" + std::to_string(mSize.dstH);
    }

    bench::Contender bilinear() {
        return {"kestro", [this] {
                    resizeBilinear_cpu(mFrom.data(), mTo.data(), mSize.srcW, mSize.srcH, mSize.dstW,
                                       mSize.dstH, 0);
                }};
    }

    bench::Contender nearest() {
        return {"kestro", [this] {
                    bitmap_scale(0, 0, side(mSize.srcW), side(mSize.srcH), side(mSize.dstW), side(mSize.dstH),
                                 side(mSize.srcW), 0, mFrom.data(), mTo.data());
                }};
    }

    bench::Contender errorTerm() {
        return {"kestro", [this] {
                    bitmap_scale_bresenham(0, 0, side(mSize.srcW), side(mSize.srcH), side(mSize.dstW),
                                           side(mSize.dstH), side(mSize.srcW), 0, mFrom.data(), mTo.data());
                }};
    }

    bench::Contender pixmanBilinear() {
        return {"pixman", [this] {
                    pixman_image_composite32(PIXMAN_OP_SRC, mFromImage.get(), nullptr, mToImage.get(), 0, 0,
                                             0, 0, 0, 0, mSize.dstW, mSize.dstH);
                }};
    }

    bench::Contender sdlLinear() {
        return {"SDL_SoftStretchLinear",
                [this] { SDL_SoftStretchLinear(mFromSurface.get(), nullptr, mToSurface.get(), nullptr); }};
    }

    bench::Contender sdlNearest() {
        return {"SDL_SoftStretch",
                [this] { SDL_SoftStretch(mFromSurface.get(), nullptr, mToSurface.get(), nullptr); }};
    }

    bench::Contender libyuv(const std::string& name, libyuv::FilterMode filter) {
        return {name, [this, filter] {
                    libyuv::ARGBScale(bytes(mFrom), mSize.srcW * 4, mSize.srcW, mSize.srcH, bytes(mTo),
                                      mSize.dstW * 4, mSize.dstW, mSize.dstH, filter);
                }};
    }

    bench::Contender openCv(const std::string& name, cv::InterpolationFlags filter) {
        return {name, [this, filter] {
                    const cv::Mat to = matrix(mTo, mSize.dstW, mSize.dstH);
                    cv::resize(matrix(mFrom, mSize.srcW, mSize.srcH), to, to.size(), 0, 0, filter);
                }};
    }

private:
    static size_t count(int w, int h) { return static_cast<size_t>(w) * static_cast<size_t>(h); }
    static unsigned side(int length) { return static_cast<unsigned>(length); }
    static uint8_t* bytes(std::vector<unsigned>& pixels) { return reinterpret_cast<uint8_t*>(pixels.data()); }
    static Surface surface(std::vector<unsigned>& pixels, int w, int h) {
        return Surface(
            SDL_CreateRGBSurfaceWithFormatFrom(pixels.data(), w, h, 32, w * 4, SDL_PIXELFORMAT_ARGB8888));
    }
    static cv::Mat matrix(std::vector<unsigned>& pixels, int w, int h) {
        return {h, w, CV_8UC4, pixels.data()};
    }
    static Image image(std::vector<unsigned>& pixels, int w, int h) {
        return Image(pixman_image_create_bits(PIXMAN_a8r8g8b8, w, h, pixels.data(), w * 4));
    }

    const Size mSize;
    std::vector<unsigned> mFrom;
    std::vector<unsigned> mTo;
    Surface mFromSurface;
    Surface mToSurface;
    Image mFromImage;
    Image mToImage;
};

/// All contenders run beside each other; the first is ours. Every other has its goal.
std::vector<double> compareAll(const std::string& operation, const std::vector<bench::Contender>& contenders,
                               const std::vector<double>& goals) {
    const std::vector<double> times = bench::medianTimes(contenders);
    std::vector<double> ratios;
    for (size_t peer = 1; peer < contenders.size(); ++peer) {
        ratios.push_back(times[0] / times[peer]);
        bench::report(operation, contenders[peer].name, ratios.back(), goals[peer - 1], times[0]);
    }
    return ratios;
}

void compareShrinking(const Size& size) {
    Pictures pictures(size);
    compareAll("bilinear " + pictures.name(),
               {pictures.bilinear(), pictures.pixmanBilinear(), pictures.sdlLinear(),
                pictures.openCv("OpenCV INTER_LINEAR", cv::INTER_LINEAR)},
               {1.15, 0.8, 0});
}

void compareEnlarging(const Size& size, double pixmanGoal, double libyuvGoal) {
    Pictures pictures(size);
    compareAll("bilinear " + pictures.name(),
               {pictures.bilinear(), pictures.pixmanBilinear(),
                pictures.libyuv("libyuv kFilterBilinear", libyuv::kFilterBilinear),
                pictures.openCv("OpenCV INTER_LINEAR", cv::INTER_LINEAR)},
               {pixmanGoal, libyuvGoal, 0});
}

void compareNearest() {
    std::vector<double> ratios;
    for (const Size& size : sizes) {
        Pictures pictures(size);
        ratios.push_back(
            compareAll("nearest " + pictures.name(),
                       {pictures.nearest(), pictures.libyuv("libyuv kFilterNone", libyuv::kFilterNone),
                        pictures.openCv("OpenCV INTER_NEAREST", cv::INTER_NEAREST)},
                       {1.8, 0})[0]);
    }
    bench::report("nearest, geometric mean of these", "libyuv kFilterNone", bench::geometricMean(ratios), 1);
}

void compareErrorTerm() {
    std::vector<double> ratios;
    for (const Size& size : sizes) {
        Pictures pictures(size);
        const std::vector<double> times = bench::medianTimes({pictures.errorTerm(), pictures.sdlNearest()});
        ratios.push_back(times[0] / times[1]);
    }
    bench::report("error-term, geometric mean of the same sizes", "SDL_SoftStretch",
                  bench::geometricMean(ratios), 0.65);
}

} // namespace

int main() {
    cv::setNumThreads(1); // as all the others; and only this thread's time is taken
    for (int i = 0; i < 4; ++i)
        compareShrinking(sizes[i]);
    compareEnlarging(sizes[4], 0.85, 2.6);
    compareEnlarging(sizes[5], 0.6, 3.7);
    compareNearest();
    compareErrorTerm();
}
