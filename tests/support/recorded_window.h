#pragma once

#include "core/window.h"

#include <functional>
#include <string>
#include <vector>

/// What happened to windows, in order: "name.draw", "name.eventHandling", "name.deleted" and so on.
using WindowLog = std::vector<std::string>;

/// A window that notes every call in a shared log, and answers input as the test says.
class RecordedWindow : public KestroWindow {
public:
    RecordedWindow(WindowLog& log, std::string name, int kind = 0)
        : KestroWindow(-1, kind), mLog(log), mName(std::move(name)) {}
    ~RecordedWindow() override {
        note("deleted");
        run(onDelete);
    }

    /// The answer to each call of eventHandling; without it, 1003, which leaves the loop.
    std::function<int()> onInput;
    std::function<void()> onDraw;
    std::function<void()> onInit;
    std::function<void()> onQuit;
    std::function<void()> onUpdate;
    std::function<void()> onClosing;
    std::function<void()> onDelete;
    std::function<void(cJSON*)> onSave;

    int eventHandling() override {
        note("eventHandling");
        return onInput ? onInput() : 1003;
    }
    int draw() override {
        note("draw");
        return run(onDraw);
    }
    void quit() override {
        note("quit");
        run(onQuit);
    }
    void init() override {
        note("init");
        run(onInit);
    }
    void saveState(cJSON* obj) override {
        note("saveState");
        if (onSave)
            onSave(obj);
    }
    int queryInt() override {
        note("queryInt");
        return 0;
    }
    void update() override {
        note("update");
        run(onUpdate);
    }
    void postUpdate() override { note("postUpdate"); }
    void onClose() override {
        note("onClose");
        run(onClosing);
    }

private:
    WindowLog& mLog;
    std::string mName;

    void note(const char* what) { mLog.push_back(mName + "." + what); }
    static int run(const std::function<void()>& action) {
        if (action)
            action();
        return 0;
    }
};
