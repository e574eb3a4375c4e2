#include "fuzz/faults/memory_areas.h"

#include "fuzz/support/device.h"
#include "kestro.h"

#include <SDL_image.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace fs = std::filesystem;

namespace {

// What a host makes for itself, such as a menu, it makes in `prepare`: what `new` throws there is its own.

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

// ---- Settings ----

constexpr int brightness = 1; // index in the host's table
constexpr int oldBrightness = 3;
constexpr int newBrightness = 4;

std::string settingsFile() {
    return fuzz::device() + "/mnt/UDISK/system.json";
}

std::string savedWith(int value) {
    SetKeyShm(gShmInfo, brightness, value);
    saveSystemState(gShmInfo, "skin/");
    return contentOf(settingsFile());
}

std::string sOldSettings;
std::string sNewSettings;

void prepareSettings() {
    setSettingsJournal(true);
    if (sOldSettings.empty()) {
        write(fuzz::device() + "/usr/kestro/features.json", "{\"bluetooth\": 1, \"suspend\": 1}");
        sNewSettings = savedWith(newBrightness);
        loadSystemState(gShmInfo, nullptr); // which settles what goes by other values
        sNewSettings = savedWith(newBrightness);
        sOldSettings = savedWith(oldBrightness);
    }
    fs::remove(settingsFile() + ".new");
    write(settingsFile(), sOldSettings);
    loadSystemState(gShmInfo, nullptr);
}

void loadSettings() {
    char* theme = nullptr;
    loadSystemState(gShmInfo, &theme);
    free(theme);
    theme = nullptr;
    loadThemeInfo(&theme);
    free(theme);
    loadSystemFunction();
}

bool settingsAreLoaded() {
    loadSettings();
    return GetKeyShm(gShmInfo, brightness) == oldBrightness && contentOf(settingsFile()) == sOldSettings &&
           isBluetoothEanbled();
}

void saveSettings() {
    SetKeyShm(gShmInfo, brightness, newBrightness);
    saveSystemState(gShmInfo, "skin/");
}

void saveOneSetting() {
    saveOneItemInSystemState("brightness", newBrightness);
}

/// The old or the new, whole, be it in the file or beside it; and the next save takes.
bool settingsAreSaved() {
    loadSystemState(gShmInfo, nullptr);
    const int value = GetKeyShm(gShmInfo, brightness);
    const std::string saved = savedWith(value);
    const bool whole = saved == (value == oldBrightness ? sOldSettings : sNewSettings);
    return whole && savedWith(newBrightness) == sNewSettings;
}

// ---- Languages ----

void prepareLanguages() {
    fs::remove("lang/en.lang"); // it is written then
    for (const char* file : {"ch.lang", "es.lang"})
        fs::copy_file(FUZZ_ASSETS "/lang/" + std::string(file), "lang/" + std::string(file),
                      fs::copy_options::overwrite_existing);
    gLangTable.clear();
}

void useLanguages() {
    initLang();
    setSystemLanguage("ch.lang");
    for (int index = -1; index <= getLangIndexNum(); ++index)
        getLangStr(index);
    getLangList();
    getLangIndex("ch.lang", "OK");
}

bool languagesAreThere() {
    gLangTable.clear();
    initLang();
    setSystemLanguage("es.lang");
    return getLangList()->size() == 3 && getLangStr(0) == std::string("Cancelar");
}

// ---- Skin ----

void addPicture(const std::string& path, int side) {
    SDL_Surface* const picture = SDL_CreateRGBSurfaceWithFormat(0, side, side, 24, SDL_PIXELFORMAT_RGB24);
    IMG_SavePNG(picture, path.c_str());
    SDL_FreeSurface(picture);
}

void prepareSkinFiles() {
    if (fs::exists("regular.ttf"))
        return;
    fs::create_symlink(FUZZ_FONT, "regular.ttf");
    for (const auto& file : fs::directory_iterator(FUZZ_ASSETS "/skin"))
        addPicture("skin/" + file.path().filename().string(), 8);
}

void prepareSkin() {
    prepareSkinFiles();
    uninit_shared_skin();
}

void useSkin() {
    init_shared_skin();
    uninit_shared_skin();
    init_shared_skin();
}

bool skinIsThere() {
    init_shared_skin();
    const bool complete = gListFontTxt && gPopupFontBtn && gIconVideo && gBackgroundFloat;
    uninit_shared_skin();
    return complete;
}

// ---- Folders ----

constexpr size_t rowsOfFolder = 60;
std::unique_ptr<FileBrowserMenu> sFileMenu;
std::unique_ptr<DirBrowser> sBrowser;

void prepareFolder() {
    prepareSkinFiles();
    init_shared_skin();
    if (!fs::exists("games/folder")) {
        fs::create_directories("games/folder");
        for (size_t i = 1; i < rowsOfFolder; ++i)
            write("games/game " + std::to_string(i), "");
        write("games/folder/one", "");
    }
    sFileMenu =
        std::make_unique<FileBrowserMenu>("games", nullptr, "skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
    sBrowser = std::make_unique<DirBrowser>(file_filter, file_handler);
}

void press(SDL_Keycode key) {
    SDL_Event event{};
    event.type = SDL_KEYDOWN;
    event.key.keysym.sym = key;
    SDL_PushEvent(&event);
}

void useFolder() {
    sFileMenu->LoadDir();
    sFileMenu->draw();
    press(SDLK_DOWN);
    sFileMenu->eventHandling();
    sFileMenu->draw();
    sFileMenu->setKeyword("ga");
    sFileMenu->draw();
    sBrowser->LoadDir("games", nullptr);
    sBrowser->ChildDir("games/folder");
    sBrowser->ParentDir();
    sBrowser->LoadDir("games", "games/folder");
    sBrowser->getMenu("games");
    sBrowser->clearSpace();
    sBrowser->getItemNum();
}

bool folderIsThere() {
    const std::vector<void*>* const rows = sFileMenu->LoadDir();
    const bool complete = rows && rows->size() == rowsOfFolder && sFileMenu->getListNum() == rowsOfFolder;
    const std::vector<void*>* const above = sBrowser->LoadDir("games", nullptr);
    const bool hasAbove = above && above->size() == rowsOfFolder;
    const std::vector<void*>* const below = sBrowser->ChildDir("games/folder");
    return complete && hasAbove && below && below->size() == 2; // with the way up
}

// ---- Text ----

constexpr char label[] = "A label of 两 kinds of letters that is longer than its place";
constexpr SDL_Rect place{0, 0, 60, 30};
int sWidth = 0;

int drawLabel(const char* text) {
    return DrawString(gListFontTxt, place, text, {255, 255, 255, 255}, 1, true, false);
}

void prepareText() {
    prepareSkinFiles();
    init_shared_skin();
    InitPinYinMap();
    sWidth = drawLabel(label);
    gTextSurfaceCache.clear();
}

void useText() {
    drawLabel(label);
    drawLabel("another");
    drawLabel(label);
    getTruncateLen(gListFontTxt, label, 0, 60);
    getTruncateLen(gListFontSubtxt, label, 0, 60);
    DrawStringLines(gListFontTxt, place, "one\ntwo\nthree", "\n", {1, 2, 3, 255}, 0, false);
    DrawStringLinesSpacing(gListFontTxt, place, "one\ntwo\nthree", "\n", 3, {1, 2, 3, 255}, 0, true);
    char* const initials = GetPinyinInitials2("超级玛丽\xF0\xA0\x80\x80");
    const char* start = nullptr;
    int length = 0;
    PinyinStrstr("超级玛丽", initials, "jm", &start, &length);
    free(initials);
}

bool textIsThere() {
    gTextSurfaceCache.clear(); // with what HarfBuzz could only lay out in part, and SDL_ttf took for whole
    const int truncated = getTruncateLen(gListFontTxt, label, 0, 60);
    return truncated > 0 && drawLabel(label) == sWidth && sWidth > 0;
}

// ---- Readings ----

void prepareReadings() {
    gPinyinMap.clear();
}

bool readingsAreThere() {
    InitPinYinMap();
    char* const initials = GetPinyinInitials2("超级玛丽");
    const bool found = initials && strcmp(initials, "cjml") == 0;
    free(initials);
    return found;
}

// ---- Pictures ----

void preparePictures() {
    prepareSkinFiles();
    if (!fs::exists("picture.png"))
        addPicture("picture.png", 40);
    gIconCache.clear();
}

void useSurface(KestroSurface* surface) {
    if (!surface)
        return;
    surface->getPixels(nullptr, nullptr, nullptr, nullptr);
    SDL_Rect part{0, 0, 4, 4};
    delete ScaleSurface(surface, 7, 9);
    delete RotateSurface(surface, 45);
    delete CropSurface(surface, &part);
    delete surface;
}

void usePictures() {
    useSurface(LoadKestroSurface("missing/", "./", "picture.png"));
    useSurface(LoadKestroSurfaceSpecSized("picture.png", 20, 20, nullptr, false, true));
    useSurface(LoadKestroSurfaceSpecSized("", 20, 20, "picture.png", true, false));
    drawCachedIconCentered({0, 0, 20, 20}, "skin/ic-video.png");
    useSurface(CreateSurface(8, 8));
    useSurface(ScreenSnapshot());
}

bool picturesAreThere() {
    const std::unique_ptr<KestroSurface> picture(LoadKestroSurface(nullptr, "./", "picture.png"));
    const std::unique_ptr<KestroSurface> sized(
        LoadKestroSurfaceSpecSized("picture.png", 20, 20, nullptr, false, true));
    return picture && picture->getWidth() == 40 && sized && sized->getWidth() == 20 &&
           getIconFromCache("skin/ic-video.png");
}

} // namespace

const std::vector<fuzz::MemoryArea>& fuzz::memoryAreas() {
    static const std::vector<MemoryArea> areas{
        {"settings-load", prepareSettings, loadSettings, settingsAreLoaded, false},
        {"settings-save", prepareSettings, saveSettings, settingsAreSaved, false},
        {"settings-item", prepareSettings, saveOneSetting, settingsAreSaved, false},
        {"languages", prepareLanguages, useLanguages, languagesAreThere, false},
        {"skin", prepareSkin, useSkin, skinIsThere, false},
        {"folder", prepareFolder, useFolder, folderIsThere, false},
        {"text", prepareText, useText, textIsThere, false},
        {"readings", prepareReadings, InitPinYinMap, readingsAreThere, false},
        {"pictures", preparePictures, usePictures, picturesAreThere, true},
    };
    return areas;
}
