#pragma once

#include <string>

/// A copy of a text that ends, with its terminator, at the end of a readable page: who reads on is stopped
/// by the processor.
class GuardedText {
public:
    explicit GuardedText(const std::string& text);
    ~GuardedText();
    GuardedText(const GuardedText&) = delete;
    GuardedText& operator=(const GuardedText&) = delete;

    const char* text() const { return mText; }

private:
    char* mPages;
    size_t mReadable; // bytes before the page that stops
    char* mText;
};
