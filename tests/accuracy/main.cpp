// Measures the errors of elementary functions, and prints them as a Markdown table: docs/accuracy.md.
#include "c_library.h"

#include "tests/vmath/kernels.h"

#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

using namespace orvtest;

constexpr const char* usage =
    "usage: accuracy [--all] [--list] [name ...]\n"
    "Measures the functions whose names, as --list prints them, contain one of the names; without names, all of them.\n"
    "Arguments are a sample that takes a fraction of a second a function. With --all they are all floats, or 10^8\n"
    "doubles or pairs, on two threads; that takes minutes a function.\n"
    "The exit status is 1 if an error is larger than the function promises.\n";

struct Options {
    bool all = false, list = false;
    std::vector<std::string_view> names;
};

bool chosen(const Options& options, const std::string& title)
{
    const auto in_title = [&](std::string_view name) { return title.find(name) != std::string::npos; };
    return options.names.empty() || std::any_of(options.names.begin(), options.names.end(), in_title);
}

template <class T>
void print_row(const Subject<T>& subject, const Report<T>& report)
{
    const Finding<T>& worst = report.worst;
    std::printf("| %s | %s | %llu | %.4g%s | %a", subject.name.c_str(), subject.level.c_str(),
                static_cast<unsigned long long>(report.arguments), worst.error, report.confirmed ? "" : " (scan)",
                static_cast<double>(worst.x));
    if (subject.function.arity == 2) std::printf(", %a", static_cast<double>(worst.y));
    std::printf(" |\n");
    std::fflush(stdout);
}

/// Whether all keep what they promise.
template <class T>
bool measure_all(const std::vector<Subject<T>>& subjects, const Options& options)
{
    bool kept = true;
    for (const Subject<T>& subject : subjects) {
        const std::string title = subject.name + " " + subject.level;
        if (!chosen(options, title)) continue;
        if (options.list) {
            std::puts(title.c_str());
            continue;
        }
        const Arguments<T> arguments(subject.function, options.all ? Extent::all : Extent::sample);
        const Report<T> report = measure(subject, arguments, options.all ? 2 : 1);
        print_row(subject, report);
        if (report.worst.error > subject.bound) {
            kept = false;
            std::fprintf(stderr, "%s promises %g ulp: %s\n", title.c_str(), subject.bound,
                         text(report.worst, subject.function.arity).c_str());
        }
        if (report.reference_error > 0.01) {
            kept = false;
            std::fprintf(stderr, "%s: the reference has an error of %g ulp\n", title.c_str(), report.reference_error);
        }
    }
    return kept;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--all") == 0) options.all = true;
        else if (std::strcmp(argv[i], "--list") == 0) options.list = true;
        else if (argv[i][0] != '-') options.names.push_back(argv[i]);
        else {
            std::fputs(usage, std::strcmp(argv[i], "--help") == 0 ? stdout : stderr);
            return std::strcmp(argv[i], "--help") == 0 ? 0 : 2;
        }
    }
    if (!options.list) {
        std::puts("| function | level | arguments | worst error, ulp | at |\n|---|---|---|---|---|");
    }
    bool kept = measure_all(vmath_kernels<float>(), options);
    kept &= measure_all(vmath_kernels<double>(), options);
    kept &= measure_all(c_library<float>(), options);
    kept &= measure_all(c_library<double>(), options);
    return kept ? 0 : 1;
}
