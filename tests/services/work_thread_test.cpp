#include "support/work_thread_test.h"
#include "support/threads.h"
#include "support/virtual_slot.h"

#include <atomic>
#include <climits>
#include <deque>
#include <future>
#include <memory>
#include <pthread.h>
#include <type_traits>

TEST_F(WorkThreadTest, JobIsProcessedCompletedAndDeleted) {
    BGWorkThread thread(2);
    EXPECT_EQ(thread.addWorker(job("A")), 0);
    EXPECT_EQ(log.takeUpTo("delete A"), ran({"A"}));
}

TEST_F(WorkThreadTest, AllOfItHappensOnTheThreadBgworker) {
    const auto note = [this] {
        char name[16];
        pthread_getname_np(pthread_self(), name, sizeof name);
        log.add(name);
    };
    BGWorkThread thread(2);
    thread.addWorker(job("A", note, note));
    EXPECT_EQ(log.takeUpTo("delete A"), (Entries{"process A", "bgworker", "complete A", "delete A"}));
    EXPECT_EQ(log.takeUpTo("bgworker"), Entries{"bgworker"});
}

TEST_F(WorkThreadTest, NewestJobRunsFirst) {
    BGWorkThread thread(10);
    keepBusy(thread);
    add(thread, {"A", "B", "C", "D"});
    EXPECT_EQ(finish("A"), ran({"D", "C", "B", "A"}));
}

TEST_F(WorkThreadTest, FullListDropsItsOldestJob) {
    BGWorkThread thread(2);
    keepBusy(thread);
    add(thread, {"J1", "J2"});
    EXPECT_EQ(log.take(), Entries());
    add(thread, {"J3"});
    EXPECT_EQ(log.take(), dropped({"J1"})) << "before addWorker returns";
    EXPECT_EQ(finish("J2"), ran({"J3", "J2"}));
}

TEST_F(WorkThreadTest, EachCallDropsOneJob) {
    BGWorkThread thread(3);
    keepBusy(thread);
    add(thread, {"1", "2", "3"});
    for (int i = 4; i < 10; ++i) {
        add(thread, {std::to_string(i)});
        EXPECT_EQ(log.take(), dropped({std::to_string(i - 3)}));
    }
    EXPECT_EQ(finish("7"), ran({"9", "8", "7"}));
}

TEST_F(WorkThreadTest, JobThatRunsDoesNotCount) {
    BGWorkThread thread(1);
    keepBusy(thread);
    add(thread, {"A"});
    EXPECT_EQ(log.take(), Entries());
    EXPECT_EQ(finish("A"), ran({"A"}));
}

class DefaultBoundTest : public WorkThreadTest, public testing::WithParamInterface<int> {};

TEST_P(DefaultBoundTest, IsFive) {
    BGWorkThread thread(GetParam());
    keepBusy(thread);
    add(thread, {"1", "2", "3", "4", "5"});
    EXPECT_EQ(log.take(), Entries());
    add(thread, {"6"});
    EXPECT_EQ(log.take(), dropped({"1"}));
    EXPECT_EQ(finish("2"), ran({"6", "5", "4", "3", "2"}));
}

INSTANTIATE_TEST_SUITE_P(NoBound, DefaultBoundTest, testing::Values(0, -3, INT_MIN));

TEST_F(WorkThreadTest, BoundMayBeAsLargeAsAnInteger) {
    BGWorkThread thread(INT_MAX);
    keepBusy(thread);
    for (int i = 0; i < 1000; ++i)
        thread.addWorker(job(std::to_string(i)));
    EXPECT_EQ(log.take(), Entries());
    EXPECT_THAT(finish("0"), testing::SizeIs(3000));
}

TEST_F(WorkThreadTest, JobAddedByAJobRunsNext) {
    BGWorkThread thread(5);
    thread.addWorker(job("A", [&] {
        add(thread, {"B", "C"});
        thread.addWorker(job("D", [&] { add(thread, {"E"}); }));
    }));
    EXPECT_EQ(log.takeUpTo("delete B"), ran({"A", "D", "E", "C", "B"}));
}

TEST_F(WorkThreadTest, JobMayAddAnotherFromItsDestructor) {
    BGWorkThread thread(5);
    thread.addWorker(job("A", {}, [&] { add(thread, {"B"}); }));
    EXPECT_EQ(log.takeUpTo("delete B"), ran({"A", "B"}));
}

TEST_F(WorkThreadTest, DroppedJobMayAddAnotherFromItsDestructor) {
    BGWorkThread thread(2);
    keepBusy(thread);
    thread.addWorker(job("A", {}, [&] { add(thread, {"again"}); }));
    add(thread, {"B"});
    add(thread, {"C"});
    EXPECT_EQ(log.take(), dropped({"A", "B"})) << "B gives its place to the job that A has added";
    EXPECT_EQ(finish("C"), ran({"again", "C"}));
}

