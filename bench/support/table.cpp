#include "bench/support/table.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <utility>

#include "bench/support/options.h"

namespace bench {
namespace {

/// Nanoseconds in three digits: 4.17, 52.3, 731, 1.66k, 579k, 2.02M.
std::string short_time(double ns)
{
    const char* unit = ns < 999.5 ? "" : ns < 999.5e3 ? "k" : "M";
    const double x = ns < 999.5 ? ns : ns < 999.5e3 ? ns / 1e3 : ns / 1e6;
    char text[32];
    std::snprintf(text, sizeof text, "%.*f%s", x < 9.995 ? 2 : x < 99.95 ? 1 : 0, x, unit);
    return text;
}

std::string percent(double x)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.0f%%", 100 * x);
    return text;
}

std::string two_decimals(double x)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", x);
    return text;
}

constexpr const char* columns = "%-8s %-16s %7s %9s %9s %6s %9s  %-8s %9s %6s  %s\n";

} // namespace

bool Table::ReportContext(const Context& context)
{
    std::printf("%d-bit program; caches", static_cast<int>(8 * sizeof(void*)));
    for (const benchmark::CPUInfo::CacheInfo& cache : context.cpu_info.caches) {
        if (cache.type != "Instruction") std::printf(" %d KB", cache.size >> 10);
    }
    std::printf("\nns a call, the least of many; ratio = peer / ours, above 1 ours is faster\n");
    if (options.misalign) std::printf("arrays start %d elements after a cache-line boundary\n", options.misalign);
    if (options.smoke()) std::printf("smoke run: long arrays are cut, and the times mean nothing\n");
    std::printf(columns, "family", "kind", "size", "limit", "ours", "GF/s", "of limit", "best", "its ns", "ratio",
                "others");
    return true;
}

void Table::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type == Run::RT_Iteration) print_row(run);
    }
    std::fflush(stdout);
}

void Table::print_row(const Run& run)
{
    // The name is family/kind/size.
    const std::string& name = run.run_name.function_name;
    const std::size_t kind_at = name.find('/') + 1, size_at = name.rfind('/') + 1;
    const std::string family = name.substr(0, kind_at - 1);
    const std::string kind = name.substr(kind_at, size_at - 1 - kind_at);
    const std::string size = name.substr(size_at);
    if (run.error_occurred) {
        std::printf("%-8s %-16s %7s  %s\n", family.c_str(), kind.c_str(), size.c_str(), run.error_message.c_str());
        return;
    }

    double ours = 0, limit = 0, operations = 0;
    std::vector<std::pair<double, std::string>> peers;
    for (const auto& [entry, ns] : run.counters) {
        if (entry == "ours") ours = ns;
        else if (entry == "limit") limit = ns;
        else if (entry == "operations") operations = ns;
        else peers.push_back({ns, entry});
    }
    std::sort(peers.begin(), peers.end());

    Family& sums = families[family];
    std::string rate = "-", fraction = "-", ratio = "-", others;
    if (ours > 0 && operations > 0) rate = two_decimals(operations / ours);
    if (ours > 0 && limit > 0) {
        fraction = percent(limit / ours);
        sums.fraction += std::log(limit / ours);
        ++sums.fractions;
    }
    if (ours > 0 && !peers.empty()) {
        ratio = two_decimals(peers[0].first / ours);
        sums.ratio += std::log(peers[0].first / ours);
        ++sums.ratios;
    }
    for (std::size_t i = 1; i < peers.size(); ++i) {
        const auto& [ns, peer] = peers[i];
        others += (i > 1 ? ", " : "") + peer + " " + short_time(ns);
        if (ours > 0) others += " (" + two_decimals(ns / ours) + ")";
    }
    std::printf(columns, family.c_str(), kind.c_str(), size.c_str(), limit > 0 ? short_time(limit).c_str() : "-",
                ours > 0 ? short_time(ours).c_str() : "absent", rate.c_str(), fraction.c_str(),
                peers.empty() ? "-" : peers[0].second.c_str(), peers.empty() ? "-" : short_time(peers[0].first).c_str(),
                ratio.c_str(), others.c_str());
}

void Table::Finalize()
{
    std::printf("\ngeometric means over the rows of a family\n");
    for (const auto& [family, sums] : families) {
        std::printf("%-8s ratio %s, of limit %s\n", family.c_str(),
                    sums.ratios ? two_decimals(std::exp(sums.ratio / sums.ratios)).c_str() : "-",
                    sums.fractions ? percent(std::exp(sums.fraction / sums.fractions)).c_str() : "-");
    }
}

} // namespace bench
