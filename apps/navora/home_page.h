#pragma once

#include "navora/page.h"

#include <string>

namespace navora {

/// The first page: where one can go. The right shoulder goes to the search.
class HomePage : public ListPage {
public:
    /// `gamesFolder` is an absolute path.
    HomePage(Shell& shell, std::string gamesFolder);

    void saveState(cJSON* state) override;
    void restore(const cJSON* state);

protected:
    int answer(int code) override;

private:
    std::string mGamesFolder;

    void addRow(int word, const char* icon, int (*open)(void*));
    static int openGames(void* page);
    static int openFavourites(void* page);
    static int openRecents(void* page);
    static int openSearch(void* page);
    static int openSettings(void* page);
};

} // namespace navora
