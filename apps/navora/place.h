#pragma once

#include "menu/text_menu_drawer.h"
#include "navora/page.h"

#include <cJSON.h>

#include <string>
#include <vector>

namespace navora {

/// Where the launcher stands: which pages are open, and where in each. A page tells it by saveState, in an
/// object whose member "page" is its kind; windows without that are not opened again.

/// From now on a close request keeps the place; with `beyondEnd`, what is kept outlasts the launcher, in the
/// file place.json of the state folder.
void startPlace(bool beyondEnd);

/// Keeps the place of the loop that is running.
void keepPlace();

/// The windows of the place that was kept, in this run or, if in none, in an earlier one; the home page at
/// least. Games below another folder than `gamesFolder` are left out. What is kept in no form of ours is
/// passed over with a line in the log.
std::vector<KestroWindow*> windowsAsKept(Shell& shell, const std::string& gamesFolder);

/// Adds the cursor, with the label of its row if it is a row of text, and the rows in sight to a page's
/// state.
void savePosition(TextMenuDrawer& list, cJSON* state);

/// Puts them back. Where other rows stand now, the cursor follows its row.
void restorePosition(TextMenuDrawer& list, const cJSON* state);

/// A text of a page's state; "" if there is none.
std::string textOf(const cJSON* state, const char* name);

/// A number of it; `otherwise` if there is none.
int numberOf(const cJSON* state, const char* name, int otherwise);

} // namespace navora
