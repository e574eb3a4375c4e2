#pragma once

#include <string>

namespace navora {

/// The folder of what the launcher keeps for itself, without "/" at its end: "/mnt/UDISK/navora" on the
/// device, or below the folder that stands for its root. "" where there is neither.
std::string stateFolder();

/// The folder "navora" of XDG_DATA_HOME, which is "~/.local/share" if it is not set or no absolute path; ""
/// without a home folder, and in a privileged process.
std::string userDataFolder();

/// The same of XDG_CONFIG_HOME, which is "~/.config" if it is not set.
std::string configFolder();

/// Writes a file in such a way that a power cut leaves the old one or the new one; makes its folder first.
/// Returns whether it could; else errno tells why not, and the old file is as it was.
bool writeDurably(const std::string& path, const std::string& content);

/// The same for a file of the state folder.
bool writeStateFile(const std::string& name, const std::string& content);

/// Reads a file of up to a megabyte. Returns whether there is such a file; `content` is that of a readable
/// one.
bool readSmallFile(const std::string& path, std::string& content);

} // namespace navora
