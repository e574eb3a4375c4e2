#pragma once

#include "menu/action.h"

#include <functional>
#include <vector>

/// What happened to recorded actions.
struct ActionLog {
    std::vector<void*> ran;          ///< the rows given to dowork
    std::vector<void*> ranSecondary; ///< the rows given to xdowork
    int deleted = 0;
};

/// An action that notes its runs in a log that outlives it, and answers as the test says.
class RecordedAction : public Action {
public:
    explicit RecordedAction(ActionLog& log, int result = 0) : mLog(log), mResult(result) {}
    ~RecordedAction() override { ++mLog.deleted; }

    /// What to do during a run, if anything. It may delete the action.
    std::function<void()> onRun;

    int dowork(void* row) override { return run(mLog.ran, row); }
    int xdowork(void* row) override { return run(mLog.ranSecondary, row); }

private:
    ActionLog& mLog;
    int mResult;

    int run(std::vector<void*>& rows, void* row) const {
        rows.push_back(row);
        const int result = mResult;
        if (const auto during = onRun)
            during();
        return result;
    }
};
