#pragma once

#include "navora/page.h"

#include <SDL.h>

#include <string>
#include <sys/stat.h>

namespace navora {

/// The games and other files below a folder. Its rows come from file_handler. When the folder goes, as with a
/// card that is taken out, a message says so and the page closes.
class GamesPage : public ListPage {
public:
    /// Begins in `start`, a folder below `folder`; in `folder` itself for any other.
    GamesPage(Shell& shell, const std::string& folder, const std::string& start = "");

    /// As it was kept by saveState. The caller owns it.
    static GamesPage* reopened(Shell& shell, const std::string& folder, const cJSON* state);

    void init() override;
    void saveState(cJSON* state) override;

    /// The name of the folder that is shown.
    const char* getTitle() override;

protected:
    void drawContent() override;
    int handleInput() override;
    int answer(int code) override;
    bool hasOptions() const override { return !mLoading && ListPage::hasOptions(); }

private:
    std::string mFolder;
    struct stat mIdentity {}; // of the folder; another one is there once a card is gone
    Uint32 mLastLook = 0;     // at the folder, in SDL's milliseconds
    bool mLoading = false;
    std::string mTitle;

    bool isGone();
    void sayLoading();
};

} // namespace navora
