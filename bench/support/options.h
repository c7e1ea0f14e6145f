// What the command line asks of every row.
#ifndef ORV_BENCH_SUPPORT_OPTIONS_H
#define ORV_BENCH_SUPPORT_OPTIONS_H

namespace bench {

struct Options {
    double min_time = 0.5; ///< seconds a row is measured at least (--benchmark_min_time)
    int misalign = 0;      ///< elements between a cache-line boundary and the start of each array (--misalign)

    /// With next to no time to measure, a run only shows that every row works: one call of each entry, short arrays.
    bool smoke() const { return min_time <= 0.001; }
};

inline Options options;

} // namespace bench

#endif
