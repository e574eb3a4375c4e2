#include "support/scarce_sdl.h"
#include "support/thread_wait.h"
#include "support/threads.h"
#include "support/work_thread_test.h"

#include <atomic>
#include <deque>
#include <memory>
#include <random>

// The beginning and the end of work threads, and many jobs.

namespace {

class WorkThreadEndTest : public WorkThreadTest {
protected:
    void TearDown() override { gScarceSdl = {}; }

    std::unique_ptr<BGWorkThread> made = std::make_unique<BGWorkThread>(5);

    /// Deletes the thread while a job runs, which may end once the deletion waits for it.
    void endWhileBusy() {
        const ThreadWait wait([this] { gate.open(); });
        delete made.release(); // not reset: the jobs may still add to it
    }
};

/// The order of jobs, told a second time: what a full list drops, and which job is next.
class OrderModel {
public:
    explicit OrderModel(size_t bound) : mBound(bound) {}

    Entries add(const std::string& name) {
        Entries gone;
        if (mPending.size() == mBound) {
            gone = dropped({mPending.front()});
            mPending.pop_front();
        }
        mPending.push_back(name);
        return gone;
    }

    std::string next() {
        const std::string name = mPending.back();
        mPending.pop_back();
        return name;
    }

    bool empty() const { return mPending.empty(); }

private:
    size_t mBound;
    std::deque<std::string> mPending; // oldest first
};

/// A job that waits until it is told to end.
class StepJob : public NotedJob {
public:
    StepJob(JobLog& log, const std::string& name, std::shared_ptr<Gate> end)
        : NotedJob(log, name, [end = std::move(end)] { end->pass(); }) {}
};

} // namespace

TEST_F(WorkThreadEndTest, ThreadLivesAsLongAsTheObject) {
    EXPECT_TRUE(threadAppears("bgworker"));
    EXPECT_EQ(threadsNamed("bgworker"), 1);
    made.reset();
    EXPECT_TRUE(threadDisappears("bgworker"));
}

TEST_F(WorkThreadEndTest, ThreadReturns0) {
    for (const bool busy : {false, true}) {
        made = std::make_unique<BGWorkThread>(5);
        if (busy)
            keepBusy(*made);
        const ThreadWait wait([this] { gate.open(); });
        made.reset();
        EXPECT_EQ(wait.returned(), 0);
    }
    log.take();
}

TEST_F(WorkThreadEndTest, JobsThatStillWaitAreDeletedUnrunAfterTheOneThatRuns) {
    keepBusy(*made);
    add(*made, {"A", "B", "C"});
    endWhileBusy();
    EXPECT_EQ(log.take(), (Entries{"complete busy", "delete busy", "delete C", "delete B", "delete A"}));
}

TEST_F(WorkThreadEndTest, JobsThatStillWaitAreDeletedByWhoDeletesTheThread) {
    std::thread::id deleter;
    keepBusy(*made);
    made->addWorker(job("A", {}, [&deleter] { deleter = std::this_thread::get_id(); }));
    endWhileBusy();
    EXPECT_EQ(deleter, std::this_thread::get_id());
    log.take();
}

TEST_F(WorkThreadEndTest, NullThatStillWaitsHidesNoJob) {
    keepBusy(*made);
    add(*made, {"A"});
    made->addWorker(nullptr);
    add(*made, {"B"});
    made->addWorker(nullptr);
    endWhileBusy();
    EXPECT_EQ(log.take(), (Entries{"complete busy", "delete busy", "delete B", "delete A"}));
}

TEST_F(WorkThreadEndTest, JobAddedByTheLastJobIsDeletedUnrun) {
    BGWorkThread& thread = *made;
    thread.addWorker(job("A", [&] {
        gate.pass();
        add(thread, {"B"});
    }));
    log.takeUpTo("process A");
    endWhileBusy();
    EXPECT_EQ(log.take(), (Entries{"complete A", "delete A", "delete B"}));
}

