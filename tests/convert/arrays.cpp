#include "tests/convert/arrays.h"

#include "orvs/core.h"

#include <algorithm>

namespace orvtest {

bool ArrayCalls::at_many_places(int distances)
{
    if (!at(before_guard) || !at(after_guard)) return false;
    for (int k = 0; k < distances; ++k) {
        std::vector<Placement> placements;
        for (std::size_t i = 0; i < arrays_.size(); ++i)
            placements.push_back(misaligned((13 * k + (k % 2) * 7 * static_cast<int>(i)) % 64));
        if (!at(placements)) return false;
    }
    return true;
}

bool ArrayCalls::at(const std::vector<Placement>& placements)
{
    std::vector<std::byte*> addresses;
    for (std::size_t i = 0; i < arrays_.size(); ++i) {
        const std::vector<std::byte>& before = arrays_[i].before;
        addresses.push_back(blocks_[i]->place(before.size(), placements[i]));
        std::copy(before.begin(), before.end(), addresses[i]);
    }
    const auto describe = [&] {
        std::string text = std::string(name_) + ": " + text_;
        for (const Placement& p : placements) text += "\n  " + placement_text(p);
        return text;
    };
    const CallNote note(describe);
    const OrvStatus status = call_(addresses);
    std::string fault = status == orvOk ? "" : "status " + std::to_string(status);
    for (std::size_t i = 0; i < arrays_.size() && fault.empty(); ++i) fault = find_fault(i, addresses[i]);
    if (!fault.empty()) ADD_FAILURE() << describe() << "\n" << fault;
    return fault.empty();
}

std::string ArrayCalls::find_fault(std::size_t i, const std::byte* got)
{
    const CallArray& array = arrays_[i];
    const std::size_t n = array.after.size() / array.type.size();
    if (array.is_result && !looked_) look_at(name_, array.type, got, n, NanView::bits);
    if (i + 1 == arrays_.size()) looked_ = true;
    const std::size_t k = first_difference(array.type, got, array.after.data(), n, NanView::bits);
    if (k != n)
        return "element " + std::to_string(k) + " of array " + std::to_string(i) + " is " +
               element_text(array.type, got + k * array.type.size()) + ", not " +
               element_text(array.type, array.after.data() + k * array.type.size());
    const std::string damage = blocks_[i]->damage();
    return damage.empty() ? "" : "a byte outside array " + std::to_string(i) + " has changed: " + damage;
}

std::vector<int> layout_lengths()
{
    std::vector<int> lengths;
    for (int n = 1; n <= 140; ++n) lengths.push_back(n);
    for (const int n : {159, 160, 161, 255, 256, 257, 1000, 1023, 1024, 1025, 4097}) lengths.push_back(n);
    return lengths;
}

std::size_t bytes_of_half_beyond_caches()
{
    int cache = 0;
    EXPECT_EQ(orvGetMaxCacheSizeB(&cache), orvOk);
    const auto largest = static_cast<std::size_t>(std::max(cache, 0));
    return std::clamp(largest + largest / 16, std::size_t{4} << 20, std::size_t{64} << 20) / 2;
}

} // namespace orvtest
