#pragma once

namespace navora {

/// Opens the sound device and gives the library its key tone. Without sound there is no tone.
void startKeyTone();

/// Gives the tone the loudness of the settings; none if they switch it off.
void applyKeyToneVolume();

/// Takes the tone away and closes the sound device. Not while the window loop runs.
void stopKeyTone();

} // namespace navora
