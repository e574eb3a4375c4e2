#include "navora/settings_page.h"

#include "core/host.h"
#include "core/window_stack.h"
#include "gfx/image.h"
#include "hostkit/key_tone.h"
#include "hostkit/settings.h"
#include "hostkit/theme.h"
#include "navora/about_page.h"
#include "navora/clock.h"
#include "navora/place.h"
#include "navora/theme.h"
#include "navora/words.h"
#include "system/clock_settings.h"
#include "system/current_language.h"
#include "system/display_color.h"
#include "system/language.h"
#include "system/system_state.h"

#include <algorithm>

namespace navora {

/// The host's table, as the settings file numbers it.
enum TableIndex {
    volumeIndex = 0,
    brightnessIndex = 1,
    ledIndex = 8,
    rumbleIndex = 12,
    dimTimeIndex = 13,
    wifiIndex = 14,
    bluetoothIndex = 16,
    swapIndex = 19,
};

struct SettingsPage::Pictures {
    using Picture = std::unique_ptr<KestroSurface>;

    static Picture load(const char* name) { return Picture(LoadKestroSurface(gThemePath, "./", name)); }

    Picture selected = load("skin/bg-list-f.png");
    Picture normal = load("skin/bg-list-n.png");
    Picture leftSelected = load("skin/set-left-f.png");
    Picture leftNormal = load("skin/set-left-n.png");
    Picture rightSelected = load("skin/set-right-f.png");
    Picture rightNormal = load("skin/set-right-n.png");
    Picture frame = load("skin/set-frame.png");
    Picture on = load("skin/set-on.png");
    Picture off = load("skin/set-off.png");
};

static int titleOf(SettingsPage::Part part) {
    static constexpr int titles[] = {wordSettings, wordDisplay, wordSound, wordDateAndTime, wordDevice};
    return titles[part];
}

SettingsPage::SettingsPage(Shell& shell, Part part)
    : ListPage(shell, titleOf(part), std::make_unique<SettingMenu>()), mPart(part),
      mPictures(std::make_unique<Pictures>()) {
    addRows();
}

SettingsPage::~SettingsPage() {
    setList(nullptr); // its rows use what goes next
}

SettingsPage* SettingsPage::reopened(Shell& shell, const cJSON* state) {
    const int part =
        std::clamp(numberOf(state, "part", overview), static_cast<int>(overview), static_cast<int>(device));
    auto* const page = new SettingsPage(shell, static_cast<Part>(part));
    restorePosition(page->list(), state);
    return page;
}

void SettingsPage::saveState(cJSON* state) {
    cJSON_AddStringToObject(state, "page", "settings");
    cJSON_AddNumberToObject(state, "part", mPart);
    savePosition(list(), state);
}

void SettingsPage::quit() {
    hostkit::saveSettings();
}

/// Tells that there are more rows than fit, as other lists do.
void SettingsPage::drawContent() {
    ListPage::drawContent();
    if (menu().getListNum() > menu().getRowsPerPage())
        drawListNumAtStatBar(menu().getCursor() + 1, menu().getListNum());
}

/// The rows hold the old theme's pictures: they are made anew around the same cursor.
void SettingsPage::themeChanged() {
    const int cursor = menu().getCursor();
    const int first = menu().getFirstVisible();
    const int last = menu().getLastVisible();
    setList(std::make_unique<SettingMenu>());
    mValues.clear();
    mSwitches.clear();
    mPictures = std::make_unique<Pictures>();
    addRows();
    menu().restorePos(cursor, first, last);
}

/// Only what leads to another page can be confirmed.
void SettingsPage::addRows() {
    static constexpr void (SettingsPage::*addPart[])() = {
        &SettingsPage::addPartLinks, &SettingsPage::addScreenRows, &SettingsPage::addSoundRows,
        &SettingsPage::addClockRows, &SettingsPage::addDeviceRows};
    (this->*addPart[mPart])();
}

template <SettingsPage::Part part>
int SettingsPage::openPart(void* page) {
    add2PopupList(new SettingsPage(static_cast<SettingsPage*>(page)->shell(), part));
    return loopIgnored;
}

int SettingsPage::openAbout(void* page) {
    add2PopupList(new AboutPage(static_cast<SettingsPage*>(page)->shell()));
    return loopIgnored;
}

void SettingsPage::addPartLinks() {
    addLookRows();
    addLink(wordDisplay, openPart<display>);
    addLink(wordSound, openPart<sound>);
    addLink(wordDateAndTime, openPart<clock>);
    addLink(wordDevice, openPart<device>);
    addLink(wordAbout, openAbout);
}

void SettingsPage::addLink(int word, int (*open)(void* page)) {
    const Pictures& p = *mPictures;
    auto* const row =
        new SettingItem(p.selected.get(), p.normal.get(), word, nullptr, new GeneralAction(open, this));
    row->setRightIcon(p.rightNormal.get());
    menu().insertSettingItem(row);
}

void SettingsPage::addLookRows() {
    const int languages = static_cast<int>(getLangList()->size());
    addValue(
        wordLanguage, {0, languages - 1, 1, true},
        [] {
            const auto& all = *getLangList();
            const auto found = std::find_if(all.begin(), all.end(), [](const LangInfo& language) {
                return language.fileName == getSystemLanguage();
            });
            return found == all.end() ? 0 : static_cast<int>(found - all.begin());
        },
        [](int index) { hostkit::changeLanguage((*getLangList())[static_cast<size_t>(index)].fileName); },
        [](int index) { return (*getLangList())[static_cast<size_t>(index)].displayName; });
    addValue(
        wordTheme, {0, static_cast<int>(themes().size()) - 1, 1, true}, currentTheme,
        [](int index) { hostkit::changeTheme(themes()[static_cast<size_t>(index)].folder); },
        [](int index) -> std::string {
            const Theme& theme = themes()[static_cast<size_t>(index)];
            return theme.name.empty() ? getLangStr(wordDefault) : theme.name;
        });
}

static std::string dimTimeText(int seconds) {
    if (seconds == 0)
        return getLangStr(wordNever);
    return seconds % 60 == 0 ? counted(wordMinutes, seconds / 60) : counted(wordSeconds, seconds);
}

void SettingsPage::addScreenRows() {
    addTableValue(wordBrightness, brightnessIndex, {0, 10, 1, false});
    addValue(wordContrast, {1, 10, 1, false}, getContrast, setContrast);
    addValue(wordSaturation, {0, 10, 1, false}, getSaturation, setSaturation);
    addValue(wordColorTemperature, {0, 20, 1, false}, getColorTemperature, setColorTemperature);
    addValue(
        wordDimAfter, {0, 600, 30, true}, [] { return GetKeyShm(gShmInfo, dimTimeIndex); },
        [](int seconds) { SetKeyShm(gShmInfo, dimTimeIndex, seconds); }, dimTimeText);
}

void SettingsPage::addSoundRows() {
    addValue(
        wordVolume, {0, 20, 1, false}, [] { return GetKeyShm(gShmInfo, volumeIndex); },
        [](int volume) {
            SetKeyShm(gShmInfo, volumeIndex, volume);
            hostkit::applyKeyToneVolume();
        });
    addSwitch(
        wordKeyTone, [] { return gEnableKeyTone != 0; },
        [](bool on) {
            gEnableKeyTone = on;
            hostkit::applyKeyToneVolume();
        });
}

void SettingsPage::addClockRows() {
    addSwitch(
        word24HourClock, [] { return get24HourClockFlag() != 0; }, [](bool on) { set24HourClockFlag(on); });
    addValue(
        wordTimeZone, {0, static_cast<int>(timeZones().size()) - 1, 1, true},
        [] {
            const char* const zone = getTimeZone();
            const auto found = std::find(timeZones().begin(), timeZones().end(), zone ? zone : "UTC");
            return found == timeZones().end() ? 0 : static_cast<int>(found - timeZones().begin());
        },
        [](int index) {
            setTimeZone(timeZones()[static_cast<size_t>(index)].c_str());
            applyTimeZone();
        },
        [](int index) { return timeZones()[static_cast<size_t>(index)]; });
}

void SettingsPage::addDeviceRows() {
    addTableSwitch(wordLed, ledIndex);
    addTableValue(wordRumble, rumbleIndex, {0, 5, 1, false});
    addTableSwitch(wordWifi, wifiIndex);
    addTableSwitch(wordBluetooth, bluetoothIndex);
    addTableSwitch(wordSwapAB, swapIndex);
}

void SettingsPage::addValue(int word, SteppedValue::Range range, std::function<int()> get,
                            std::function<void(int)> set, std::function<std::string(int)> show) {
    if (!show)
        show = [](int value) { return std::to_string(value); };
    mValues.push_back(std::make_unique<SteppedValue>(range, std::move(get), std::move(set), std::move(show)));
    const Pictures& p = *mPictures;
    menu().insertSettingItem(new SettingValueItem(
        p.selected.get(), p.normal.get(), p.leftSelected.get(), p.leftNormal.get(), p.rightSelected.get(),
        p.rightNormal.get(), p.frame.get(), word, nullptr, mValues.back().get()));
}

void SettingsPage::addTableValue(int word, int index, SteppedValue::Range range) {
    addValue(
        word, range, [index] { return GetKeyShm(gShmInfo, index); },
        [index](int value) { SetKeyShm(gShmInfo, index, value); });
}

void SettingsPage::addSwitch(int word, std::function<bool()> get, std::function<void(bool)> set) {
    mSwitches.push_back(std::make_unique<Switch>(std::move(get), std::move(set)));
    const Pictures& p = *mPictures;
    menu().insertSettingItem(new SettingSwitchItem(p.selected.get(), p.normal.get(), p.on.get(), p.off.get(),
                                                   word, mSwitches.back().get()));
}

void SettingsPage::addTableSwitch(int word, int index) {
    addSwitch(
        word, [index] { return GetKeyShm(gShmInfo, index) != 0; },
        [index](bool on) { SetKeyShm(gShmInfo, index, on); });
}

} // namespace navora
