#pragma once

#include "navora/page.h"

#include <string>

namespace navora {

/// The games and other files below a folder. Its rows come from file_handler.
class GamesPage : public ListPage {
public:
    GamesPage(Shell& shell, const std::string& folder);

    void init() override;

    /// The name of the folder that is shown.
    const char* getTitle() override;

protected:
    int answer(int code) override;

private:
    std::string mTitle;
};

} // namespace navora
