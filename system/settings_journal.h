#pragma once

#include "system/json_file.h"

namespace kestro {

/// Whether setSettingsJournal has switched the journal on.
bool journalIsOn();

/// Writes `text` durably to the side copy of `path`. Does nothing and returns true while the journal is off.
/// False, with a log line, if the copy could not be written: then the file must not be touched.
bool writeSideCopy(const char* path, const char* text);

/// Ends the protection of `path` after `written`, an open file with the same text, is complete: syncs it and
/// removes the side copy. Does nothing while the journal is off.
void endSideCopy(const char* path, FILE* written);

/// The settings in the file `path`. If that is unusable, the journal is on and the side copy usable, those in
/// the copy, with a log line. Null if there are none; `*opened`, if given, says whether the file is there.
JsonPtr parseSettings(const char* path, bool* opened = nullptr);

} // namespace kestro
