#include "shell/skin.h"

#include "core/host.h"
#include "core/log.h"
#include "gfx/image.h"
#include "gfx/surface_cache.h"
#include "gfx/truncate_memo.h"
#include "platform/device_path.h"
#include "system/settings_journal.h"
#include "system/system_state_keys.h"

static constexpr SDL_Color green{54, 255, 160, 0};
static constexpr SDL_Color white{255, 255, 255, 255};

// Until the skin is loaded all colours are transparent black.
SDL_Color gHighlightColor, gPopupColorTitle, gPopupColorTxt, gPopupColorBtn, gStatColorTxt;
SDL_Color gListColorTxt, gListColorSubtxt, gListColorSeq, gNavColorTxt, gNavColorIcon;

TTF_Font *gNavFont, *gNavFontIcon, *gListFontTxt, *gListFontSubtxt, *gStatFont;
TTF_Font *gMenuFont, *gPopupFontTitle, *gPopupFontTxt, *gPopupFontBtn;

KestroSurface *gIconVideo, *gIconFolder, *gBackground, *gIconBack;
KestroSurface *gIconMenu, *gIconA, *gIconB, *gBackgroundFloat;

static constexpr struct {
    SDL_Color* color;
    SDL_Color value;
} colors[] = {
    {&gHighlightColor, green},  {&gPopupColorTitle, green}, {&gPopupColorTxt, white},
    {&gPopupColorBtn, white},   {&gStatColorTxt, white},    {&gListColorTxt, white},
    {&gListColorSubtxt, white}, {&gListColorSeq, white},    {&gNavColorTxt, white},
    {&gNavColorIcon, white},
};

static constexpr struct {
    TTF_Font** font;
    int points;
} fonts[] = {
    {&gNavFont, 32},  {&gNavFontIcon, 24},    {&gListFontTxt, 36},  {&gListFontSubtxt, 24}, {&gStatFont, 24},
    {&gMenuFont, 36}, {&gPopupFontTitle, 44}, {&gPopupFontTxt, 36}, {&gPopupFontBtn, 36},
};

static constexpr struct {
    KestroSurface** picture;
    const char* name;
} pictures[] = {
    {&gIconVideo, "skin/ic-video.png"},  {&gIconFolder, "skin/ic-folder.png"},
    {&gBackground, "skin/bg.png"},       {&gIconBack, "skin/icon-back.png"},
    {&gIconMenu, "skin/tips-MENU2.png"}, {&gIconA, "skin/tips-A.png"},
    {&gIconB, "skin/tips-B.png"},        {&gBackgroundFloat, "skin/float-win-mask.png"},
};

static TTF_Font* openSkinFont(int points) {
    static constexpr char path[] = "./"
                                   "regular.ttf";
    tprintf("open %s\n", path);
    return TTF_OpenFont(path, points);
}

static void loadPictures() {
    for (const auto& [picture, name] : pictures) {
        *picture = LoadKestroSurface(gThemePath, "./", name);
        if (picture == &gBackground && !gBackground)
            tprintf("open background fail: %s\n", SDL_GetError());
    }
}

int init_shared_skin() {
    uninit_shared_skin();
    if (!TTF_WasInit())
        TTF_Init();
    for (const auto& [color, value] : colors)
        *color = value;
    for (const auto& [font, points] : fonts)
        *font = openSkinFont(points);
    loadPictures();
    return 0;
}

static void deletePicture(KestroSurface*& picture) {
    delete picture;
    picture = nullptr;
}

int uninit_shared_skin() {
    // A font opened later may get the address of one closed now, which is what texts and labels are known by.
    gTextSurfaceCache.clear();
    kestro::forgetTruncateLens();
    for (const auto& [font, points] : fonts) {
        if (*font && TTF_WasInit())
            TTF_CloseFont(*font);
        *font = nullptr;
    }
    deletePicture(gIconFolder); // before the other icons
    for (const auto& [picture, name] : pictures)
        deletePicture(*picture);
    return 0;
}

int loadThemeInfo(char** theme) {
    const kestro::DevicePath path("/mnt/UDISK/system.json");
    const kestro::JsonPtr root = kestro::parseSettings(path);
    if (root && theme)
        *theme = kestro::existingTheme(root.get());
    return 0;
}
