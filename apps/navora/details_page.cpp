#include "navora/details_page.h"

#include "core/host.h"
#include "core/input.h"
#include "gfx/text.h"
#include "navora/look.h"
#include "navora/words.h"
#include "shell/skin.h"
#include "system/language.h"

#include <ctime>

namespace navora {

static constexpr int top = headerHeight + 20;
static constexpr SDL_Rect sPicture{margin, top, 688, footerTop - top - 20};
static constexpr SDL_Rect sFacts{776, top, 464, footerTop - top - 20};

static std::string dateText(time_t time) {
    char text[32];
    tm parts{};
    if (!localtime_r(&time, &parts) || strftime(text, sizeof text, "%Y-%m-%d %H:%M", &parts) == 0)
        return "?";
    return text;
}

int DetailsPage::drawFact(int y, int caption, const std::string& text) const {
    constexpr int captionHeight = 36;
    constexpr int gap = 24;
    const SDL_Rect place{sFacts.x, y, sFacts.w, captionHeight};
    DrawString(gListFontSubtxt, place, getLangStr(caption), gHighlightColor, 3, false, false);
    y += captionHeight;
    return y + gap + drawWrapped(gListFontTxt, {sFacts.x, y, sFacts.w, 0}, text, gListColorTxt, 4);
}

void DetailsPage::drawContent() {
    mCard.draw(sPicture, mEntry);
    int y = sFacts.y;
    y = drawFact(y, wordSize, describeFile(mEntry));
    y = drawFact(y, wordChanged, dateText(mEntry.changed));
    if (!mHint.empty())
        drawWrapped(gListFontSubtxt, {sFacts.x, y, sFacts.w, 0}, mHint, gListColorSubtxt, 4);
}

void DetailsPage::saveState(cJSON* state) {
    cJSON_AddStringToObject(state, "page", "details");
    cJSON_AddStringToObject(state, "path", mEntry.path.c_str());
    cJSON_AddStringToObject(state, "hint", mHint.c_str());
}

int DetailsPage::handleInput() {
    const int code = wait_event(nullptr);
    const int back = GetKeyShm(gShmInfo, 19) == 0 ? keyB : keyA;
    return code == back || code == keyMenu ? loopClose : code;
}

} // namespace navora
