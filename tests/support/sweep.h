// Where to try a function: lengths, addresses, scale factors.
#pragma once

#include <vector>

namespace orvtest {

/// 1 to 70, then each threshold with its two neighbours, ascending. The limit 70 covers main loops of up to two whole
/// 256-bit vectors of bytes with every length of tail.
std::vector<int> lengths_around(std::vector<int> thresholds = {96, 128, 256, 1000, 1024});

/// Lengths up to this one are tried at every misalignment, longer ones at a handful.
constexpr int longest_dense_length = 70;

/// Distances in bytes from a 64-byte boundary.
std::vector<int> misalignments(int element_size, int length);

/// Every scale from -reach to reach, and the extremes of the type int.
std::vector<int> scales(int reach);

/// The reach that covers all roads for arrays of such elements: 70 for 64-bit components, otherwise 40.
constexpr int scale_reach(int component_size) { return component_size == 8 ? 70 : 40; }

} // namespace orvtest
