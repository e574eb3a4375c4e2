#pragma once

#include <string>
#include <vector>

namespace navora {

/// The games that the owner likes, and those played of late, kept in a JSON file:
///
///     {"favourites": ["/path/of/a/game", ...], "recents": ["/path/of/the/last/one", ...]}
///
/// A change is written at once. A game that is no longer there stays in the file, since its card may come
/// back, but the pages do not show it.
class GameLists {
public:
    static constexpr size_t mostFavourites = 1000;
    static constexpr size_t mostRecents = 50;

    /// Reads `file`. One that is broken is kept beside, under its name and ".broken", and the lists start
    /// empty. One that cannot be read, as on a card with a bad contact, stays as it is: the lists start empty
    /// too, and what changes in them lasts until the end. What is no path in it is passed over, and so is
    /// what goes beyond the limits. Without a file, "", the lists last until the end.
    explicit GameLists(std::string file);

    /// In the order in which they were added.
    const std::vector<std::string>& favourites() const { return mFavourites; }

    /// The last one first.
    const std::vector<std::string>& recents() const { return mRecents; }

    bool isFavourite(const std::string& path) const;

    /// Adds or takes away a favourite. When there are too many already, another one is not added.
    void setFavourite(const std::string& path, bool favourite);

    /// Puts a game at the head of the recents.
    void noteStarted(const std::string& path);

    void removeRecent(const std::string& path);
    void clearRecents();

    /// Another number after every change.
    unsigned version() const { return mVersion; }

private:
    std::string mFile;
    std::vector<std::string> mFavourites;
    std::vector<std::string> mRecents;
    unsigned mVersion = 0;

    void changed();
};

/// The lists of this user, in stateFile("games.json").
GameLists& gameLists();

/// To be called for a game that is started: see GameLists::noteStarted.
void noteStarted(const std::string& path);

} // namespace navora
