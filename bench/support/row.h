// A row of the table: one function of the library, its peers and the machine's limit, timed in turns on the same data.
//
//     const bench::Rows add{[] {
//         bench::rows("arith", "add32f", {1 << 10, 1 << 15, 1 << 22}, [](bench::Row& row, int n) {
//             const float* a = row.array<float>(n);
//             const float* b = row.array<float>(n);
//             float* d = row.array<float>(n);
//             row.limit({a, b}, d, n * sizeof(float));
//             row.ours([=] { return orvsAdd_32f(a, b, d, n); });
//             row.peer("loop", [=] { loops::add(a, b, d, n); });
//         });
//     }};
#ifndef ORV_BENCH_SUPPORT_ROW_H
#define ORV_BENCH_SUPPORT_ROW_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "bench/support/arrays.h"
#include "bench/support/options.h"
#include "orvs/types.h"

namespace bench {

class Row {
public:
    /// n elements of noise that live as long as the row; see Arrays. In-place functions work on one as well.
    template <class T>
    T* array(int n)
    {
        return arrays.make<T>(static_cast<std::size_t>(n), static_cast<std::size_t>(options.misalign));
    }

    /// The library's function. f returns its status: a call that is refused would look very fast.
    template <class F>
    void ours(F f)
    {
        status = f();
        add("ours", f);
    }

    /// Another program's function for the same job.
    template <class F>
    void peer(const char* name, F f)
    {
        add(name, f);
    }

    /// Nobody is faster than memory: the time to read bytes from each source (up to three) and to write bytes to dst.
    /// A null dst only reads; a dst that is among the sources is updated in place.
    void limit(std::initializer_list<const void*> sources, void* dst, std::size_t bytes);

    /// The same for a source and a destination of different sizes.
    void limit_resized(const void* src, std::size_t src_bytes, void* dst, std::size_t dst_bytes);

    /// Nobody is faster than the multipliers: the time of that many floating operations, two for a multiply-add.
    /// With both limits, the longer time counts. T is float, double or Orv16s. The table then shows the rate of ours.
    template <class T>
    void limit_operations(double operations);

    /// Nobody is faster than the converters: the time to widen that many floats to doubles, in place of operations.
    void limit_widening(double values);

    /// Times all entries in turns. Returns what the first call of ours returned.
    OrvStatus measure();

    /// Least nanoseconds of a call, by name: limit, ours, peers; and operations, the number that was given as a limit.
    benchmark::UserCounters results() const;

private:
    struct Entry {
        std::string name;
        std::function<void(long)> run; ///< that many calls in a row
        double share = 1;              ///< of a call's time that counts
        long calls = 1;                ///< in a block
        double least = std::numeric_limits<double>::infinity();
    };

    template <class F>
    void add(const char* name, F f)
    {
        entries.push_back({name, [f](long calls) {
                               for (long i = 0; i < calls; ++i) {
                                   f();
                                   benchmark::ClobberMemory();
                               }
                           }});
    }

    void limit_rate(void (*loop)(double), double count);

    Arrays arrays;
    std::vector<Entry> entries;
    double operations = 0;
    OrvStatus status = orvOk;
};

/// What a size counts; it only shows in the table.
enum class Unit { elements, bytes };

/// Declares one row for each size n: build puts the entries into the row when its turn comes.
void rows(const std::string& family, const std::string& kind, const std::vector<int>& sizes,
          const std::function<void(Row&, int n)>& build, Unit unit = Unit::elements);

/// A file's rows: constructed before main, which calls declare once it has read the command line.
class Rows {
public:
    explicit Rows(void (*declare)());
    static void declare_all();
};

} // namespace bench

#endif
