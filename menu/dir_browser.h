#pragma once

#include "core/export.h"
#include "menu/menu_item.h"

#include <string>
#include <vector>

/// Walks a tree of folders below a base and turns each into rows. What a row looks like, and which entries
/// have one, is up to the factory. The rows of the folders visited last are kept, so that going back reads
/// nothing; folders that were read longest ago go when more than 40000 rows are held.
///
/// A list of rows is a vector of TextMenuItem pointers, stored as `void*`. The browser owns lists and rows;
/// a list that it returns is valid until it is trimmed away, the cache is freed, or the browser is deleted.
/// Main thread.
class KESTRO_API DirBrowser {
public:
    /// `filter` is kept for the owner; the browser does not call it. `factory` makes the row for an entry
    /// (kind 101 a file, 102 a folder), or gives null to leave it out. Null makes no rows.
    DirBrowser(bool (*filter)(const char* name, const char* path),
               TextMenuItem* (*factory)(const char* name, const char* path, int kind));
    ~DirBrowser();
    DirBrowser(const DirBrowser&) = delete;
    DirBrowser& operator=(const DirBrowser&) = delete;

    /// Starts anew with the tree below `base`, at the folder `start` if that lies in it, else (or for null)
    /// at the base, and returns that folder's rows. All rows handed out before are gone. A null base gives
    /// null and changes nothing.
    std::vector<void*>* LoadDir(const char* base, const char* start);

    /// Goes down to the folder with the full path `path`, and returns its rows; null for null.
    std::vector<void*>* ChildDir(const char* path);

    /// Goes up one folder, at the base nowhere, and returns the rows; null before LoadDir.
    std::vector<void*>* ParentDir();

    /// The rows of a folder if they are kept, else null. They count as used last.
    std::vector<void*>* getMenu(const char* path);

    /// Whether the current folder is the base.
    bool isBaseDir();

    /// The current folder's path, null before LoadDir. Valid until the folder changes.
    const char* getCurrentDir();

    /// The number of rows in all lists that are kept.
    unsigned int getItemNum();

    /// Deletes all rows of a list and empties it; the list itself stays. Null is ignored.
    void freeMenuItems(std::vector<void*>* items);

    /// Drops the lists used longest ago while more than 40000 rows are kept, if there are two lists or more.
    void clearSpace();

    /// Drops all lists.
    void freeCache();

private:
    struct CachedDir {
        std::string path;
        std::vector<void*>* items;
    };

    std::vector<std::string> mStack; // the base first, the current folder last
    std::vector<CachedDir> mCache;   // used last first
    [[maybe_unused]] bool (*mFilter)(const char*, const char*);
    TextMenuItem* (*mFactory)(const char*, const char*, int);

    KESTRO_HIDDEN std::vector<void*>* readDir(const std::string& path, const std::string& cachedAs,
                                              bool withParent);
    KESTRO_HIDDEN std::vector<void*>* loadTree(const char* base, const char* start);
    KESTRO_HIDDEN std::vector<void*>* enter(const char* path);
    KESTRO_HIDDEN std::vector<void*>* reenter();
    KESTRO_HIDDEN void pushComponents(const std::string& rest);
};

/// The number of files below a folder for which `filter` gives true (null: all), plus one for every folder
/// below it that holds any. Folders whose names begin with "." are left out, and so are links that lead back
/// to a folder above. A folder that cannot be opened counts 0; -1 without memory. Any thread, if the filter
/// may.
KESTRO_API int CountNumber(std::string directory, bool (*filter)(const char* name, const char* path));
