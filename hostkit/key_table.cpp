#include "hostkit/key_table.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hostkit {

KeyTable gKeyTable;

static constexpr char sMagic[sizeof KeyTableLayout::magic + 1] = "KESTROKT";

static bool isTable(const KeyTableLayout& layout) {
    return memcmp(layout.magic, sMagic, sizeof layout.magic) == 0 &&
           layout.version == KeyTableLayout::currentVersion && layout.count == KeyTableLayout::size;
}

static KeyTableLayout* layOut(void* memory, const int32_t* values) {
    auto* const layout = new (memory) KeyTableLayout;
    for (int i = 0; i < KeyTableLayout::size; ++i)
        layout->values[i] = values[i];
    layout->count = KeyTableLayout::size;
    layout->version = KeyTableLayout::currentVersion;
    memcpy(layout->magic, sMagic, sizeof layout->magic);
    return layout;
}

/// Held while an object is looked at or laid out, so that nobody sees half a table.
static bool lock(int file) {
    int status = 0;
    do
        status = flock(file, LOCK_EX);
    while (status != 0 && errno == EINTR);
    return status == 0;
}

/// Takes the room for the table from the system now: later, a lack of it would be a crash.
static bool reserve(int file) {
    errno = posix_fallocate(file, 0, sizeof(KeyTableLayout));
    return errno == 0;
}

KeyTable::State KeyTable::open() {
    return open(keyTableName());
}

KeyTable::State KeyTable::open(const std::string& name) {
    close();
    if (name.size() >= sizeof mName) {
        errno = ENAMETOOLONG;
        return giveUp();
    }
    memcpy(mName, name.c_str(), name.size() + 1);
    return attachOrReplace();
}

KeyTable::State KeyTable::attachOrReplace() {
    bool replaced = false;
    for (int attempt = 0; attempt < 100; ++attempt) {
        detach();
        switch (attach()) {
        case Found::table:
            return mState = replaced ? State::replaced : State::attached;
        case Found::nothing:
            return mState = replaced ? State::replaced : State::created;
        case Found::somethingElse:
            shm_unlink(mName);
            replaced = true;
            break;
        case Found::replacedMeanwhile:
            break;
        case Found::failure:
            return giveUp();
        }
    }
    errno = EAGAIN;
    return giveUp();
}

/// Maps the object, and makes it a table if it is new. Its lock is held meanwhile.
KeyTable::Found KeyTable::attach() {
    struct stat status {};
    mFile = shm_open(mName, O_RDWR | O_CREAT, 0600);
    if (mFile < 0 || !lock(mFile) || fstat(mFile, &status) != 0)
        return Found::failure;
    if (status.st_nlink == 0)
        return Found::replacedMeanwhile;
    if (status.st_uid != geteuid()) {
        errno = EPERM;
        return Found::failure;
    }
    const bool isNew = status.st_size == 0;
    if (!isNew && status.st_size < static_cast<off_t>(sizeof(KeyTableLayout)))
        return Found::somethingElse;
    void* const memory =
        reserve(mFile) ? mmap(nullptr, sizeof(KeyTableLayout), PROT_READ | PROT_WRITE, MAP_SHARED, mFile, 0)
                       : MAP_FAILED;
    if (memory == MAP_FAILED)
        return Found::failure;
    mShared = isNew ? layOut(memory, mOwn) : static_cast<KeyTableLayout*>(memory);
    if (!isTable(*mShared))
        return Found::somethingElse;
    flock(mFile, LOCK_UN);
    return isNew ? Found::nothing : Found::table;
}

KeyTable::State KeyTable::giveUp() {
    mError = errno;
    detach();
    return mState = State::notShared;
}

void KeyTable::detach() {
    if (mShared)
        munmap(mShared, sizeof *mShared);
    if (mFile >= 0)
        ::close(mFile);
    mShared = nullptr;
    mFile = -1;
}

void KeyTable::close() {
    detach();
    memset(mName, 0, sizeof mName);
    memset(mOwn, 0, sizeof mOwn);
    mError = 0;
    mState = State::closed;
}

/// The table in shared memory, null without. Memory that lies beyond the end of its object must not be
/// touched, and an object without a name is nobody else's any more: so it is looked at each time.
KeyTableLayout* KeyTable::shared() {
    if (mState == State::closed)
        open();
    if (!mShared)
        return nullptr;
    struct stat status {};
    const bool whole =
        fstat(mFile, &status) == 0 && status.st_size >= static_cast<off_t>(sizeof(KeyTableLayout));
    if (whole && status.st_nlink > 0)
        return mShared;
    for (int i = 0; whole && i < size; ++i)
        mOwn[i] = mShared->values[i];
    attachOrReplace();
    return mShared;
}

int KeyTable::get(int index) {
    if (index < 0 || index >= size)
        return 0;
    const KeyTableLayout* const table = shared();
    return table ? table->values[index].load() : mOwn[index];
}

void KeyTable::set(int index, int value) {
    if (index < 0 || index >= size)
        return;
    if (KeyTableLayout* const table = shared())
        table->values[index] = value;
    mOwn[index] = value;
}

/// FNV-1a.
static uint64_t numberOf(const std::string& text) {
    uint64_t number = 0xcbf29ce484222325;
    for (const char c : text)
        number = (number ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    return number;
}

std::string keyTableName(const std::string& deviceRoot) {
    const std::string name = "/kestro-keys-v1-" + std::to_string(geteuid());
    if (deviceRoot.empty())
        return name;
    char fullPath[PATH_MAX];
    char number[24];
    snprintf(number, sizeof number, "-%016llx",
             static_cast<unsigned long long>(
                 numberOf(realpath(deviceRoot.c_str(), fullPath) ? fullPath : deviceRoot)));
    return name + number;
}

std::string keyTableName() {
    const char* const root = secure_getenv("KESTRO_DEVICE_ROOT");
    return keyTableName(root ? root : "");
}

bool removeKeyTable(const std::string& name) {
    return shm_unlink(name.c_str()) == 0;
}

} // namespace hostkit
