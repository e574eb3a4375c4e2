#include <hostkit/hostkit.h>
#include <kestro.h>

static int praise(void* fruit) {
    tprintf("%s, a good choice\n", static_cast<const char*>(fruit));
    return 0;
}

int main() {
    hostkit::Session session;
    if (!session.isOpen())
        return fprintf(stderr, "%s\n", session.problem().c_str()), 1;
    auto list = std::make_unique<TextMenu>("skin/bg-list-f.png", "skin/bg-list-n.png", 6, 0);
    for (const char* fruit : {"Apple", "Bergamot", "Cherry"}) {
        Action* const action = new GeneralAction(praise, const_cast<char*>(fruit));
        list->insertItem(static_cast<TextMenuItemProvider*>(new TextMenuItem(fruit, nullptr, action, true)));
    }
    std::vector<KestroWindow*> windows{new hostkit::MenuWindow("Fruit", std::move(list))};
    runWindows(windows);
}
