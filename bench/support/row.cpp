#include "bench/support/row.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <random>

#include "bench/support/limits.h"

namespace bench {

void Row::limit(std::initializer_list<const void*> sources, void* dst, std::size_t bytes)
{
    Streams streams;
    for (const void* source : sources) streams.source[streams.sources++] = static_cast<const char*>(source);
    streams.dst = static_cast<char*>(dst);
    streams.bytes = bytes;

    add("limit_long_steps", [=] { move_streams(streams); });
    if (dst) add("limit_short_steps", [=] { move_streams_in_short_steps(streams); });
    const bool in_place = std::find(sources.begin(), sources.end(), dst) != sources.end();
    const std::size_t touched = bytes * (sources.size() + (dst && !in_place));
    // Well below the size of the largest cache already, which is shared with other programs and machines.
    if (dst && touched > largest_cache() / 4) add("limit_past_caches", [=] { move_streams_past_caches(streams); });
}

void Row::limit_resized(const void* src, std::size_t src_bytes, void* dst, std::size_t dst_bytes)
{
    if (src_bytes == dst_bytes) return limit({src}, dst, dst_bytes);
    const Resizing sizes = {static_cast<const char*>(src), src_bytes, static_cast<char*>(dst), dst_bytes};
    add("limit_long_steps", [=] { move_resized(sizes); });
    if (src_bytes + dst_bytes > largest_cache() / 4) add("limit_past_caches", [=] { move_resized_past_caches(sizes); });
}

void Row::limit_rate(void (*loop)(double), double count)
{
    const double timed = std::max(count, 1e5); // a few alone would take the time in which the chains start and end
    add("limit_rate", [=] { loop(timed); });
    entries.back().share = count / timed;
}

template <class T>
void Row::limit_operations(double n)
{
    if constexpr (std::is_same_v<T, float>) limit_rate(multiply_add_32f, n);
    else if constexpr (std::is_same_v<T, double>) limit_rate(multiply_add_64f, n);
    else limit_rate(multiply_add_16s, n);
    operations = n;
}

void Row::limit_widening(double values) { limit_rate(widen_32f, values); }

template void Row::limit_operations<float>(double);
template void Row::limit_operations<double>(double);
template void Row::limit_operations<Orv16s>(double);

// On a shared machine every disturbance adds time, and none takes time away, so the least of many short blocks is the
// best estimate of what the code costs. Entries take turns block by block: a slow second of the machine then hits all
// of them, and each meets the quiet moments. Google Benchmark's own repetitions would run the entries of a row seconds
// or minutes apart. A random order in each round keeps an entry from always following the same other.
OrvStatus Row::measure()
{
    using Clock = std::chrono::steady_clock;
    const auto seconds = [](Clock::duration d) { return std::chrono::duration<double>(d).count(); };

    // Long beside the clock's own 30 ns, short beside the time between two interrupts.
    const double block = options.smoke() ? 0 : 20e-6;
    const int min_rounds = options.smoke() ? 1 : 20; // of memory-sized rows, where a call takes milliseconds

    std::minstd_rand random;
    std::vector<Entry*> order;
    for (Entry& entry : entries) order.push_back(&entry);

    const Clock::time_point begin = Clock::now();
    for (int rounds = 0; rounds < min_rounds || seconds(Clock::now() - begin) < options.min_time;) {
        std::shuffle(order.begin(), order.end(), random);
        bool complete = true;
        for (Entry* entry : order) {
            // The first call finds the caches as the previous entry left them, and is not timed: lines that were
            // written by another entry would be written back at the expense of this one.
            entry->run(1);
            const Clock::time_point start = Clock::now();
            entry->run(entry->calls);
            const double time = seconds(Clock::now() - start);
            if (time < block) {
                entry->calls *= 2; // and the block was too short to count
                complete = false;
            } else {
                entry->least = std::min(entry->least, time / static_cast<double>(entry->calls));
            }
        }
        if (complete) ++rounds;
    }
    return status;
}

benchmark::UserCounters Row::results() const
{
    std::map<std::string, double> ns;
    for (const Entry& entry : entries) ns[entry.name] = entry.least * entry.share * 1e9;

    double limit = std::numeric_limits<double>::infinity();
    for (const char* road : {"limit_long_steps", "limit_short_steps", "limit_past_caches"}) {
        if (ns.contains(road)) limit = std::min(limit, ns[road]);
    }
    if (ns.contains("limit_rate")) limit = std::isinf(limit) ? ns["limit_rate"] : std::max(limit, ns["limit_rate"]);

    benchmark::UserCounters results;
    if (std::isfinite(limit)) results["limit"] = limit;
    if (operations > 0) results["operations"] = operations;
    for (const auto& [name, time] : ns) {
        if (!name.starts_with("limit")) results[name] = time;
    }
    return results;
}

namespace {

std::string size_label(int n, Unit unit)
{
    const bool mega = n >= 1 << 20 && n % (1 << 20) == 0;
    const bool kilo = !mega && n >= 1 << 10 && n % (1 << 10) == 0;
    std::string label = std::to_string(mega ? n >> 20 : kilo ? n >> 10 : n);
    label += mega ? "M" : kilo ? "K" : "";
    label += unit == Unit::bytes ? "B" : "";
    return label;
}

std::vector<void (*)()>& declarations()
{
    static std::vector<void (*)()> list;
    return list;
}

} // namespace

void rows(const std::string& family, const std::string& kind, const std::vector<int>& sizes,
          const std::function<void(Row&, int n)>& build, Unit unit)
{
    constexpr int longest_in_smoke = 1 << 14;
    for (const int size : sizes) {
        const int n = options.smoke() ? std::min(size, longest_in_smoke) : size;
        std::string name = family;
        name.append("/").append(kind).append("/").append(size_label(size, unit));
        // To the framework a row is one benchmark of one iteration, whose time is that of a call of ours.
        benchmark::RegisterBenchmark(name.c_str(),
                                     [=](benchmark::State& state) {
                                         Row row;
                                         build(row, n);
                                         OrvStatus status = orvOk;
                                         for ([[maybe_unused]] auto _ : state) {
                                             status = row.measure();
                                             state.counters = row.results();
                                             const auto ours = state.counters.find("ours");
                                             if (ours != state.counters.end()) {
                                                 state.SetIterationTime(ours->second * 1e-9);
                                             }
                                         }
                                         if (status < 0) state.SkipWithError("our function refused its arguments");
                                     })
            ->Iterations(1)
            ->UseManualTime()
            ->Unit(benchmark::kNanosecond);
    }
}

Rows::Rows(void (*declare)()) { declarations().push_back(declare); }

void Rows::declare_all()
{
    for (void (*declare)() : declarations()) declare();
}

} // namespace bench
