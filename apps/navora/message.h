#pragma once

#include "navora/floating.h"
#include "navora/words.h"

#include <string>

namespace navora {

/// A dialog that tells something: a word of the language, and below it what it is about, each in as many
/// lines as it needs. Any answer closes it.
class Message : public Dialog {
public:
    Message(Shell& shell, Word word, const std::string& about);
};

} // namespace navora
