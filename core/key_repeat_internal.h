#pragma once

namespace kestro {

/// Clears the tables and starts the thread. Runs nest: only the outermost call starts it.
void startKeyRepeat();

/// Ends the thread and waits for it, in the outermost run.
void stopKeyRepeat();

/// Plays the key tone, if there is one.
void playKeyTone();

/// Answers a quit event: closes the screen, whose renderer would otherwise outlive its window, and calls
/// SDL_Quit while the key-repeat thread stands aside.
void quitSdl();

} // namespace kestro
