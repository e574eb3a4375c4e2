#pragma once

#include "core/export.h"

#include <cstdint>

/// What happens when a row, a dialog or a setting is chosen. Main thread.
class KESTRO_API Action {
public:
    Action() = default;
    virtual ~Action();
    Action(const Action&) = delete;
    Action& operator=(const Action&) = delete;

    /// Runs the action. `row` is what was chosen, of the kind that the caller's page shows; it may be
    /// deleted by the action. The result becomes the list's code, see there.
    virtual int dowork(void* row) = 0;

    /// Runs the secondary action (third face button). By default there is none, and the result is 0.
    virtual int xdowork(void* row);

    virtual int queryKind();  ///< for the host; the library does not call it. -1 by default
    virtual int queryState(); ///< for the host; the library does not call it. 0 by default

    /// Rows whose action has the higher group come first in a folder. Set by whoever makes the action.
    uint32_t sortGroup = 0;
};

/// An action that calls a plain function.
class KESTRO_API GeneralAction : public Action {
public:
    /// Calls `function` with `argument`, which stays the caller's. A null function makes every run fail
    /// with -1. `debug` other than 0 logs every run.
    GeneralAction(int (*function)(void*), void* argument, int64_t debug = 0);

    int dowork(void* row) override;

private:
    int (*mFunction)(void*);
    void* mArgument;
    int64_t mDebug;
};
