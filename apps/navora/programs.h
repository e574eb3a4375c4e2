#pragma once

#include <map>
#include <string>
#include <vector>

namespace navora {

/// Which program starts files of which kind.
class Programs {
public:
    /// Reads the text of a navora.json:
    ///
    ///     {"programs": {"nes fds": "fceux --fullscreen 1 %f", "mp4": ["mpv", "--fs", "%f"]}}
    ///
    /// A member's name lists extensions, apart by spaces or commas. Its value is a command: a text that is
    /// cut at its spaces, save for those in single or double quotes, or a list of arguments. In each argument
    /// %f stands for the file's path, %d for its folder's and %% for a percent sign; a command that does not
    /// mention %f gets the path as its last argument. No shell reads it.
    ///
    /// Returns what is wrong with the text, in one line, with the line and column where they are known; "" if
    /// nothing is. What is right of it is taken all the same, which is nothing of a text that is no JSON.
    std::string read(const std::string& text);

    /// The arguments that start `path`, the program first; empty if there is no program for its kind.
    std::vector<std::string> commandFor(const std::string& path) const;

private:
    std::map<std::string, std::vector<std::string>> mCommands; // by extension, in lower case

    std::string add(const std::string& extensions, std::vector<std::string> command);
};

/// Where in a text a byte stands, such as "line 3, column 14"; both count from 1, and columns in characters.
std::string placeIn(const std::string& text, size_t byte);

/// The programs of the first navora.json that there is: in the state folder of the device or the user, in the
/// user's folder of configurations, or the shipped one. One that cannot be used is named on standard error,
/// with the reason, and the shipped one takes its place.
Programs loadPrograms();

} // namespace navora
