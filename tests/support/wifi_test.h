#pragma once

#include "services/wifi_monitor.h"
#include "support/kestro_test.h"

#include <string>

/// A test with a Wi-Fi client, and with processes, on the device. There is no process until one is added.
class WifiTest : public KestroTest {
protected:
    void SetUp() override;

    /// Makes a process with this command, whose arguments have zero bytes between them, or ends it.
    void addProcess(const std::string& id, const std::string& command) const;
    void endProcess(const std::string& id) const;

    /// Puts a client into the device that answers the two commands like this, and notes each of its calls in
    /// the file "called".
    void addClient(const std::string& status, const std::string& signalPoll) const;

    /// Puts one there that runs these lines of a shell, in which "$5" is the command.
    void addClientThatRuns(const std::string& lines) const;

    /// The calls of the client since the last call of this, a line each.
    static std::string takeCalls();
};
