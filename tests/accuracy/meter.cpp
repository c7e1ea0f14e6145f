#include "meter.h"

#include <cstdio>
#include <thread>

namespace orvtest {
namespace {

/// Arguments that are computed at a time.
constexpr int block = 1 << 12;

/// How many of the worst findings MPFR looks at. Below that many, the reference cannot have hidden a worse one but by
/// its own error.
constexpr std::size_t worst_kept = 32;

/// One argument in so many is compared.
constexpr std::uint64_t share = 2039;

/// How far the reference is from the exact value, in ulp of T.
template <class T, class W>
double reference_error(W reference, Exact<long double> exact)
{
    const auto x = static_cast<long double>(reference);
    if (std::isnan(exact.head)) return std::isnan(x) ? 0 : wrong;
    if (exact.head == 0) return x == 0 && std::signbit(x) == std::signbit(exact.head) ? 0 : wrong;
    if (overflows<T>(exact.head)) return overflows<T>(x) && std::signbit(x) == std::signbit(exact.head) ? 0 : wrong;
    return static_cast<double>(std::fabs((x - exact.head) - exact.rest) / ulp<T>(exact.head));
}

template <class T>
bool within(Span domain, T x)
{
    return !std::isfinite(x) || x == 0 || (domain.low <= double{x} && double{x} <= domain.high);
}

/// The scan of one thread.
template <class T>
class Scan {
public:
    Scan(const Subject<T>& subject, const Arguments<T>& arguments) : subject_(subject), arguments_(arguments) {}

    /// Arguments first to last - 1.
    void run(std::uint64_t first, std::uint64_t last)
    {
        std::vector<T> x(block), y(block), computed(block);
        std::vector<std::uint64_t> number(block);
        while (first < last) {
            std::size_t n = 0;
            for (; n < block && first < last; ++first) {
                const auto [a, b] = arguments_[first];
                if (!within(subject_.domain, a) || !within(subject_.domain, b)) continue;
                x[n] = a;
                y[n] = b;
                number[n++] = first;
            }
            if (n == 0) continue;
            subject_.compute(x.data(), y.data(), computed.data(), static_cast<int>(n));
            for (std::size_t i = 0; i < n; ++i) look(x[i], y[i], computed[i], number[i] % share == 0);
            tried_ += n;
        }
    }

    /// Takes over what another scan has found.
    void add(const Scan& other)
    {
        for (const Finding<T>& finding : other.worst_) keep(finding);
        tried_ += other.tried_;
        compared_ += other.compared_;
        reference_error_ = std::max(reference_error_, other.reference_error_);
    }

    Report<T> report()
    {
        Report<T> report;
        report.arguments = tried_;
        report.compared = compared_;
        report.reference_error = reference_error_;
        for (Finding<T>& finding : worst_) {
            if (const auto exactly = subject_.function.exact) {
                const Exact<long double> exact = exactly(finding.x, finding.y);
                finding.error = ulp_error(finding.computed, exact);
                finding.exact = exact.head + exact.rest;
                report.confirmed = true;
            }
            if (finding.error >= report.worst.error) report.worst = finding;
        }
        return report;
    }

private:
    void look(T x, T y, T computed, bool compare)
    {
        const Wider<T> reference = subject_.function(Wider<T>{x}, Wider<T>{y});
        const double error = ulp_error(computed, reference);
        if (error > threshold_) keep({error, x, y, computed, reference});
        if (compare && subject_.function.exact) {
            ++compared_;
            const double difference = reference_error<T>(reference, subject_.function.exact(x, y));
            reference_error_ = std::max(reference_error_, difference);
        }
    }

    void keep(const Finding<T>& finding)
    {
        const auto worse = [](const Finding<T>& a, const Finding<T>& b) { return a.error > b.error; };
        worst_.push_back(finding);
        std::push_heap(worst_.begin(), worst_.end(), worse);
        if (worst_.size() <= worst_kept) return;
        std::pop_heap(worst_.begin(), worst_.end(), worse);
        worst_.pop_back();
        threshold_ = worst_.front().error;
    }

    const Subject<T>& subject_;
    const Arguments<T>& arguments_;
    std::vector<Finding<T>> worst_; // a heap with the least error in front
    double threshold_ = -1;         // an error up to here is not among the worst
    std::uint64_t tried_ = 0, compared_ = 0;
    double reference_error_ = 0;
};

} // namespace

template <class T>
Report<T> measure(const Subject<T>& subject, const Arguments<T>& arguments, int threads)
{
    const auto parts = static_cast<std::size_t>(threads);
    const auto begin_of = [&](std::size_t part) { return arguments.count() * part / parts; };
    std::vector<Scan<T>> scans(parts, Scan<T>(subject, arguments));
    std::vector<std::thread> running;
    for (std::size_t part = 1; part < parts; ++part)
        running.emplace_back([&, part] { scans[part].run(begin_of(part), begin_of(part + 1)); });
    scans[0].run(0, begin_of(1));
    for (std::thread& thread : running) thread.join();
    for (std::size_t part = 1; part < parts; ++part) scans[0].add(scans[part]);
    return scans[0].report();
}

template <class T>
std::string text(const Finding<T>& finding, int arity)
{
    char error[40], x[40], y[40], values[100];
    std::snprintf(error, sizeof error, "%.4g ulp at ", finding.error);
    std::snprintf(x, sizeof x, "%a", static_cast<double>(finding.x));
    std::snprintf(y, sizeof y, ", %a", static_cast<double>(finding.y));
    constexpr int digits = std::numeric_limits<T>::max_digits10;
    std::snprintf(values, sizeof values, ": %.*g, exact %.*Lg", digits, static_cast<double>(finding.computed),
                  digits + 4, finding.exact);
    return std::string(error) + x + (arity == 2 ? y : "") + values;
}

template Report<float> measure(const Subject<float>&, const Arguments<float>&, int);
template Report<double> measure(const Subject<double>&, const Arguments<double>&, int);
template std::string text(const Finding<float>&, int);
template std::string text(const Finding<double>&, int);

} // namespace orvtest
