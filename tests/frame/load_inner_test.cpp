// What runs when the library is loaded, on made-up features. The source is included under names of its own, because a
// program has an _init and a _fini already.
#define _init load_entry
#define _fini unload_entry
#include "frame/load.cpp"
#undef _init
#undef _fini

#include <gtest/gtest.h>
#include <vector>

namespace {

enum class Asked { processor_features, enabled_features };
std::vector<Asked> asked;
bool wanted_an_answer = false;
Orv64u enabled = 0;

} // namespace

// These stand in front of the core library's own.
OrvStatus orvGetCpuFeatures(Orv64u* features, Orv32u* registers)
{
    asked.push_back(Asked::processor_features);
    wanted_an_answer = wanted_an_answer || features || registers;
    return orvErrBadArgument; // nobody minds
}
Orv64u orvGetEnabledCpuFeatures()
{
    asked.push_back(Asked::enabled_features);
    return enabled;
}

namespace {

/// The variant index after loading under this mask of features.
int index_under(Orv64u mask)
{
    asked.clear();
    wanted_an_answer = false;
    enabled = mask;
    EXPECT_EQ(load_entry(), 1);
    EXPECT_EQ(asked, (std::vector{Asked::processor_features, Asked::enabled_features}));
    EXPECT_FALSE(wanted_an_answer);
    return orvJumpIndexForMergedDLL;
}

TEST(Load, index_is_zero_at_first) { EXPECT_EQ(orvJumpIndexForMergedDLL, 0); }

TEST(Load, index_tells_whether_both_features_are_there)
{
    constexpr Orv64u fma = 0x20, avx2 = 0x10, all_others = ~(fma | avx2);
    for (const int before : {0, 1, 7, -1})
        for (const Orv64u others : {Orv64u{0}, all_others, Orv64u{0xFFFFFFFF00000000}, Orv64u{0xF}, Orv64u{0x40}}) {
            const auto loaded_with = [&](Orv64u features) {
                orvJumpIndexForMergedDLL = before;
                return index_under(features | others);
            };
            EXPECT_EQ(loaded_with(0), 0);
            EXPECT_EQ(loaded_with(avx2), 0);
            EXPECT_EQ(loaded_with(fma), 0);
            EXPECT_EQ(loaded_with(fma | avx2), 1);
        }
}

TEST(Load, unloading_does_nothing)
{
    asked.clear();
    orvJumpIndexForMergedDLL = 1;
    unload_entry();
    EXPECT_EQ(orvJumpIndexForMergedDLL, 1);
    EXPECT_TRUE(asked.empty());
}

} // namespace
