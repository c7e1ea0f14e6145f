// Measures the errors of fast Fourier transforms, and prints them as Markdown tables: docs/accuracy.md.
#include "fft_meter.h"

#include "tests/transform/complex_fft.h"

#ifdef ORV_HAVE_FFTW
#include "fftw.h"
#endif

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace {

using namespace orvtest;

constexpr const char* usage =
    "usage: fft_accuracy [--orders N] [name ...]\n"
    "Measures transforms of lengths 2 to 2^N, N = 12 by default and 22 at most, in the tables C_32fc, R_32f, C_64fc\n"
    "and R_64f, or in those whose names contain one of the names given. With N = 22 that takes minutes.\n"
    "The exit status is 1 if an error of ours is larger than promised.\n";

/// No error of ours may be larger.
constexpr double bound = 0.35;

/// The reference takes half a gigabyte then.
constexpr int max_order = 22;

struct Options {
    int orders = 12;
    std::vector<std::string_view> names;
};

// ---- What is measured

/// A column of a table: transforms of one kind.
template <class T>
struct Column {
    const char* name;
    std::function<Fft<T>(int order, Direction direction)> make; ///< the result is empty where it would take too long
};

template <class T>
Fft<T> ours(int order, Direction direction, Kind kind)
{
    if (kind == Kind::complex) {
        const auto fft = std::make_shared<ComplexFft<T>>(direction, order, ORV_FFT_SCALE_NONE);
        return [fft](const auto& x) { return (*fft)(x); };
    }
    const auto fft = std::make_shared<RealFft<T>>(direction, Layout::ccs, order, ORV_FFT_SCALE_NONE);
    return of_real_signals<T>(direction, [fft](const auto& x) { return (*fft)(x); });
}

/// Ours first, under the name of its type; then FFTW with the plan that it guesses, and with the best of those that it
/// times.
template <class T>
std::vector<Column<T>> columns_of(const char* name, Kind kind)
{
    std::vector<Column<T>> columns = {
        {name, [=](int order, Direction direction) { return ours<T>(order, direction, kind); }}};
#ifdef ORV_HAVE_FFTW
    constexpr int longest_timed = 16; // others take minutes
    columns.push_back(
        {"FFTW", [=](int order, Direction direction) { return fftw<T>(order, direction, kind, FFTW_ESTIMATE); }});
    columns.push_back({"FFTW timed", [=](int order, Direction direction) {
                           return order > longest_timed ? Fft<T>() : fftw<T>(order, direction, kind, FFTW_MEASURE);
                       }});
#endif
    return columns;
}

// ---- Tables

template <class T>
std::string heading(const Column<T>& column, Direction direction)
{
    return std::string(direction == Direction::forward ? "forward " : "inverse ") + column.name;
}

template <class T>
void print_headings(const std::vector<Column<T>>& columns)
{
    std::string rule = "|---|";
    std::printf("| order |");
    for (const Direction direction : directions) {
        for (const Column<T>& column : columns) {
            std::printf(" %s |", heading(column, direction).c_str());
            rule += "---|";
        }
    }
    std::printf("\n%s\n", rule.c_str());
}

/// Measures one order in one direction. The result tells whether ours keeps its promise.
template <class T>
bool print_errors(const std::vector<Column<T>>& columns, int order, Direction direction, Kind kind)
{
    std::vector<Fft<T>> ffts;
    for (const Column<T>& column : columns) {
        if (Fft<T> fft = column.make(order, direction)) ffts.push_back(fft);
    }
    const std::vector<double> errors = fft_errors<T>(ffts, order, direction, kind);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int width = static_cast<int>(heading(columns[i], direction).size());
        if (i < errors.size()) std::printf(" %*.3f |", width, errors[i]);
        else std::printf(" %*s |", width, "");
    }
    return errors[0] <= bound;
}

template <class T>
bool print_table(const char* name, Kind kind, const Options& options)
{
    const auto in_name = [=](std::string_view part) { return std::string_view(name).find(part) != std::string::npos; };
    if (!options.names.empty() && std::none_of(options.names.begin(), options.names.end(), in_name)) return true;
    const std::vector<Column<T>> columns = columns_of<T>(name, kind);
    print_headings(columns);
    bool kept = true;
    for (int order = 1; order <= options.orders; ++order) {
        std::printf("| %5d |", order);
        for (const Direction direction : directions) kept &= print_errors(columns, order, direction, kind);
        std::printf("\n");
        std::fflush(stdout);
    }
    std::printf("\n");
    if (!kept) std::fprintf(stderr, "%s: an error is larger than %g\n", name, bound);
    return kept;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--orders") == 0 && i + 1 < argc) {
            options.orders = std::atoi(argv[++i]);
        } else if (argv[i][0] != '-') {
            options.names.push_back(argv[i]);
        } else {
            std::fputs(usage, std::strcmp(argv[i], "--help") == 0 ? stdout : stderr);
            return std::strcmp(argv[i], "--help") == 0 ? 0 : 2;
        }
    }
    if (options.orders < 1 || options.orders > max_order) {
        std::fprintf(stderr, "--orders takes a number from 1 to %d\n", max_order);
        return 2;
    }
    bool kept = print_table<float>("C_32fc", Kind::complex, options);
    kept &= print_table<float>("R_32f", Kind::real, options);
    kept &= print_table<double>("C_64fc", Kind::complex, options);
    kept &= print_table<double>("R_64f", Kind::real, options);
    return kept ? 0 : 1;
}
