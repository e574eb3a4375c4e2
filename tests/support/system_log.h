#pragma once

/// From now on, notes in the file handle `report` what goes to the system log of this process, instead of
/// sending it there: takes the place of openlog, vsyslog and closelog. Meant for a child process (see
/// child_process.h), since it lasts to its very end.
///
///     openlog [NAME] option 1 facility 0
///     vsyslog priority 7 [MESSAGE]
///     closelog
void noteSystemLogIn(int report);
