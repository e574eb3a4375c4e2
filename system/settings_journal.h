#pragma once

#include "system/json_file.h"

namespace kestro {

/// Whether setSettingsJournal has switched the journal on.
bool journalIsOn();

/// Writes `text` durably to the side copy of `path`. Does nothing and returns true while the journal is off,
/// and for a file without a name, as one in memory, which no power cut leaves anyway. False, with a log line,
/// if the copy could not be written: then the file must not be touched.
bool writeSideCopy(const char* path, const char* text);

/// Ends the protection of `path` after `written`, an open file with the same text, is complete: syncs it and
/// removes the side copy. Does nothing while the journal is off.
void endSideCopy(const char* path, FILE* written);

/// The JSON text in the file `path`; `name` stands for that in log lines. If the file is unusable, the
/// journal is on and the side copy usable, that of the copy, with a log line. Null if there is none;
/// `*opened`, if given, says whether the file is there.
JsonPtr parseProtected(const char* name, const char* path, bool* opened = nullptr);

/// The same for the settings file.
JsonPtr parseSettings(const char* path, bool* opened = nullptr);

} // namespace kestro
