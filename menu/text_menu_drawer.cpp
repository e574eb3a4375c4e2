#include "menu/text_menu_drawer.h"

#include "core/host.h"
#include "core/log.h"
#include "core/out_of_memory.h"
#include "gfx/image.h"
#include "gfx/surface_cache_internal.h"
#include "shell/skin.h"

#include <new>
#include <utility>

static constexpr SDL_Rect defaultRect{0, 80, 1280, 580};

static KestroSurface* loadBackground(const char* name) {
    return name ? LoadKestroSurface(gThemePath, "./", name) : nullptr;
}

static std::string currentTheme() {
    return gThemePath ? gThemePath : "";
}

static int heightForRows(int height, int rows, int gap) {
    return height - (rows - 1) * gap;
}

static int rowHeight(int heightLeft, int rows) {
    return rows == 0 ? 0 : heightLeft / rows;
}

/// Loads at once. What cannot be loaded is never asked for again.
static KestroSurface* loadAtOnce(const std::string& path, int width, int height) {
    // By name, not by path, so that a theme can override a picture of the skin.
    KestroSurface* const picture = LoadKestroSurfaceSpecSized("", width, height, path.c_str(), true, true);
    return picture ? picture : new (std::nothrow) SDL2KestroSurface(nullptr, nullptr);
}

TextMenuDrawer::TextMenuDrawer(const char* selectedBackground, const char* normalBackground, int rowsPerPage,
                               int rowGap)
    : ListMenu(true), mSelectedBackground(loadBackground(selectedBackground)),
      mNormalBackground(loadBackground(normalBackground)), mRowIcon(nullptr), mReservedSurface(nullptr),
      mItemHeight(rowHeight(heightForRows(defaultRect.h, rowsPerPage, rowGap), rowsPerPage)),
      mYSpaceInList(rowGap), mShowNumber(true), mReservedFlag(false), mShowListNumber(true),
      mTextColor(gListColorTxt), mSecondTextColor(gListColorTxt), mShadow(false), mRowsPerPage(rowsPerPage),
      mThemePath(currentTheme()), mRowImages(kestro::releaseSurface, kestro::surfaceCacheCapacity),
      mSecondRowImages(kestro::releaseSurface, kestro::surfaceCacheCapacity), mLeftMargin(10), mLabelAlign(0),
      mImageLoader(loadAtOnce) {
    mRect = defaultRect;
    tprintf("mItemHeight = %d, mYSpaceInList = %d\n", mItemHeight, mYSpaceInList);
}

TextMenuDrawer::~TextMenuDrawer() {
    delete mSelectedBackground;
    delete mNormalBackground;
}

int TextMenuDrawer::eventHandling() {
    return ListMenu::eventHandling();
}

int TextMenuDrawer::updateRectAndNum(SDL_Rect& rect, int rowsPerPage) {
    setRect(rect);
    mRowsPerPage = rowsPerPage;
    const int heightLeft = heightForRows(rect.h, rowsPerPage, mYSpaceInList);
    mItemHeight = rowHeight(heightLeft, rowsPerPage);
    return heightLeft;
}

void TextMenuDrawer::ignoreSelBG(bool ignore) {
    if (!ignore)
        return;
    delete mSelectedBackground;
    mSelectedBackground = nullptr;
}

static void replaceBackground(KestroSurface*& background, const char* name) {
    if (!background)
        return;
    delete background;
    background = loadBackground(name);
}

void TextMenuDrawer::refresh() {
    kestro::unlessOutOfMemory(__func__, [&] { takeTheme(currentTheme()); });
}

void TextMenuDrawer::takeTheme(std::string theme) {
    if (mThemePath == theme)
        return;
    replaceBackground(mSelectedBackground, "skin/bg-list-f.png");
    replaceBackground(mNormalBackground, "skin/bg-list-n.png");
    mRowImages.clear();
    mSecondRowImages.clear();
    mThemePath = std::move(theme);
}

/// Only text rows have an action here; the rows of a setting page, which share this code, do not.
int TextMenuDrawer::runAction(int (Action::*run)(void*), bool logged) {
    auto* const row = dynamic_cast<TextMenuItemProvider*>(getItemByIndex(mCursor));
    Action* const action = row ? row->getAction() : nullptr;
    if (!action)
        return -1;
    if (logged)
        kestro::unlessOutOfMemory(
            "select", [&] { tprintf("%s dowork %p\n", row->getLabel().c_str(), static_cast<void*>(row)); });
    const int result = (action->*run)(row); // nothing of this list is touched any more: it may be gone
    return result < 0 ? -1 : result;
}

int TextMenuDrawer::select() {
    return runAction(&Action::dowork, true);
}

int TextMenuDrawer::xselect() {
    tprintf("TextMenuDrawer::xselect\n");
    return runAction(&Action::xdowork, false);
}

std::string TextMenuDrawer::getThemePath(TextMenuItemProvider* row, int index) {
    if (const char* const own = getItemThemePath(index))
        return own;
    return row ? row->getThemePath() : std::string();
}

void TextMenuDrawer::setImageLoader(ImageLoader loader) {
    mImageLoader = loader ? std::move(loader) : ImageLoader(loadAtOnce);
}

/// What tells one size of a picture from another in the caches' keys.
static std::string sizeSuffix(int width, int height) {
    return "@" + std::to_string(width) + "x" + std::to_string(height);
}

KestroSurface* TextMenuDrawer::getRowImage(const char* path, int width, int height) {
    if (!path || !*path)
        return nullptr;
    return kestro::unlessOutOfMemory<KestroSurface*>(__func__, nullptr,
                                                     [&] { return rowImage(path, width, height); });
}

KestroSurface* TextMenuDrawer::rowImage(const char* path, int width, int height) {
    LRUCache& cache = height <= mItemHeight ? mRowImages : mSecondRowImages;
    static std::string key; // keeps its memory from row to row
    key.assign(path).append(sizeSuffix(width, height));
    auto* picture = static_cast<KestroSurface*>(cache.find(key));
    if (!picture) {
        picture = mImageLoader(path, width, height);
        if (picture)
            picture = kestro::keepSurface(cache, key, picture);
    }
    return picture && picture->getWidth() > 0 ? picture : nullptr;
}
