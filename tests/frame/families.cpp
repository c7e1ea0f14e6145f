#include "tests/frame/families.h"

namespace orvtest {
namespace {

/// Is every element of the array this value, bit for bit? The array is compared with itself, one element further on.
bool holds_only(const std::byte* array, const std::vector<std::byte>& value, std::size_t n)
{
    return std::memcmp(array, value.data(), value.size()) == 0 &&
           std::memcmp(array, array + value.size(), (n - 1) * value.size()) == 0;
}

} // namespace

std::vector<std::byte> random_bytes(std::size_t n)
{
    std::vector<std::byte> bytes((n + 7) / 8 * 8);
    Random random(n);
    for (std::size_t i = 0; i < bytes.size(); i += 8) {
        const std::uint64_t word = random.bits();
        std::memcpy(&bytes[i], &word, 8);
    }
    bytes.resize(n);
    return bytes;
}

bool AnyLargeFill::check(std::size_t n, Placement placement)
{
    std::byte* array = block_.place(n * value_.size(), placement);
    const std::string text =
        std::string(fill_.name) + " of " + std::to_string(n) + " elements: the array " + placement_text(placement);
    const CallNote note([&] { return text; });
    std::vector<AnyArgument> arguments = before_;
    arguments.push_back(AnyArgument::of(array));
    arguments.push_back(AnyArgument::of(static_cast<int>(n)));
    const OrvStatus status = fill_.callee->call(arguments.data());
    const bool filled = status == orvOk && holds_only(array, value_, n);
    const std::string damage = block_.damage();
    if (filled && damage.empty()) return true;
    ADD_FAILURE() << text << ": status " << status << (filled ? "" : ", a wrong element") << ", damage: " << damage;
    return false;
}

AnyLargeCopy::AnyLargeCopy(AnyCall copy, std::size_t element_size, std::size_t most)
    : copy_(std::move(copy)),
      element_size_(element_size),
      content_(random_bytes(most * element_size)),
      source_block_(content_.size()),
      destination_block_(content_.size())
{}

void AnyLargeCopy::place_source(std::size_t n, Placement placement)
{
    n_ = n;
    source_placement_ = placement;
    source_ = source_block_.place(n * element_size_, placement);
    std::memcpy(source_, content_.data(), n * element_size_);
}

bool AnyLargeCopy::check(Placement placement)
{
    const std::size_t bytes = n_ * element_size_;
    std::byte* destination = destination_block_.place(bytes, placement);
    const std::string text = std::string(copy_.name) + " of " + std::to_string(n_) + " elements: the source " +
                             placement_text(source_placement_) + ", the destination " + placement_text(placement);
    const CallNote note([&] { return text; });
    const AnyArgument arguments[] = {AnyArgument::of(source_), AnyArgument::of(destination),
                                     AnyArgument::of(static_cast<int>(n_))};
    const OrvStatus status = copy_.callee->call(arguments);
    const bool copied = status == orvOk && std::memcmp(destination, content_.data(), bytes) == 0;
    const bool kept = std::memcmp(source_, content_.data(), bytes) == 0 && source_block_.damage().empty();
    const std::string damage = destination_block_.damage();
    if (copied && kept && damage.empty()) return true;
    ADD_FAILURE() << text << ": status " << status << (copied ? "" : ", a wrong element")
                  << (kept ? "" : ", the source has changed") << ", damage: " << damage;
    return false;
}

} // namespace orvtest