TEST_F(WorkThreadTest, GetWorkerTakesTheNewestJobOut) {
    BGWorkThread thread(5);
    EXPECT_EQ(thread.getWorker(), nullptr);
    keepBusy(thread);
    BGWorker* const a = job("A");
    BGWorker* const b = job("B");
    thread.addWorker(a);
    thread.addWorker(b);
    add(thread, {"C"});
    const std::unique_ptr<BGWorker> c(thread.getWorker());
    const std::unique_ptr<BGWorker> second(thread.getWorker());
    EXPECT_EQ(second.get(), b);
    EXPECT_EQ(log.take(), Entries()) << "they are the caller's now";
    EXPECT_EQ(finish("A"), ran({"A"}));
    EXPECT_EQ(thread.getWorker(), nullptr);
}

TEST_F(WorkThreadTest, NullTakesAPlaceButIsNotRun) {
    BGWorkThread thread(2);
    keepBusy(thread);
    add(thread, {"A", "B"});
    EXPECT_EQ(thread.addWorker(nullptr), 0);
    EXPECT_EQ(log.take(), dropped({"A"}));
    EXPECT_EQ(finish("B"), ran({"B"}));
    add(thread, {"C"});
    EXPECT_EQ(log.takeUpTo("delete C"), ran({"C"})) << "the thread has gone on";
}

TEST_F(WorkThreadTest, NullIsDroppedLikeAJob) {
    BGWorkThread thread(1);
    keepBusy(thread);
    thread.addWorker(nullptr);
    add(thread, {"A"});
    EXPECT_EQ(log.take(), Entries());
    EXPECT_EQ(finish("A"), ran({"A"}));
}

TEST_F(WorkThreadTest, BodyReturns0AtOnceForNull) {
    EXPECT_EQ(BGWorkThread::work_thread(nullptr), 0);
}

TEST_F(WorkThreadTest, ThreadsWorkBesideEachOther) {
    BGWorkThread first(1);
    BGWorkThread second(1);
    keepBusy(first);
    add(second, {"A"});
    EXPECT_EQ(log.takeUpTo("delete A"), ran({"A"}));
    gate.open();
}

TEST_F(WorkThreadTest, OneJobRunsAtATime) {
    std::atomic<int> running{0};
    std::atomic<int> most{0};
    const auto work = [&] {
        most = std::max(most.load(), ++running);
        std::this_thread::yield();
        --running;
    };
    BGWorkThread thread(100);
    keepBusy(thread);
    thread.addWorker(job("last", work));
    for (int i = 0; i < 50; ++i)
        thread.addWorker(job("", work));
    EXPECT_THAT(finish("last"), testing::SizeIs(51 * 3));
    EXPECT_EQ(most, 1);
}

/// Asks, from yet another thread, for the lock of a work thread.
class LockProbe {
public:
    explicit LockProbe(BGWorkThread& thread) : mThread(thread) {}

    bool isFree() {
        mAnswers.push_back(std::async(std::launch::async, [this] { delete mThread.getWorker(); }));
        return mAnswers.back().wait_for(std::chrono::seconds(5)) == std::future_status::ready;
    }

private:
    BGWorkThread& mThread;
    std::deque<std::future<void>> mAnswers; // kept: their end waits for the answer
};

/// A job that notes whether the lock is free, at each of its steps.
class ProbingJob : public BGWorker {
public:
    ProbingJob(JobLog& log, LockProbe& probe) : mLog(log), mProbe(probe) {}
    ~ProbingJob() override { note("delete"); }
    void process() override { note("process"); }
    void complete() override { note("complete"); }

private:
    JobLog& mLog;
    LockProbe& mProbe;

    void note(const std::string& step) { mLog.add(step + (mProbe.isFree() ? " free" : " locked")); }
};

TEST_F(WorkThreadTest, TheLockIsFreeWhileAJobRunsAndCompletesAndIsDeleted) {
    BGWorkThread thread(5);
    LockProbe probe(thread);
    thread.addWorker(new ProbingJob(log, probe));
    EXPECT_EQ(log.takeUpTo("delete free"), (Entries{"process free", "complete free", "delete free"}));
}

TEST_F(WorkThreadTest, TheLockIsFreeWhileADroppedJobIsDeleted) {
    BGWorkThread thread(1);
    LockProbe probe(thread);
    keepBusy(thread);
    thread.addWorker(new ProbingJob(log, probe));
    thread.addWorker(nullptr);
    EXPECT_EQ(log.take(), Entries{"delete free"});
    gate.open();
}

TEST(WorkThreadInterfaceTest, OperationsStandInTheirSlots) {
    EXPECT_EQ(virtualSlot(&BGWorker::process), 2);
    EXPECT_EQ(virtualSlot(&BGWorker::complete), 3);
    EXPECT_TRUE(std::has_virtual_destructor_v<BGWorker>);
    EXPECT_FALSE(std::is_polymorphic_v<BGWorkThread>);
}

TEST(WorkThreadInterfaceTest, BelongsToOneHolder) {
    EXPECT_FALSE(std::is_copy_constructible_v<BGWorkThread>);
    EXPECT_FALSE(std::is_copy_assignable_v<BGWorkThread>);
    EXPECT_FALSE((std::is_convertible_v<int, BGWorkThread>));
}
