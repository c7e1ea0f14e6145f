#include "digest.h"

#include "inputs.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <map>

namespace orvtest {
namespace {

std::uint64_t absorb(std::uint64_t digest, std::uint64_t word) { return scramble(digest ^ scramble(word)); }

std::string running_test()
{
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    return test ? std::string(test->test_suite_name()) + "." + test->name() : "";
}

using DigestByTest = std::map<std::string, std::uint64_t>;

std::map<std::string, DigestByTest, std::less<>>& digests()
{
    static std::map<std::string, DigestByTest, std::less<>> all;
    return all;
}

} // namespace

void look_at(std::string_view export_name, const ElementType& type, const void* elements, std::size_t n, NanView nans)
{
    std::uint64_t& digest = digests()[std::string(export_name)][running_test()];
    digest = absorb(digest, n);
    const auto* element = static_cast<const std::byte*>(elements);
    for (std::size_t i = 0; i < n; ++i, element += type.size())
        for (int k = 0; k < type.components; ++k) digest = absorb(digest, component_bits(type, element, k, nans));
}

std::string digest_lines()
{
    std::string lines;
    for (const auto& [name, by_test] : digests()) {
        std::uint64_t digest = 0;
        for (const auto& [test, part] : by_test) digest = absorb(digest, part);
        char hex[24];
        std::snprintf(hex, sizeof hex, " %016jx\n", static_cast<std::uintmax_t>(digest));
        lines += name + hex;
    }
    return lines;
}

} // namespace orvtest
