#include "menu/dir_browser.h"

#include "core/log.h"
#include "core/out_of_memory.h"
#include "menu/row_order.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

static constexpr size_t mostRowsInDir = 20000;
static constexpr int mostRowsKept = 60000; // less room for one full folder
static constexpr int fileKind = 101;
static constexpr int dirKind = 102;

using Items = std::vector<void*>;

namespace {

struct CloseDir {
    void operator()(DIR* dir) const { closedir(dir); }
};
using DirPtr = std::unique_ptr<DIR, CloseDir>;

} // namespace

/// 101 or 102 for what is shown, 0 for anything else. Links count as what they lead to.
static int kindOf(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0)
        return 0;
    if (S_ISDIR(status.st_mode))
        return dirKind;
    return S_ISREG(status.st_mode) ? fileKind : 0;
}

/// Whether `stat` of what is in a folder can succeed: it takes more than the right to read the folder.
static bool isSearchable(const std::string& path) {
    struct stat status {};
    return stat((path + "/.").c_str(), &status) == 0;
}

/// The same as the other, without a look at the file where the folder has told enough.
static int kindOf(const std::string& path, const dirent& entry, bool searchable) {
    if (!searchable || path.size() >= PATH_MAX)
        return kindOf(path);
    switch (entry.d_type) {
    case DT_REG:
        return fileKind;
    case DT_DIR:
        return dirKind;
    case DT_LNK:
    case DT_UNKNOWN:
        return kindOf(path);
    default:
        return 0;
    }
}

/// Folders that begin with "." are hidden, save for the way up where there is one.
static bool isHiddenDir(const char* name, bool withParent) {
    return !*name || (*name == '.' && !(withParent && name[1] == '.'));
}

static kestro::RowOrder readRows(const std::string& path,
                                 TextMenuItem* (*factory)(const char*, const char*, int), bool withParent) {
    kestro::RowOrder rows;
    const DirPtr dir(opendir(path.c_str()));
    const bool searchable = isSearchable(path);
    std::string full = path + "/";
    while (const dirent* const entry = dir ? readdir(dir.get()) : nullptr) {
        full.replace(path.size() + 1, full.npos, entry->d_name);
        const int kind = kindOf(full, *entry, searchable);
        if (kind == 0 || (kind == dirKind && isHiddenDir(entry->d_name, withParent)))
            continue;
        if (rows.size() >= mostRowsInDir)
            break;
        if (TextMenuItem* const row = factory ? factory(entry->d_name, full.c_str(), kind) : nullptr)
            rows.add(row);
    }
    tprintf("loaddir %s %d\n", path.c_str(), static_cast<int>(rows.size()));
    return rows;
}

DirBrowser::DirBrowser(bool (*filter)(const char*, const char*),
                       TextMenuItem* (*factory)(const char*, const char*, int))
    : mFilter(filter), mFactory(factory) {}

DirBrowser::~DirBrowser() {
    freeCache();
}

/// Reads `path` into a new list and keeps it in front, under the name `cachedAs`. With `withParent` the way
/// up is among the rows.
Items* DirBrowser::readDir(const std::string& path, const std::string& cachedAs, bool withParent) {
    CachedDir cached{cachedAs, nullptr};
    mCache.reserve(mCache.size() + 1); // so that nothing is lost once the rows are there
    auto items = std::make_unique<Items>();
    *items = readRows(path, mFactory, withParent).takeOrdered();
    cached.items = items.release();
    mCache.insert(mCache.begin(), std::move(cached));
    return mCache.front().items;
}

/// Pushes the folders on the way from the current one along `rest`, such as "/a/b".
void DirBrowser::pushComponents(const std::string& rest) {
    for (size_t at = 0; at < rest.size();) {
        const size_t end = std::min(rest.find('/', at), rest.size());
        if (end > at)
            mStack.push_back(mStack.back() + "/" + rest.substr(at, end - at));
        at = end + 1;
    }
}

Items* DirBrowser::loadTree(const char* base, const char* start) {
    // Copies: both may point into rows that go now.
    const std::string baseDir = base;
    const std::string startDir = start ? start : "";
    const size_t found = start ? startDir.find(baseDir) : std::string::npos;
    freeCache();
    mStack.assign(1, baseDir);
    if (found == std::string::npos)
        return readDir(baseDir, baseDir, false);
    pushComponents(startDir.substr(found + baseDir.size()));
    for (size_t i = 0; i < mStack.size(); ++i)
        tprintf("dir %d %s\n", static_cast<int>(i), mStack[i].c_str());
    return readDir(startDir, mStack.back(), !isBaseDir());
}

Items* DirBrowser::LoadDir(const char* base, const char* start) {
    if (!base)
        return nullptr;
    return kestro::unlessOutOfMemory<Items*>(__func__, nullptr, [&] { return loadTree(base, start); });
}

Items* DirBrowser::getMenu(const char* path) {
    if (!path)
        return nullptr;
    const auto same = [path](const CachedDir& cached) { return cached.path == path; };
    const auto found = std::find_if(mCache.begin(), mCache.end(), same);
    if (found == mCache.end())
        return nullptr;
    std::rotate(mCache.begin(), found, found + 1);
    tprintf("found menu for %s\n", mCache.front().path.c_str());
    return mCache.front().items;
}

Items* DirBrowser::enter(const char* path) {
    const std::string child = path; // a copy: it may be part of a row that is trimmed away
    mStack.push_back(child);
    if (Items* const kept = getMenu(child.c_str()))
        return kept;
    clearSpace();
    Items* const items = readDir(child, child, true);
    tprintf("childdir %s return %p\n", child.c_str(), static_cast<void*>(items));
    return items;
}

Items* DirBrowser::ChildDir(const char* path) {
    if (!path)
        return nullptr;
    return kestro::unlessOutOfMemory<Items*>(__func__, nullptr, [&] { return enter(path); });
}

Items* DirBrowser::ParentDir() {
    if (mStack.empty())
        return nullptr;
    if (!isBaseDir())
        mStack.pop_back();
    return kestro::unlessOutOfMemory<Items*>(__func__, nullptr, [&] { return reenter(); });
}

/// Shows the current folder again.
Items* DirBrowser::reenter() {
    const std::string current = mStack.back();
    if (Items* const kept = getMenu(current.c_str()))
        return kept;
    clearSpace();
    Items* const items = readDir(current, current, !isBaseDir());
    tprintf("parentdir %s return %p\n", current.c_str(), static_cast<void*>(items));
    return items;
}

bool DirBrowser::isBaseDir() {
    return mStack.size() < 2;
}

const char* DirBrowser::getCurrentDir() {
    return mStack.empty() ? nullptr : mStack.back().c_str();
}

unsigned int DirBrowser::getItemNum() {
    unsigned int count = 0;
    for (const CachedDir& cached : mCache)
        count += static_cast<unsigned int>(cached.items->size());
    return count;
}

void DirBrowser::freeMenuItems(Items* items) {
    if (!items)
        return;
    for (void* row : *items)
        delete static_cast<TextMenuItem*>(row);
    items->clear();
}

void DirBrowser::clearSpace() {
    if (mCache.size() < 2)
        return;
    while (!mCache.empty() &&
           mostRowsKept - static_cast<int>(getItemNum()) < static_cast<int>(mostRowsInDir)) {
        freeMenuItems(mCache.back().items);
        delete mCache.back().items;
        mCache.pop_back();
    }
}

void DirBrowser::freeCache() {
    for (const CachedDir& cached : mCache) {
        freeMenuItems(cached.items);
        delete cached.items;
    }
    mCache.clear();
}