TEST_F(WorkThreadEndTest, JobAddedWhileTheRestIsDeletedIsDeletedToo) {
    BGWorkThread& thread = *made;
    keepBusy(thread);
    thread.addWorker(job("A", {}, [&] { thread.addWorker(job("B")); }));
    endWhileBusy();
    EXPECT_EQ(log.take(), (Entries{"complete busy", "delete busy", "delete A", "delete B"}));
}

TEST_F(WorkThreadEndTest, EndWaitsForTheJobThatRuns) {
    bool done = false;
    made->addWorker(job("A", [&] {
        gate.pass();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        done = true;
    }));
    log.takeUpTo("process A");
    endWhileBusy();
    EXPECT_TRUE(done);
}

TEST_F(WorkThreadEndTest, WithoutMutexConditionOrThreadJobsOnlyWait) {
    for (const ScarceSdl& scarce :
         {ScarceSdl{true, false, false}, ScarceSdl{false, true, false}, ScarceSdl{false, false, true}}) {
        made.reset();
        gScarceSdl = scarce;
        made = std::make_unique<BGWorkThread>(2);
        add(*made, {"A", "B", "C"});
        EXPECT_EQ(log.take(), dropped({"A"}));
        delete made->getWorker();
        EXPECT_EQ(log.take(), dropped({"C"}));
        made.reset();
        EXPECT_EQ(log.take(), dropped({"B"}));
    }
}

TEST_F(WorkThreadEndTest, StartsAndStopsAThousandTimes) {
    std::atomic<int> processed{0};
    for (int i = 0; i < 1000; ++i) {
        BGWorkThread thread(1 + i % 3);
        for (int j = 0; j < i % 4; ++j)
            thread.addWorker(job("", [&processed] { ++processed; }));
    }
    const Entries entries = log.take();
    EXPECT_EQ(std::count(entries.begin(), entries.end(), "delete "), 1500) << "every job, run or not";
    EXPECT_EQ(std::count(entries.begin(), entries.end(), "process "), processed);
    EXPECT_EQ(std::count(entries.begin(), entries.end(), "complete "), processed);
}

TEST_F(WorkThreadEndTest, ScriptedJobsRunInTheOrderOfTheModel) {
    std::mt19937 random(11);
    BGWorkThread thread(4);
    OrderModel model(4);
    std::deque<std::shared_ptr<Gate>> gates;
    const auto addOne = [&](const std::string& name) {
        gates.push_back(std::make_shared<Gate>());
        thread.addWorker(new StepJob(log, name, gates.back()));
    };
    addOne("0");
    log.takeUpTo("process 0");
    std::string running = "0";
    for (int number = 1; number < 300;) {
        for (auto more = random() % 7; more > 0; --more, ++number) {
            addOne(std::to_string(number));
            EXPECT_EQ(log.take(), model.add(std::to_string(number)));
        }
        if (model.empty())
            continue;
        gates[static_cast<size_t>(std::stoi(running))]->open();
        const std::string next = model.next();
        EXPECT_EQ(log.takeUpTo("process " + next),
                  (Entries{"complete " + running, "delete " + running, "process " + next}));
        running = next;
    }
    for (const auto& end : gates)
        end->open();
}

TEST_F(WorkThreadEndTest, JobsOfManyThreadsAreEachDeletedOnce) {
    constexpr int each = 500;
    std::atomic<int> deleted{0};
    std::vector<std::thread> submitters;
    for (int i = 0; i < 4; ++i)
        submitters.emplace_back([&] {
            for (int j = 0; j < each; ++j)
                made->addWorker(job("", {}, [&deleted] { ++deleted; }));
        });
    for (std::thread& submitter : submitters)
        submitter.join();
    made.reset();
    EXPECT_EQ(deleted, 4 * each);
    const Entries entries = log.take();
    EXPECT_EQ(std::count(entries.begin(), entries.end(), "process "),
              std::count(entries.begin(), entries.end(), "complete "));
}
