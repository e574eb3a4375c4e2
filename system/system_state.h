#pragma once

#include "core/export.h"

/// What the settings file says about the launcher's own pages: which are shown (0 hides), and so on. Values
/// are stored as the file gives them. Read by the host; main thread.
extern KESTRO_API int gEnableHomeWindow;      ///< "enablehome", 1 at load like all but the last
extern KESTRO_API int gAllowFocusOnTab;       ///< "focusontab"
extern KESTRO_API int gEnableFavoriteTab;     ///< "favoritetab"
extern KESTRO_API int gEnableRecentPlayedTab; ///< "recentplayedtab"
extern KESTRO_API int gEnableBestsTab;        ///< "beststab"
extern KESTRO_API int gEnableRetroGameTab;    ///< "retrogametab"
extern KESTRO_API int gEnablePortsTab;        ///< "portstab"
extern KESTRO_API int gEnableAppsTab;         ///< "appstab"
extern KESTRO_API int gEnableNetPlayTab;      ///< "netplaytab"
extern KESTRO_API int gUseJoystick;           ///< "usejoystick", 0 to 3
extern KESTRO_API int gEnableKeyTone;         ///< "enablekeytone", 0 or 1
extern KESTRO_API int gEnableSSH;             ///< "enablessh", 0 or 1; 0 at load

/// "storeurl": the address of the store, from malloc, or null. Owned by the library. A value that a later
/// load replaces stays valid to the end of the process.
extern KESTRO_API char* gStoreUrl;

/// Reads the settings file "/mnt/UDISK/system.json" into the host's table (`shm` is its handle), the
/// display, the clock, the language and the flags above. A file that cannot be opened, read or parsed gives
/// the defaults; a key that is absent or of the wrong type gives that key's default, or leaves what was
/// there.
///
/// `theme` receives a new copy of the theme's folder, which the caller frees; null when the file names none
/// or one that does not exist. It stays as it is when there is no usable file, and may be null. Main
/// thread, like everything here.
KESTRO_API void loadSystemState(void* shm, char** theme);

/// Writes the whole settings file anew. Keys that are not the library's are dropped. `theme` is the theme's
/// folder; null leaves it out. A file that cannot be opened is passed over without a word.
KESTRO_API void saveSystemState(void* shm, const char* theme);

/// Sets one number in the settings file, which it creates if there is none. If the key has a variant for the
/// current language, that is what goes; the number is stored under the plain key, at the end. Returns 0, or
/// -1 when the file cannot be parsed or written; a null key fails.
KESTRO_API int saveOneItemInSystemState(const char* key, int value);

/// Switches the settings journal on or off; it is off at load. While it is on, a save first writes its text
/// to a side copy beside the file and syncs it, and removes that copy when the file itself is safely
/// written. A load that finds the file unusable and the side copy usable takes the copy, and logs it; so does
/// loadThemeInfo. So a power cut leaves the old settings or the new ones, on any file system.
KESTRO_API void setSettingsJournal(bool on);
