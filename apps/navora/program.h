#pragma once

#include "hostkit/session.h"
#include "navora/page.h"

#include <string>

namespace navora {

/// Reads which programs there are. Once, before openGame.
void startPrograms();

/// Opens a file: by its program, if there is one for its kind, else by the page of its details. For a program
/// the loop is left, with the place kept (see place.h), and runWaitingProgram is to follow. A message tells
/// of a program or a file that is missing. Returns the loop code.
int openGame(Shell& shell, const std::string& path);

/// Queues the page with the details of a file; does nothing for one that is not there.
void showDetails(Shell& shell, const std::string& path);

/// Whether openGame has left the loop for a program.
bool programWaits();

/// Runs that program on the screen that `session` gives up for it. Returns whether the launcher goes on: the
/// screen is back then, and a message about a program that has failed waits for the next loop.
bool runWaitingProgram(hostkit::Session& session, Shell& shell);

} // namespace navora
