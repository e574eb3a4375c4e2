#include "hostkit/event_filter.h"

#include <algorithm>
#include <vector>

namespace hostkit {

static struct {
    SDL_EventFilter hosts = nullptr;
    void* hostsData = nullptr;
    std::vector<EventFilter> filters;
} sFilters;

/// SDL calls it under a lock of its own.
static int filterEvent(void*, SDL_Event* event) {
    if (sFilters.hosts && !sFilters.hosts(sFilters.hostsData, event))
        return 0;
    return std::all_of(sFilters.filters.begin(), sFilters.filters.end(),
                       [event](EventFilter filter) { return filter(*event); });
}

/// SDL forgets what waits when its filter is set.
static void setKeepingEvents(SDL_EventFilter filter) {
    constexpr int many = 65536; // more than SDL's queue holds
    std::vector<SDL_Event> waiting(static_cast<size_t>(
        std::max(0, SDL_PeepEvents(nullptr, many, SDL_PEEKEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT))));
    const int taken = SDL_PeepEvents(waiting.data(), static_cast<int>(waiting.size()), SDL_GETEVENT,
                                     SDL_FIRSTEVENT, SDL_LASTEVENT);
    SDL_SetEventFilter(filter, nullptr);
    SDL_PeepEvents(waiting.data(), taken, SDL_ADDEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT);
}

void addEventFilter(EventFilter filter) {
    SDL_EventFilter current = nullptr;
    void* currentData = nullptr;
    SDL_GetEventFilter(&current, &currentData);
    if (current != filterEvent) { // the first time, or SDL has been shut down meanwhile
        sFilters = {current, currentData, {}};
        setKeepingEvents(filterEvent);
    }
    auto& filters = sFilters.filters;
    if (std::find(filters.begin(), filters.end(), filter) == filters.end())
        filters.push_back(filter);
}

} // namespace hostkit
