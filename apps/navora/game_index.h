#pragma once

#include "navora/text_search.h"

#include <deque>
#include <filesystem>
#include <string>
#include <vector>

namespace navora {

/// All files below a folder that the lists would show, for a search. Gathered in slices, so that no frame
/// waits for a large card.
class GameIndex {
public:
    static constexpr size_t mostGames = 100'000;
    static constexpr int mostFolders = 32; // within each other

    explicit GameIndex(const std::string& folder);
    GameIndex(const GameIndex&) = delete;
    GameIndex& operator=(const GameIndex&) = delete;

    /// Reads on for a few milliseconds. Returns whether it has found something, or come to the end: then
    /// search again.
    bool gather();

    bool isComplete() const { return mComplete; }

    /// The paths of the games whose name has `key` in its pinyin initials, in any case of ASCII letters.
    /// What is not Chinese has itself for initials; extensions do not count. By name, once the index is
    /// complete. The paths stay the index's, and where they are.
    std::vector<const std::string*> search(const std::string& key) const;

private:
    struct Game {
        std::string path;
        std::string name; // without the extension, which most share
        std::string initials;
    };
    std::filesystem::recursive_directory_iterator mNext;
    std::deque<Game> mGames;           // as they were found; they stay where they are
    std::vector<const Game*> mInOrder; // as they are shown
    TextSearch mInitials;              // of those
    bool mComplete = false;

    void addFile(const std::string& path);
    void addInOrder(const Game& game);
    bool isAtEnd() const;
    void step();
    void sortByName();
};

} // namespace navora
