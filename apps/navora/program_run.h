#pragma once

#include <string>
#include <vector>

namespace navora {

/// How a program came to its end.
struct ProgramEnd {
    bool missing = false;      ///< it could not be started at all
    bool endRequested = false; ///< the launcher was asked to end meanwhile, and so was the program
    int code = 0;              ///< its exit code; 128 and the signal's number after a signal
};

/// Whether there is such a program: as a path, or by name in PATH.
bool hasProgram(const std::string& program);

/// Runs a program in the folder `folder` and waits for its end; `command` has its arguments, itself first. No
/// shell is involved, and nothing that is open here is handed on but standard output and error. SIGTERM,
/// SIGINT and SIGHUP end the program, three seconds later the hard way. Main thread; no other thread may take
/// these signals, which SDL's threads do not.
ProgramEnd runProgram(const std::vector<std::string>& command, const std::string& folder);

} // namespace navora
