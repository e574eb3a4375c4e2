#pragma once

#include "menu/setting_menu.h"
#include "navora/page.h"
#include "navora/setting_values.h"

#include <memory>
#include <vector>

namespace navora {

/// What the settings file stores, to be looked at and changed: one part of it, or the page that leads to the
/// parts. A change shows at once, and is written when the page is left.
class SettingsPage : public ListPage {
public:
    enum Part { overview, display, sound, clock, device };

    explicit SettingsPage(Shell& shell, Part part = overview);
    ~SettingsPage() override;

    /// As it was kept by saveState. The caller owns it.
    static SettingsPage* reopened(Shell& shell, const cJSON* state);

    void quit() override;
    void saveState(cJSON* state) override;

protected:
    void drawContent() override;
    void themeChanged() override;

private:
    struct Pictures;

    const Part mPart;
    std::unique_ptr<Pictures> mPictures;
    std::vector<std::unique_ptr<ValueHandler>> mValues;
    std::vector<std::unique_ptr<SwitchHandler>> mSwitches;

    SettingMenu& menu() const { return static_cast<SettingMenu&>(list()); }
    void addRows();
    void addLookRows();
    void addScreenRows();
    void addSoundRows();
    void addClockRows();
    void addDeviceRows();
    void addValue(int word, SteppedValue::Range range, std::function<int()> get, std::function<void(int)> set,
                  std::function<std::string(int)> show = nullptr);
    void addTableValue(int word, int index, SteppedValue::Range range);
    void addSwitch(int word, std::function<bool()> get, std::function<void(bool)> set);
    void addTableSwitch(int word, int index);
    void addLink(int word, int (*open)(void* page));
    void addPartLinks();

    /// Opens the page of a part.
    template <Part part>
    static int openPart(void* page);
    static int openAbout(void* page);
};

} // namespace navora
