#pragma once

#include <atomic>
#include <cstdint>
#include <string>

namespace hostkit {

/// How the table lies in its shared-memory object, in the machine's byte order. Another program may map it
/// by itself: it opens the object of keyTableName, checks the first three fields, and loads and stores the
/// values as whole words.
struct KeyTableLayout {
    static constexpr uint32_t currentVersion = 1; ///< what `version` holds
    static constexpr int size = 64;               ///< number of values

    char magic[8]{};                     ///< "KESTROKT"
    uint32_t version = 0;                ///< of this layout
    uint32_t count = 0;                  ///< of the values
    uint32_t reserved[12]{};             ///< 0
    std::atomic<int32_t> values[size]{}; ///< byte 64 and on; 0 at first
};
static_assert(sizeof(KeyTableLayout) == 64 + 4 * KeyTableLayout::size, "the layout is fixed");
static_assert(std::atomic<int32_t>::is_always_lock_free, "values are shared between processes");

/// The table of integer settings that the host shares with other processes, in POSIX shared memory. It
/// outlives its processes, as the settings of a device outlive its programs. One thread; other processes may
/// read and write at any time.
///
/// An object that is no table (cut short, another program's, another layout) is taken away, and a new table
/// takes its place; programs that still use the old one are not disturbed. Where shared memory cannot be had,
/// the values are this process's own.
class KeyTable {
public:
    static constexpr int size = KeyTableLayout::size; ///< number of values; indexes are below it

    /// What became of the last open.
    enum class State {
        closed,   ///< not open
        attached, ///< the table was there
        created,  ///< there was none
        replaced, ///< something that is no table was there, and has gone
        notShared ///< shared memory cannot be had: the values are this process's own
    };

    constexpr KeyTable() = default;
    ~KeyTable() { close(); }
    KeyTable(const KeyTable&) = delete;
    KeyTable& operator=(const KeyTable&) = delete;

    /// Opens the object `name`, "/" and up to 62 characters without another "/", or creates it for this user
    /// alone. Where the answer is `notShared`, error() tells why.
    State open(const std::string& name);
    State open(); ///< the table of this user and device: keyTableName()
    void close(); ///< Lets go of the object, which stays. Harmless if it is closed.

    State state() const { return mState; } ///< What the last open or access came to.

    /// The errno of an open that could not share; 0 otherwise.
    int error() const { return mError; }

    /// The value at `index`, 0 for an index out of range. Opens the table if it is closed, and again if its
    /// object has been cut or deleted meanwhile.
    int get(int index);

    /// Stores a value; an index out of range is ignored. Opens the table like get.
    void set(int index, int value);

private:
    enum class Found { table, nothing, replacedMeanwhile, somethingElse, failure };

    char mName[64]{};
    int mFile = -1;
    int mError = 0;
    State mState = State::closed;
    KeyTableLayout* mShared = nullptr;
    int32_t mOwn[size]{}; // all there is without sharing, and what a new table starts with

    Found attach();
    State attachOrReplace();
    State giveUp();
    void detach();
    KeyTableLayout* shared();
};

/// The object's name for this user on the device itself: "/kestro-keys-v1-UID"; where `deviceRoot` names a
/// folder that stands for a device, "/kestro-keys-v1-UID-ROOT" with ROOT a number made from the folder's full
/// path. So neither users nor simulated devices meet.
std::string keyTableName(const std::string& deviceRoot);

/// The same for the device of this process: that of the environment variable KESTRO_DEVICE_ROOT.
std::string keyTableName();

/// Deletes the object of that name. A program that uses it makes a new one, with its own values, at its next
/// access. Returns whether there was one.
bool removeKeyTable(const std::string& name);

/// The table behind the kit's gShmInfo; it opens itself at the first access.
extern KeyTable gKeyTable;

} // namespace hostkit
