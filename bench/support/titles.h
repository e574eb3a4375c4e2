#pragma once

#include <string>
#include <vector>

namespace bench {

/// So many different titles of games, always the same: Chinese of about 3500 characters, the common ones more
/// often, Latin words with numbers, and both mixed, in no order.
std::vector<std::string> titles(size_t count);

} // namespace bench
