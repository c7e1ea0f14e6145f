// The version record.
#include "orvs/frame.h"

#include "tests/support/compare.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>

namespace orvtest {
namespace {

constexpr bool is_32_bit = sizeof(void*) == 4;

TEST(GetLibVersion, numbers)
{
    const auto version = ORV_EXPORT(orvsGetLibVersion);
    const OrvLibraryVersion* record = version();
    ASSERT_NE(record, nullptr);
    expect_value(version, record->major, 8);
    expect_value(version, record->minor, 2);
    expect_value(version, record->majorBuild, 0);
    expect_value(version, record->build, 43166);
}

TEST(GetLibVersion, texts)
{
    const OrvLibraryVersion* record = orvsGetLibVersion();
    EXPECT_STREQ(record->name, is_32_bit ? "orvSP AVX2 (h9 threaded)" : "orvSP AVX2 (x9 threaded)");
    EXPECT_STREQ(record->version, "8.2.0 (r43166)");
    EXPECT_STREQ(record->buildDate, "Jul  7 2014");

    const char code[4] = {is_32_bit ? 'h' : 'x', '9', 0, 0};
    EXPECT_EQ(std::memcmp(record->targetCpu, code, sizeof code), 0);
    std::uint32_t as_number;
    std::memcpy(&as_number, record->targetCpu, sizeof as_number);
    EXPECT_EQ(as_number, is_32_bit ? 0x3968u : 0x3978u);
}

TEST(GetLibVersion, the_version_text_says_what_the_numbers_say)
{
    const OrvLibraryVersion* record = orvsGetLibVersion();
    char text[64];
    std::snprintf(text, sizeof text, "%d.%d.%d (r%d)", record->major, record->minor, record->majorBuild, record->build);
    EXPECT_STREQ(record->version, text);
}

TEST(GetLibVersion, layout_of_the_record)
{
    // Five words of 32 bits, then three pointers.
    EXPECT_EQ(offsetof(OrvLibraryVersion, major), 0u);
    EXPECT_EQ(offsetof(OrvLibraryVersion, minor), 4u);
    EXPECT_EQ(offsetof(OrvLibraryVersion, majorBuild), 8u);
    EXPECT_EQ(offsetof(OrvLibraryVersion, build), 12u);
    EXPECT_EQ(offsetof(OrvLibraryVersion, targetCpu), 16u);
    EXPECT_EQ(offsetof(OrvLibraryVersion, name), is_32_bit ? 20u : 24u);
    EXPECT_EQ(offsetof(OrvLibraryVersion, version), is_32_bit ? 24u : 32u);
    EXPECT_EQ(offsetof(OrvLibraryVersion, buildDate), is_32_bit ? 28u : 40u);
    EXPECT_EQ(sizeof(OrvLibraryVersion), is_32_bit ? 32u : 48u);
}

const OrvLibraryVersion* const asked_before_main = orvsGetLibVersion();

TEST(GetLibVersion, the_same_record_at_any_time_in_any_thread)
{
    EXPECT_EQ(orvsGetLibVersion(), asked_before_main);
    EXPECT_EQ(orvsGetLibVersion(), asked_before_main);
    std::array<const OrvLibraryVersion*, 4> answers = {};
    std::array<std::thread, answers.size()> threads;
    for (std::size_t i = 0; i < threads.size(); ++i)
        threads[i] = std::thread([&answers, i] { answers[i] = orvsGetLibVersion(); });
    for (std::thread& thread : threads) thread.join();
    for (const OrvLibraryVersion* answer : answers) EXPECT_EQ(answer, asked_before_main);
}

} // namespace
} // namespace orvtest
