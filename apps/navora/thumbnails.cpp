#include "navora/thumbnails.h"

#include "gfx/image.h"
#include "gfx/picture_file.h"
#include "gfx/scale.h"
#include "services/work_thread.h"

#include <atomic>
#include <list>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <tuple>
#include <utility>

namespace navora {

static std::atomic<int> sJobs{0};
static bool sWereAny = false; // since somebody has asked

bool picturesOnTheirWay() {
    const bool wereAny = sWereAny;
    sWereAny = false;
    return sJobs > 0 || wereAny;
}

namespace {

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Pixels = std::unique_ptr<SDL_Surface, FreeSurface>;

struct Request {
    std::string path;
    int width;
    int height;

    bool operator<(const Request& other) const {
        return std::tie(path, width, height) < std::tie(other.path, other.width, other.height);
    }
};

/// What the two threads share.
class Desk {
public:
    /// Whether it has not been asked for already.
    bool ask(const Request& request) {
        const std::lock_guard lock(mLock);
        return mAsked.insert(request).second;
    }

    void withdraw(const Request& request) {
        const std::lock_guard lock(mLock);
        mAsked.erase(request);
    }

    /// Only the newest are kept: the cursor may be far away by now.
    void deliver(const Request& request, Pixels pixels) {
        constexpr size_t most = 8;
        const std::lock_guard lock(mLock);
        mAsked.erase(request);
        mReady.emplace_front(request, std::move(pixels));
        if (mReady.size() > most)
            mReady.pop_back();
    }

    /// Takes out what is ready. Returns whether it is; null pixels are those of no picture.
    bool take(const Request& request, Pixels& pixels) {
        const std::lock_guard lock(mLock);
        for (auto at = mReady.begin(); at != mReady.end(); ++at) {
            if (at->first < request || request < at->first)
                continue;
            pixels = std::move(at->second);
            mReady.erase(at);
            return true;
        }
        return false;
    }

private:
    std::mutex mLock;
    std::set<Request> mAsked;
    std::list<std::pair<Request, Pixels>> mReady; // newest first
};

} // namespace

/// The largest size of the picture's ratio within the one that is asked for.
static SDL_Point fitted(const SDL_Surface& picture, const Request& request) {
    const auto part = [](int side, int other, int otherSide) {
        return static_cast<int>(static_cast<int64_t>(side) * other / otherSide);
    };
    const int width = part(picture.w, request.height, picture.h);
    return width <= request.width ? SDL_Point{width, request.height}
                                  : SDL_Point{request.width, part(picture.h, request.width, picture.w)};
}

static Pixels load(const Request& request) {
    Pixels picture(decodePictureFile(request.path.c_str()));
    if (picture)
        picture.reset(SDL_ConvertSurfaceFormat(picture.get(), SDL_PIXELFORMAT_ARGB8888, 0));
    if (!picture || picture->w < 1 || picture->h < 1)
        return nullptr;
    const SDL_Point size = fitted(*picture, request);
    Pixels scaled(size.x > 0 && size.y > 0 ? create_surface(size.x, size.y) : nullptr);
    if (scaled)
        resizeBilinear_cpu(static_cast<unsigned*>(picture->pixels), static_cast<unsigned*>(scaled->pixels),
                           picture->w, picture->h, size.x, size.y, 0);
    return scaled;
}

namespace {

class Job : public BGWorker {
public:
    Job(std::shared_ptr<Desk> desk, Request request) : mDesk(std::move(desk)), mRequest(std::move(request)) {
        ++sJobs;
    }
    ~Job() override {
        if (!mDone)
            mDesk->withdraw(mRequest);
        --sJobs;
    }

    void process() override { mPixels = load(mRequest); }

    void complete() override {
        mDesk->deliver(mRequest, std::move(mPixels));
        mDone = true;
    }

private:
    const std::shared_ptr<Desk> mDesk;
    const Request mRequest;
    Pixels mPixels;
    bool mDone = false;
};

class Loader {
public:
    /// See ImageLoader.
    KestroSurface* load(const Request& request) {
        Pixels pixels;
        sWereAny = true;
        if (mDesk->take(request, pixels))
            return shown(pixels.get());
        if (mDesk->ask(request))
            mThread.addWorker(new Job(mDesk, request));
        return nullptr;
    }

    /// A texture, or what stands for a picture that there will never be.
    static KestroSurface* shown(SDL_Surface* pixels) {
        KestroSurface* const surface = pixels ? CreateSurface(pixels) : nullptr;
        return surface ? surface : new SDL2KestroSurface(nullptr, nullptr);
    }

private:
    std::shared_ptr<Desk> mDesk = std::make_shared<Desk>();
    BGWorkThread mThread{3};
};

} // namespace

static KestroSurface* loadFromSkin(const std::string& name, int width, int height) {
    KestroSurface* const picture = LoadKestroSurfaceSpecSized("", width, height, name.c_str(), true, true);
    return picture ? picture : Loader::shown(nullptr);
}

ImageLoader loadInBackground() {
    return [loader = std::make_shared<Loader>()](const std::string& path, int width, int height) {
        return path.front() == '/' ? loader->load({path, width, height}) : loadFromSkin(path, width, height);
    };
}

} // namespace navora
