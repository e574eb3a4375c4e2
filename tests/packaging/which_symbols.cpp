#include <hostkit/hostkit.h>
#include <kestro.h>

#include <cstdio>

// Prints the host symbols that are not the host kit's. Uses all of the kit, so that all of it is linked.

extern int gOwnCalls;

static bool callsOwn(void (*call)()) {
    const int before = gOwnCalls;
    call();
    return gOwnCalls > before;
}

int main() {
    const struct {
        const char* name;
        bool isOwn;
    } symbols[] = {
        {"gShmInfo", gShmInfo != &hostkit::gKeyTable},
        {"gThemePath", std::string(gThemePath) == "own/"},
        {"gKeyChunk", gKeyChunk != nullptr},
        {"GetKeyShm", GetKeyShm(nullptr, 1) == 41},
        {"SetKeyShm", callsOwn([] { SetKeyShm(nullptr, 1, 1); })},
        {"initJoyStick", callsOwn(initJoyStick)},
        {"file_filter", !hostkit::isListedFile("a") || !file_filter("a", "/a")},
        {"file_handler", !file_handler("a", "/a", 102)},
    };
    for (const auto& [name, isOwn] : symbols)
        if (isOwn)
            puts(name);
    hostkit::SessionOptions options;
    options.hidden = true;
    const hostkit::Session session(options);
    return session.isOpen() ? 0 : 1;
}
