#pragma once

#include <string>
#include <vector>

namespace navora {

/// Many short texts, to find those that contain a key whatever the case of ASCII letters. They lie one behind
/// the other, so that one look goes through them all.
class TextSearch {
public:
    /// Adds a text, up to its first zero if it has one.
    void add(const std::string& text);

    void clear();

    /// The numbers of the texts that contain `key`, which has no zero in it, in their order; the one that was
    /// added first has the number 0.
    std::vector<size_t> find(const std::string& key) const;

private:
    std::string mTexts; // in small letters, each with a zero at its end
    std::vector<size_t> mEnds;
};

} // namespace navora
