#include "navora/place.h"

#include "core/log.h"
#include "core/window_stack.h"
#include "core/window_state.h"
#include "hostkit/close_request.h"
#include "navora/about_page.h"
#include "navora/details_page.h"
#include "navora/game_list_page.h"
#include "navora/games_page.h"
#include "navora/home_page.h"
#include "navora/programs.h"
#include "navora/search_page.h"
#include "navora/settings_page.h"
#include "navora/state_folder.h"

#include <algorithm>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>

namespace navora {

static struct {
    bool beyondEnd = false;
    std::string kept; // as saveWindowsState writes it
} sPlace;

static std::string allOf(int file) {
    std::string content;
    char piece[4096];
    lseek(file, 0, SEEK_SET);
    for (ssize_t count; (count = read(file, piece, sizeof piece)) > 0;)
        content.append(piece, static_cast<size_t>(count));
    return content;
}

static constexpr const char* sFile = "place.json";

void startPlace(bool beyondEnd) {
    sPlace = {beyondEnd, ""};
    hostkit::setBeforeClose(keepPlace);
}

/// By way of a file in memory, since the place must outlast a program even where nothing can be written.
void keepPlace() {
    const int memory = gWinList ? memfd_create("navora-place", MFD_CLOEXEC) : -1;
    if (memory < 0)
        return;
    saveWindowsState(*gWinList, ("/proc/self/fd/" + std::to_string(memory)).c_str());
    sPlace.kept = allOf(memory);
    close(memory);
    if (sPlace.beyondEnd && !writeStateFile(sFile, sPlace.kept))
        tprintf("cannot write %s\n", sFile);
}

std::string textOf(const cJSON* state, const char* name) {
    const cJSON* const text = cJSON_GetObjectItemCaseSensitive(state, name);
    return cJSON_IsString(text) ? text->valuestring : "";
}

int numberOf(const cJSON* state, const char* name, int otherwise) {
    const cJSON* const number = cJSON_GetObjectItemCaseSensitive(state, name);
    return cJSON_IsNumber(number) ? number->valueint : otherwise;
}

static std::string labelAt(TextMenuDrawer& list, int index) {
    auto* const row = dynamic_cast<TextMenuItemProvider*>(list.getItemByIndex(index));
    return row ? row->getLabel() : "";
}

void savePosition(TextMenuDrawer& list, cJSON* state) {
    cJSON_AddNumberToObject(state, "cursor", list.getCursor());
    cJSON_AddNumberToObject(state, "first", list.getFirstVisible());
    cJSON_AddStringToObject(state, "row", labelAt(list, list.getCursor()).c_str());
}

/// Where the row `label` stands, if not at `cursor`.
static int follow(TextMenuDrawer& list, const std::string& label, int cursor) {
    if (label.empty() || labelAt(list, cursor) == label)
        return cursor;
    for (int index = 0; index < list.getListNum(); ++index)
        if (labelAt(list, index) == label)
            return index;
    return cursor;
}

void restorePosition(TextMenuDrawer& list, const cJSON* state) {
    const int count = list.getListNum();
    if (count == 0)
        return;
    const int rows = list.getRowsPerPage();
    const int cursor = std::clamp(numberOf(state, "cursor", 0), 0, count - 1);
    const int first = std::clamp(numberOf(state, "first", 0), 0, std::max(0, count - rows));
    list.restorePos(follow(list, textOf(state, "row"), cursor), first, std::min(first + rows, count) - 1);
}

/// Null for a kind that is none, or that cannot be opened any more.
static KestroWindow* pageOf(Shell& shell, const std::string& gamesFolder, const cJSON* state) {
    const std::string kind = textOf(state, "page");
    Entry entry;
    if (kind == "games" && textOf(state, "base") == gamesFolder)
        return GamesPage::reopened(shell, gamesFolder, state);
    if (kind == "search" && textOf(state, "base") == gamesFolder)
        return SearchPage::reopened(shell, gamesFolder, state);
    if (kind == "list")
        return GameListPage::reopened(shell, state);
    if (kind == "settings")
        return SettingsPage::reopened(shell, state);
    if (kind == "about")
        return new AboutPage(shell);
    if (kind == "details" && readEntry(textOf(state, "path"), entry) && !entry.isFolder)
        return new DetailsPage(shell, entry, textOf(state, "hint"));
    return nullptr;
}

static std::string keptText() {
    std::string text = sPlace.kept;
    const std::string folder = stateFolder();
    if (text.empty() && !folder.empty())
        readSmallFile(folder + "/" + sFile, text);
    return text;
}

std::vector<KestroWindow*> windowsAsKept(Shell& shell, const std::string& gamesFolder) {
    auto* const home = new HomePage(shell, gamesFolder);
    std::vector<KestroWindow*> windows{home};
    const std::string text = keptText();
    if (text.empty())
        return windows;
    const char* end = nullptr;
    const std::unique_ptr<cJSON, void (*)(cJSON*)> root(cJSON_ParseWithOpts(text.c_str(), &end, true),
                                                        cJSON_Delete);
    const cJSON* const list = cJSON_GetObjectItemCaseSensitive(root.get(), "list");
    if (!cJSON_IsArray(list))
        tprintf("place ignored: %s\n",
                root ? "no list" : placeIn(text, end ? static_cast<size_t>(end - text.c_str()) : 0).c_str());
    constexpr size_t most = 16;
    for (const cJSON* state = cJSON_IsArray(list) ? list->child : nullptr; state; state = state->next) {
        if (textOf(state, "page") == "home")
            home->restore(state);
        else if (KestroWindow* const page =
                     windows.size() < most ? pageOf(shell, gamesFolder, state) : nullptr)
            windows.push_back(page);
    }
    return windows;
}

} // namespace navora
