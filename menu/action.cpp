#include "menu/action.h"

#include "core/log.h"

Action::~Action() = default;

int Action::xdowork(void*) {
    return 0;
}

int Action::queryKind() {
    return -1;
}

int Action::queryState() {
    return 0;
}

GeneralAction::GeneralAction(int (*function)(void*), void* argument, int64_t debug)
    : mFunction(function), mArgument(argument), mDebug(debug) {}

int GeneralAction::dowork(void*) {
    if (!mFunction) {
        if (mDebug)
            tprintf("GeneralAction dowork dosth %p\n", static_cast<void*>(nullptr));
        return -1;
    }
    if (mDebug)
        tprintf("GeneralAction dowork\n");
    return mFunction(mArgument);
}
