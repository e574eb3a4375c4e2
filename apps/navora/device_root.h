#pragma once

#include <string>

namespace navora {

/// Names the folder that stands for the device's root to the library and to the programs that are started, in
/// the environment variable KESTRO_DEVICE_ROOT: `given`, else what that variable names already, else, where
/// the machine is no device (there is no /mnt/UDISK) and the process is not privileged, "device" in
/// userDataFolder(), which is made if it is not there. So settings are kept on any machine.
///
/// Returns the folder that somebody has asked for, "" if nobody has: then there is nothing to play with.
/// A folder that cannot be made is named on standard error. Before the session; main thread.
std::string useDeviceRoot(const std::string& given);

} // namespace navora
