// Themes whose pictures and fonts are broken, and labels that are no text, through the library's own loading
// and drawing. Usage: kestro-broken-themes PNG JPEG FONTS LABELS [SEED], with how many of each. Prints what
// was tried and refused. A refused picture must be logged and the default picture must stand in for it; a
// refused font must leave a screen that draws without texts. Ends itself when something takes longer than a
// minute.
#include "core/host.h"
#include "fuzz/stress/log_file.h"
#include "fuzz/stress/mutation.h"
#include "fuzz/support/screen.h"
#include "gfx/picture_file.h"
#include "gfx/screen.h"
#include "gfx/surface.h"
#include "gfx/text.h"
#include "menu/menu_item.h"
#include "shell/skin.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace fs = std::filesystem;
using fuzz::Bytes;

namespace {

struct SkinPicture {
    KestroSurface** surface;
    std::string name;
};

const SkinPicture skinPictures[] = {
    {&gIconVideo, "skin/ic-video.png"},  {&gIconFolder, "skin/ic-folder.png"},
    {&gBackground, "skin/bg.png"},       {&gIconBack, "skin/icon-back.png"},
    {&gIconMenu, "skin/tips-MENU2.png"}, {&gIconA, "skin/tips-A.png"},
    {&gIconB, "skin/tips-B.png"},        {&gBackgroundFloat, "skin/float-win-mask.png"},
};

int sWrong = 0;

void expect(bool holds, const char* what, const std::string& name) {
    if (holds)
        return;
    ++sWrong;
    fprintf(stderr, "%s: %s\n", what, name.c_str());
}

std::vector<Bytes> contents(const std::vector<std::string>& names) {
    std::vector<Bytes> files;
    for (const std::string& name : names)
        files.push_back(fuzz::contentOf(FUZZ_SOURCES "/" + name));
    return files;
}

void put(const std::string& path, const Bytes& bytes) {
    fuzz::put(path.c_str(), reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

class Ordeal {
public:
    explicit Ordeal(uint32_t seed) : mMutator(seed) {
        fuzz::openScreen();
        for (const char* folder : {"/work/skin", "/work/theme/skin"})
            fs::create_directories(fuzz::device() + folder);
        const Bytes picture = fuzz::contentOf(FUZZ_SOURCES "/fuzz/corpus/picture/png-24bit.png");
        for (const SkinPicture& each : skinPictures)
            put("/work/" + each.name, picture);
        gThemePath = "theme/";
    }
    ~Ordeal() { uninit_shared_skin(); }
    Ordeal(const Ordeal&) = delete;
    Ordeal& operator=(const Ordeal&) = delete;

    void tryPictures(const char* kind, int count, const std::vector<Bytes>& files,
                     const std::function<Bytes(Bytes)>& finished) {
        int tried = 0;
        int refused = 0;
        for (; tried < count; tried += static_cast<int>(std::size(skinPictures))) {
            alarm(60);
            for (const SkinPicture& each : skinPictures) {
                Bytes bytes = mMutator.broken(files[mMutator.below(files.size())]);
                put("/work/theme/" + each.name, mMutator.below(4) ? finished(std::move(bytes)) : bytes);
            }
            refused += loadTheme();
        }
        fprintf(mLog.report(), "| %s | %d | %d |\n", kind, tried, refused);
    }

    void tryFonts(int count, const Bytes& font) {
        int refused = 0;
        for (int i = 0; i < count; ++i) {
            alarm(60);
            put("/work/regular.ttf", brokenFont(font));
            init_shared_skin();
            const std::string log = mLog.take();
            expect(log.find("open ./regular.ttf\n") != log.npos, "not logged", "font " + std::to_string(i));
            refused += gListFontTxt == nullptr;
            for (TTF_Font* each : {gListFontTxt, gNavFont, gPopupFontTitle})
                drawTexts(each, "Wq 3 \xE8\xB6\x85\xE7\xBA\xA7 \xFF");
        }
        fprintf(mLog.report(), "| fonts | %d | %d |\n", count, refused);
    }

    void tryLabels(int count, const Bytes& font) {
        put("/work/regular.ttf", font);
        init_shared_skin();
        int empty = 0;
        for (int i = 0; i < count; ++i) {
            alarm(60);
            const Bytes label = mMutator.noise(mMutator.below(300));
            empty += drawTexts(gListFontTxt, label.c_str()) == 0;
            const TextMenuItem row(label.c_str(), nullptr, nullptr, false);
            expect(row.labelText() == label, "not kept", "label " + std::to_string(i));
            if (i % 100 == 0) // the cache holds many
                init_shared_skin();
        }
        fprintf(mLog.report(), "| labels | %d | %d |\n", count, empty);
    }

private:
    fuzz::Mutator mMutator;
    fuzz::LogFile mLog;

    /// How many pictures of the theme were refused.
    int loadTheme() {
        bool decodable[std::size(skinPictures)] = {};
        for (size_t i = 0; i < std::size(skinPictures); ++i) {
            SDL_Surface* const picture = decodePictureFile(("theme/" + skinPictures[i].name).c_str());
            decodable[i] = picture != nullptr && picture->w > 0 && picture->h > 0;
            SDL_FreeSurface(picture);
        }
        mLog.take();
        init_shared_skin();
        const std::string log = mLog.take();
        int refused = 0;
        for (size_t i = 0; i < std::size(skinPictures); ++i) {
            const SkinPicture& each = skinPictures[i];
            const std::string line = "theme//" + each.name + " open fail, use .//" + each.name + "\n";
            expect(decodable[i] == (log.find(line) == log.npos), "refusal and log differ", each.name);
            expect(*each.surface, "nothing stands in", each.name);
            if (*each.surface)
                (*each.surface)->render(nullptr, nullptr, false, nullptr);
            refused += !decodable[i];
        }
        return refused;
    }

    /// Half of the changes hit the first 64 KB, where the tables are described.
    Bytes brokenFont(Bytes font) {
        for (size_t left = mMutator.below(60) + 1; left > 0; --left) {
            const size_t reach = mMutator.below(2) ? font.size() : 0x10000;
            const size_t at = mMutator.below(reach);
            font[at] = static_cast<char>(mMutator.below(256));
        }
        if (mMutator.below(8) == 0)
            font.resize(mMutator.below(font.size()));
        return font;
    }

    static int drawTexts(TTF_Font* font, const char* text) {
        const SDL_Color white{255, 255, 255, 255};
        const SDL_Rect rect{0, 0, 60, 30};
        const int width = DrawString(font, rect, text, white, 1, true, false);
        DrawStringLines(font, rect, text, "\n", white, 0, false);
        const int length = getTruncateLen(font, text, 0, 50);
        expect(length >= 0 && static_cast<size_t>(length) <= Bytes(text).size(), "cut beyond its end", text);
        return width;
    }
};

} // namespace

int main(int count, char** arguments) {
    if (count < 5)
        return 2;
    const auto number = [&](int at) { return count > at ? atoi(arguments[at]) : 1; };
    const std::string corpus = "fuzz/corpus/picture/";
    const auto png = contents({corpus + "png-8bit.png", corpus + "png-24bit.png", corpus + "png-32bit.png",
                               corpus + "png-8bit-gray.png", "assets/themes/dusk/skin/tips-A.png",
                               "assets/themes/dusk/skin/icon-back.png"});
    const auto jpeg = contents({corpus + "jpeg-24bit.jpg", corpus + "jpeg-24bit-progressive.jpg",
                                corpus + "jpeg-8bit-gray.jpg", "assets/sample/Caf\xC3\xA9 du Port.jpg"});
    const Bytes font = fuzz::contentOf(FUZZ_FONT);
    Ordeal ordeal(static_cast<uint32_t>(number(5)));
    ordeal.tryPictures("PNG", number(1), png, fuzz::withChecksums);
    ordeal.tryPictures("JPEG", number(2), jpeg, [](Bytes file) { return file; });
    ordeal.tryFonts(number(3), font);
    ordeal.tryLabels(number(4), font);
    return sWrong > 0;
}
