#pragma once

#include <functional>
#include <string>
#include <sys/types.h>
#include <vector>

/// A program that was started. Killed at the latest when this goes.
class Process {
public:
    /// `environment` is added to this process's own, which has no display; "NAME" alone takes a name out.
    /// `folder` is where the program starts, "" for here.
    Process(const std::vector<std::string>& command, const std::vector<std::string>& environment,
            const std::string& folder);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Waits for the end and returns the exit code; minus the signal's number for a program that a signal
    /// has ended, and -9 for one that did not end in time.
    int wait();

    void signal(int number) const;
    bool isRunning();

    /// What it has written up to now.
    std::string output() const;
    std::string errors() const;

private:
    std::string mFiles; // a folder of its own, with "out" and "err"
    pid_t mId = -1;
    int mExitCode = 0;
    bool mEnded = false;
};

/// Looks every few milliseconds whether `holds` returns true, for as long as a slow machine may need.
/// Returns whether it did.
bool eventually(const std::function<bool()>& holds);
