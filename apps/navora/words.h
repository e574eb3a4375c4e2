#pragma once

namespace navora {

/// The launcher's own words, by their string index: they follow the library's eight, and the language files
/// translate both alike.
enum Word {
    wordHome = 8,
    wordGames,
    wordSettings,
    wordLanguage,
    wordTheme,
    wordBrightness,
    wordContrast,
    wordSaturation,
    wordColorTemperature,
    wordVolume,
    wordKeyTone,
    wordSwapAB,
    word24HourClock,
    wordTimeZone,
    wordDimAfter,
    wordLed,
    wordRumble,
    wordWifi,
    wordBluetooth,
    wordDefault,
    wordNever,
    wordNothingHere,
    wordSeconds, ///< a format with one %d
    wordMinutes, ///< the same
    wordSize,
    wordChanged,
    wordSearch,
    wordFavourites,
    wordRecents,
    wordAddFavourite,
    wordRemoveFavourite,
    wordDetails,
    wordRemoveRecent,
    wordClearRecents,
    wordClearQuestion,
    wordNoMatch,
    wordPlay,
    wordAbout,
    wordDisplay,
    wordSound,
    wordDateAndTime,
    wordDevice,
    wordVersion,
    wordBattery,
    wordFreeSpace,
    wordNoProgram,
    wordMissingProgram,
    wordProgramFailed,
    wordCardGone,
    wordSimulatedDevice,
    wordThisPanel,
    wordShown,
    wordBatteryDown,
    wordBatteryUp,
    wordCharger,
    wordWifiStrength,
    wordHeadphones,
    wordScreenOnItsSide,
    wordOn,
    wordOff,
    wordScanning,
    wordConnecting,
    wordConnected,
    wordHotspot,
    wordFromShell,
    wordOptions, ///< what the third face button opens
};

/// Appends the words to the built-in strings. Before initLang.
void addWords();

/// The format `word` of the current language with its one number. A translation without a %d of its own, or
/// with anything else to fill in, gives way to the built-in words. Valid until the next call.
const char* counted(Word word, int number);

} // namespace navora
