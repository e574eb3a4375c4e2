#include "navora/game_index.h"

#include "core/clock.h"
#include "core/host.h"
#include "text/pinyin.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <strings.h>

namespace fs = std::filesystem;

namespace navora {

GameIndex::GameIndex(const std::string& folder) {
    std::error_code error;
    mNext = fs::recursive_directory_iterator(folder, fs::directory_options::skip_permission_denied, error);
}

bool GameIndex::isAtEnd() const {
    return mNext == fs::recursive_directory_iterator() || mGames.size() >= mostGames;
}

bool GameIndex::gather() {
    constexpr uint64_t slice = 6; // milliseconds
    if (mComplete)
        return false;
    const size_t before = mGames.size();
    const uint64_t start = systemms();
    while (!isAtEnd() && systemms() - start < slice)
        step();
    mComplete = isAtEnd();
    if (mComplete)
        sortByName();
    return mComplete || mGames.size() > before;
}

static bool isHidden(const fs::path& path) {
    return path.filename().native()[0] == '.';
}

void GameIndex::step() {
    std::error_code error;
    const fs::path path = mNext->path();
    if (mNext->is_directory(error)) {
        if (isHidden(path) || mNext.depth() >= mostFolders)
            mNext.disable_recursion_pending();
    } else if (mNext->is_regular_file(error))
        addFile(path.string());
    mNext.increment(error);
    if (error) // the card is gone
        mNext = fs::recursive_directory_iterator();
}

void GameIndex::addFile(const std::string& path) {
    std::string name = path.substr(path.rfind('/') + 1);
    if (!file_filter(name.c_str(), path.c_str()))
        return;
    name = fs::path(name).stem().string();
    const std::unique_ptr<char, void (*)(void*)> initials(GetPinyinInitials2(name.c_str()), free);
    if (!initials)
        return;
    mGames.push_back({path, std::move(name), initials.get()});
    addInOrder(mGames.back());
}

void GameIndex::addInOrder(const Game& game) {
    mInOrder.push_back(&game);
    mInitials.add(game.initials);
}

void GameIndex::sortByName() {
    std::vector<const Game*> sorted;
    sorted.swap(mInOrder);
    mInitials.clear();
    std::sort(sorted.begin(), sorted.end(), [](const Game* a, const Game* b) {
        const int order = strcasecmp(a->name.c_str(), b->name.c_str());
        return order == 0 ? a->path < b->path : order < 0;
    });
    for (const Game* game : sorted)
        addInOrder(*game);
}

std::vector<const std::string*> GameIndex::search(const std::string& key) const {
    std::vector<const std::string*> found;
    for (const size_t number : mInitials.find(key))
        found.push_back(&mInOrder[number]->path);
    return found;
}

} // namespace navora
