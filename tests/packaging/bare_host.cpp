#include <kestro.h>

// A host without the host kit: it defines by itself what the library asks of every host.
void* gShmInfo = nullptr;
const char* gThemePath = nullptr;

int GetKeyShm(void*, int) {
    return 0;
}

void SetKeyShm(void*, int, int) {}

void initJoyStick() {}

bool file_filter(const char*, const char*) {
    return true;
}

TextMenuItem* file_handler(const char*, const char*, int) {
    return nullptr;
}

class Greeting : public KestroWindow {
public:
    Greeting() : KestroWindow(-1, 0) {}
    int draw() override {
        FillRect(nullptr, nullptr, 24, 32, 48, 255);
        DrawString(mFont, {0, 0, 1280, 720}, "Hello · 你好", {255, 255, 255, 255}, 1, true, false);
        return 0;
    }
    int eventHandling() override {
        SDL_Event event{};
        return wait_event(&event) == 2 || event.type == SDL_QUIT ? 1003 : 0;
    }
    void quit() override { TTF_CloseFont(mFont); }
    void init() override {}
    void update() override {}
    void saveState(cJSON*) override {}
    int queryInt() override { return 0; }

private:
    TTF_Font* mFont = TTF_OpenFont("regular.ttf", 44);
};

int main() {
    TTF_Init();
    ScreenInit(1280, 720, 32, 0);
    std::vector<KestroWindow*> windows{new Greeting};
    runWindows(windows);
    ScreenUninit();
}
