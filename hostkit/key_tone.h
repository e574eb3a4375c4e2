#pragma once

namespace hostkit {

/// Opens the sound device and gives the library its key tone (gKeyChunk), as loud as the settings say: the
/// theme's "sound/key-tone.wav", else "./sound/key-tone.wav", else a soft drop of the kit's own. Without a
/// sound device there is no tone. Not while the window loop runs; after the screen is open. Main thread, like
/// everything here.
void startKeyTone();

/// Gives the tone the loudness of the settings, volume and key tone switch. At any time.
void applyKeyToneVolume();

/// Takes the tone away and closes the sound device. Not while the window loop runs.
void stopKeyTone();

} // namespace hostkit
