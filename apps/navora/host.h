#pragma once

namespace navora {

/// Closes what initJoyStick has opened; before SDL shuts down.
void closeJoysticks();

} // namespace navora
