#pragma once

#include "support/host.h"
#include "support/log_capture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

/// Every test's world: an empty working folder of its own, a device root inside it, a fresh host, and an
/// eye on the log. A test that leaves log lines unread fails: it must take them and say what they are.
class KestroTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// What was logged since the last call.
    std::string takeLog();

    /// The working folder, without a trailing slash.
    const std::string& folder() const { return mFolder; }

    /// `path` (absolute, such as "/tmp/x") inside this test's device root.
    std::string onDevice(const std::string& path) const { return mFolder + "/device" + path; }

    /// Creates a file with its folders, or takes it away.
    static void writeFile(const std::string& path, const std::string& content);
    static std::string readFile(const std::string& path);

private:
    std::string mFolder;
    std::optional<LogCapture> mLog;
    std::string mTaken; // out of the log already, but not by the test

    class FailurePrinter;
    static void printFailuresBesideTheLog();
};
