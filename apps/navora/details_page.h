#pragma once

#include "navora/folder.h"
#include "navora/page.h"
#include "navora/picture_card.h"

namespace navora {

/// One file, large, with what is known of it.
class DetailsPage : public Page {
public:
    DetailsPage(Shell& shell, const Entry& entry) : Page(shell, -1), mEntry(entry) {}

    const char* getTitle() override { return mEntry.name.c_str(); }

protected:
    void drawContent() override;
    int handleInput() override;

private:
    Entry mEntry;
    PictureCard mCard;

    /// Draws a caption and its text below each other; returns where the next may begin.
    int drawFact(int y, int caption, const std::string& text) const;
};

} // namespace navora
