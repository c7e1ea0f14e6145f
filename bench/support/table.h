// The report: one line a row as it is done, and the means of each family at the end.
#ifndef ORV_BENCH_SUPPORT_TABLE_H
#define ORV_BENCH_SUPPORT_TABLE_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace bench {

class Table : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    /// Sums of logarithms, for geometric means.
    struct Family {
        double ratio = 0, fraction = 0;
        int ratios = 0, fractions = 0;
    };

    void print_row(const Run& run);

    std::map<std::string, Family> families;
};

} // namespace bench

#endif
