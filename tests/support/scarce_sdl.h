#pragma once

/// What SDL refuses to make in this process, as if it had run out of it. The tests set it and set it back.
struct ScarceSdl {
    bool noMutex = false;
    bool noCondition = false;
    bool noThread = false;
};

extern ScarceSdl gScarceSdl;
