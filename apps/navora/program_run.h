#pragma once

#include <array>
#include <csignal>
#include <iterator>
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

/// While it lives, SIGTERM, SIGINT and SIGHUP do not end the launcher but are noted, in whichever thread they
/// arrive. To be made before SDL is shut down for a program, which gives the signals back their deadly
/// meaning, and to live until SDL has started again. One at a time; main thread.
class SignalWatch {
public:
    SignalWatch();
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    /// Whether one of them has come.
    bool endRequested() const;

private:
    static constexpr int sSignals[] = {SIGTERM, SIGINT, SIGHUP, SIGCHLD};
    std::array<struct sigaction, std::size(sSignals)> mBefore{};
};

/// Runs a program in the folder `folder` and waits for its end; `command` has its arguments, itself first. No
/// shell is involved, and nothing that is open here is handed on but standard output and error. A signal that
/// `signals` notes ends the program, three seconds later the hard way. Main thread.
ProgramEnd runProgram(const std::vector<std::string>& command, const std::string& folder,
                      const SignalWatch& signals);

} // namespace navora
