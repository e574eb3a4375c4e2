#include "navora/game_lists.h"

#include "navora/json_file.h"

#include <algorithm>
#include <cstdio>

namespace navora {

using Paths = std::vector<std::string>;

static bool contains(const Paths& paths, const std::string& path) {
    return std::find(paths.begin(), paths.end(), path) != paths.end();
}

static bool removeFrom(Paths& paths, const std::string& path) {
    const auto last = std::remove(paths.begin(), paths.end(), path);
    const bool removed = last != paths.end();
    paths.erase(last, paths.end());
    return removed;
}

static Paths pathsOf(const cJSON* array, size_t most) {
    Paths paths;
    if (!cJSON_IsArray(array))
        return paths;
    const cJSON* item = nullptr;
    cJSON_ArrayForEach(item, array) {
        const char* const path = cJSON_GetStringValue(item);
        if (path && *path == '/' && paths.size() < most && !contains(paths, path))
            paths.push_back(path);
    }
    return paths;
}

static void addPaths(cJSON* root, const char* name, const Paths& paths) {
    cJSON* const array = cJSON_AddArrayToObject(root, name);
    for (const std::string& path : paths)
        cJSON_AddItemToArray(array, cJSON_CreateString(path.c_str()));
}

GameLists::GameLists(std::string file) : mFile(std::move(file)) {
    if (mFile.empty())
        return;
    JsonReading reading;
    const JsonPtr root = readJson(mFile, reading);
    if (reading == JsonReading::unreadable)
        mFile.clear(); // what cannot be read now may be read another time: it is not written over
    if (reading == JsonReading::broken)
        rename(mFile.c_str(), (mFile + ".broken").c_str()); // or the next change would write over it
    if (!root)
        return;
    mFavourites = pathsOf(cJSON_GetObjectItem(root.get(), "favourites"), mostFavourites);
    mRecents = pathsOf(cJSON_GetObjectItem(root.get(), "recents"), mostRecents);
}

bool GameLists::isFavourite(const std::string& path) const {
    return contains(mFavourites, path);
}

void GameLists::setFavourite(const std::string& path, bool favourite) {
    if (isFavourite(path) == favourite || (favourite && mFavourites.size() >= mostFavourites))
        return;
    if (favourite)
        mFavourites.push_back(path);
    else
        removeFrom(mFavourites, path);
    changed();
}

void GameLists::noteStarted(const std::string& path) {
    if (!mRecents.empty() && mRecents.front() == path)
        return;
    removeFrom(mRecents, path);
    mRecents.insert(mRecents.begin(), path);
    mRecents.resize(std::min(mRecents.size(), mostRecents));
    changed();
}

void GameLists::removeRecent(const std::string& path) {
    if (removeFrom(mRecents, path))
        changed();
}

void GameLists::clearRecents() {
    mRecents.clear();
    changed();
}

void GameLists::changed() {
    ++mVersion;
    if (mFile.empty())
        return;
    const JsonPtr root(cJSON_CreateObject());
    addPaths(root.get(), "favourites", mFavourites);
    addPaths(root.get(), "recents", mRecents);
    writeJson(mFile, root.get());
}

GameLists& gameLists() {
    static GameLists lists(stateFile("games.json"));
    return lists;
}

void noteStarted(const std::string& path) {
    gameLists().noteStarted(path);
}

} // namespace navora
