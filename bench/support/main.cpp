// Runs the rows of one program. The framework reads the command line, chooses rows by --benchmark_filter and writes
// --benchmark_out; two of our own options come on top.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>

#include "bench/support/options.h"
#include "bench/support/row.h"
#include "bench/support/table.h"

namespace {

/// The value of an argument of the form name=value.
std::optional<std::string_view> value_of(std::string_view argument, std::string_view name)
{
    if (!argument.starts_with(name) || argument.size() == name.size() || argument[name.size()] != '=') return {};
    return argument.substr(name.size() + 1);
}

template <class T>
bool parse(std::string_view text, T& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

void print_help()
{
    std::puts("usage: [--misalign=<elements>] [--benchmark_min_time=<seconds a row>] [--benchmark_filter=<regex>]\n"
              "       [--benchmark_out=<file> --benchmark_out_format=json] [--benchmark_list_tests]\n"
              "       [--benchmark_format=json] [--benchmark_repetitions=<n>]\n"
              "--misalign starts each array that many elements after a cache-line boundary.\n"
              "A --benchmark_min_time of 0.001 or less is a smoke run: short arrays, one call of each entry.");
}

} // namespace

int main(int argc, char** argv)
{
    // The framework keeps its settings to itself, so what the rows need is read before it takes its arguments away.
    bool other_format = false;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        bool ours = false, valid = true;
        if (const auto elements = value_of(argv[i], "--misalign")) {
            ours = true;
            valid = parse(*elements, bench::options.misalign) && bench::options.misalign >= 0;
        } else if (const auto time = value_of(argv[i], "--benchmark_min_time")) {
            valid = parse(*time, bench::options.min_time);
        } else if (value_of(argv[i], "--benchmark_format")) {
            other_format = true;
        }
        if (!valid) {
            std::fprintf(stderr, "%s: not a number that makes sense here\n", argv[i]);
            return 1;
        }
        if (!ours) argv[kept++] = argv[i];
    }
    argc = kept;
    benchmark::Initialize(&argc, argv, print_help);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;

    bench::Rows::declare_all();
    bench::Table table;
    benchmark::RunSpecifiedBenchmarks(other_format ? nullptr : &table);
    benchmark::Shutdown();
}
