#pragma once

#include <functional>
#include <string>
#include <vector>

/// Times of one operation beside its peers, in one process and interleaved, so that whatever else the machine
/// does falls on all of them alike. Only ratios leave a benchmark: times are as good as the machine they were
/// taken on.
namespace bench {

/// One way to do the work.
struct Contender {
    std::string name;
    std::function<void()> run;          ///< does the work once; its time is taken
    std::function<void()> prepare = {}; ///< brings back what a run used up, before each; not timed
    bool waits = false; ///< for other processes: takes the time that passes, not the processor's
};

/// The median time of one run of each of `contenders`, in nanoseconds, in their order. Every contender takes
/// its turn in every round: 15 rounds, or KESTRO_BENCH_ROUNDS of the environment where that is set. A
/// contender without `prepare` runs as often in a turn as fills KESTRO_BENCH_MILLISECONDS (default 10).
std::vector<double> medianTimes(const std::vector<Contender>& contenders);

/// Prints one row of the table: `operation`, the peer or limit it is compared with, the ratio of times or
/// counts, the largest ratio that is wanted (0: none, the row is only to know), and optionally how long the
/// operation itself took.
void report(const std::string& operation, const std::string& peer, double ratio, double goal,
            double nanoseconds = 0);

/// Measures `ours` beside `peer`, and reports the ratio.
double compare(const std::string& operation, const Contender& ours, const Contender& peer, double goal);

double geometricMean(const std::vector<double>& ratios);

/// Keeps the compiler from leaving out work whose result nobody reads.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

} // namespace bench
