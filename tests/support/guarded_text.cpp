#include "support/guarded_text.h"

#include <cstring>
#include <stdexcept>
#include <sys/mman.h>
#include <unistd.h>

static size_t pageSize() {
    return static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

GuardedText::GuardedText(const std::string& text) {
    const size_t page = pageSize();
    const size_t needed = text.size() + 1;
    mReadable = (needed + page - 1) / page * page;
    void* const pages =
        mmap(nullptr, mReadable + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED)
        throw std::runtime_error("no memory for a guarded text");
    mPages = static_cast<char*>(pages);
    if (mprotect(mPages + mReadable, page, PROT_NONE) != 0)
        throw std::runtime_error("a guarded text's end cannot be guarded");
    mText = mPages + mReadable - needed;
    memcpy(mText, text.c_str(), needed);
}

GuardedText::~GuardedText() {
    munmap(mPages, mReadable + pageSize());
}
