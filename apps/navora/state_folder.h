#pragma once

#include <string>

namespace navora {

/// The folder of what the launcher keeps for itself, without "/" at its end: "/mnt/UDISK/navora" on the
/// device and below a device root; else "navora" in XDG_DATA_HOME, which is
/// "~/.local/share" if it is not set. "" if there is no such place either.
std::string stateFolder();

/// The folder "navora" of XDG_CONFIG_HOME, which is "~/.config" if it is not set; "" if there is none.
std::string configFolder();

/// Writes a file of the state folder, which is made if need be: whole, or not at all. Returns whether it
/// could.
bool writeStateFile(const std::string& name, const std::string& content);

/// Reads a file of up to a megabyte. Returns whether there is such a file; `content` is that of a readable
/// one.
bool readSmallFile(const std::string& path, std::string& content);

} // namespace navora
