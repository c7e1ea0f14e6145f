#include "sweep.h"

#include <climits>
#include <set>

namespace orvtest {

std::vector<int> lengths_around(std::vector<int> thresholds)
{
    std::set<int> lengths;
    for (int n = 1; n <= longest_dense_length; ++n) lengths.insert(n);
    for (const int threshold : thresholds)
        for (const int n : {threshold - 1, threshold, threshold + 1})
            if (n > 0) lengths.insert(n);
    return {lengths.begin(), lengths.end()};
}

std::vector<int> misalignments(int element_size, int length)
{
    if (length > longest_dense_length) return {0, 1, element_size, 16, 32 - element_size, 32 + element_size};
    std::set<int> distances;
    for (int bytes = 0; bytes < 32; ++bytes) distances.insert(bytes);
    for (int bytes = 0; bytes < 64; bytes += element_size) distances.insert(bytes);
    return {distances.begin(), distances.end()};
}

std::vector<int> scales(int reach)
{
    std::vector<int> all = {INT_MIN, INT_MIN + 1, INT_MAX};
    for (int scale = -reach; scale <= reach; ++scale) all.push_back(scale);
    return all;
}

} // namespace orvtest
