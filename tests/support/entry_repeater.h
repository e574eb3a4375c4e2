#pragma once

/// While it lives, folders read in this process show every entry that does not begin with "." so many
/// times, one after the other: a full folder without the files. Main thread.
class EntryRepeater {
public:
    explicit EntryRepeater(int times);
    ~EntryRepeater();
    EntryRepeater(const EntryRepeater&) = delete;
    EntryRepeater& operator=(const EntryRepeater&) = delete;
};

/// While it lives, folders read in this process do not tell of what kind their entries are, as on some file
/// systems. Main thread.
class UntypedEntries {
public:
    UntypedEntries();
    ~UntypedEntries();
    UntypedEntries(const UntypedEntries&) = delete;
    UntypedEntries& operator=(const UntypedEntries&) = delete;
};
