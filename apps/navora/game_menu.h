#pragma once

#include "navora/page.h"

#include <string>

namespace navora {

/// The list that a game's row stands in.
enum class ListKind { folder, search, favourites, recents };

/// Queues the pop-up menu of a game: play it, make it a favourite or not, its details, and what its list
/// allows.
void openGameMenu(Shell& shell, const std::string& path, ListKind kind);

} // namespace navora
