#include "bench/support/comparison.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace bench {

namespace {

using Nanoseconds = std::chrono::duration<double, std::nano>;

double setting(const char* name, double otherwise) {
    const char* const text = getenv(name);
    return text ? std::max(atof(text), 0.0) : otherwise;
}

/// The time that this thread has had a processor for, which leaves out what else the machine does; or the
/// time of day, for work that is not done by this thread.
Nanoseconds now(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

double nanosecondsOf(const Contender& contender, long runs) {
    const clockid_t clock = contender.waits ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID;
    if (contender.prepare)
        contender.prepare();
    const Nanoseconds begin = now(clock);
    for (long run = 0; run < runs; ++run)
        contender.run();
    const Nanoseconds passed = now(clock) - begin;
    return passed.count() / static_cast<double>(runs);
}

/// How many runs fill a turn. The first run, which pays for cold caches, is not looked at.
long runsPerTurn(const Contender& contender) {
    nanosecondsOf(contender, 1);
    if (contender.prepare)
        return 1;
    const double turn = setting("KESTRO_BENCH_MILLISECONDS", 10) * 1e6;
    return std::max(1L, static_cast<long>(turn / std::max(nanosecondsOf(contender, 1), 1.0)));
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace

std::vector<double> medianTimes(const std::vector<Contender>& contenders) {
    std::vector<long> runs;
    for (const Contender& contender : contenders)
        runs.push_back(runsPerTurn(contender));
    std::vector<std::vector<double>> times(contenders.size());
    const long rounds = std::max(1L, static_cast<long>(setting("KESTRO_BENCH_ROUNDS", 15)));
    for (long round = 0; round < rounds; ++round)
        for (size_t which = 0; which < contenders.size(); ++which)
            times[which].push_back(nanosecondsOf(contenders[which], runs[which]));
    std::vector<double> medians;
    for (const std::vector<double>& taken : times)
        medians.push_back(median(taken));
    return medians;
}

// Tabs between the fields: the log of the library may stand between the rows.
void report(const std::string& operation, const std::string& peer, double ratio, double goal,
            double nanoseconds) {
    printf("BENCH\t%s\t%s\t%.4g\t%.4g\t%.4g\n", operation.c_str(), peer.c_str(), ratio, goal, nanoseconds);
    fflush(stdout);
}

double compare(const std::string& operation, const Contender& ours, const Contender& peer, double goal) {
    const std::vector<double> times = medianTimes({ours, peer});
    const double ratio = times[0] / times[1];
    report(operation, peer.name, ratio, goal, times[0]);
    return ratio;
}

double geometricMean(const std::vector<double>& ratios) {
    double sum = 0;
    for (const double ratio : ratios)
        sum += std::log(ratio);
    return ratios.empty() ? 0 : std::exp(sum / static_cast<double>(ratios.size()));
}

} // namespace bench
