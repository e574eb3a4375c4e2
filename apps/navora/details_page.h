#pragma once

#include "navora/folder.h"
#include "navora/page.h"
#include "navora/picture_card.h"

#include <string>
#include <utility>

namespace navora {

/// One file, large, with what is known of it.
class DetailsPage : public Page {
public:
    /// `hint` stands below what is known; "" for none.
    DetailsPage(Shell& shell, const Entry& entry, std::string hint = "")
        : Page(shell, -1), mEntry(entry), mHint(std::move(hint)) {}

    const char* getTitle() override { return mEntry.name.c_str(); }

    void saveState(cJSON* state) override;

protected:
    void drawContent() override;
    int handleInput() override;

private:
    Entry mEntry;
    std::string mHint;
    PictureCard mCard;

    /// Draws a caption and its text below each other; returns where the next may begin.
    int drawFact(int y, int caption, const std::string& text) const;
};

} // namespace navora
