#include "navora/unsettled.h"

#include <utility>

namespace navora {

static bool sUnsettled = false;

void noteUnsettled() {
    sUnsettled = true;
}

bool wasUnsettled() {
    return std::exchange(sUnsettled, false);
}

} // namespace navora
