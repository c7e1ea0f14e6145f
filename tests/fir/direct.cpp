#include "tests/fir/direct.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace orvtest {

DirectRoad direct_road(const FirTypes& form, std::size_t taps_len, std::size_t len)
{
    const std::string name = form.form;
    if (name == "16s") return DirectRoad::newest_first;
    if (name == "64f_32f") return len >= 256 ? DirectRoad::record : DirectRoad::samples;
    if (name == "64fc_32fc") return len >= 128 ? DirectRoad::record : DirectRoad::samples;
    if (name != "64f" && name != "32fc" && name != "64fc") return DirectRoad::samples;
    if (taps_len < (name == "64fc" ? 16u : 32u)) return len >= taps_len ? DirectRoad::lanes : DirectRoad::samples;
    return len > taps_len ? DirectRoad::record : DirectRoad::samples;
}

int direct_factor(const FirTypes& form, int factor) { return form.has_factor || !form.is_integer() ? factor : -15; }

DirectFilter::DirectFilter(const FirDirectForm& form, const Values& taps, int factor, const Values& past, int index)
    : form_(form),
      taps_len_(count(form.taps, taps)),
      factor_(factor),
      taps_block_(taps_len_ * form.taps.size()),
      line_block_(2 * taps_len_ * form.samples.size())
{
    const std::vector<std::byte> coefficients = encoded(form.taps, taps);
    taps_ = taps_block_.place(coefficients.size(), before_guard);
    std::copy(coefficients.begin(), coefficients.end(), taps_);
    line_ = line_block_.place(2 * taps_len_ * form.samples.size(), before_guard);
    set_line(past, index);
}

void DirectFilter::set_line(const Values& past, int index)
{
    index_ = index;
    Values line;
    for (std::size_t i = 0; i < 2 * taps_len_; ++i) { // at the index the oldest one
        const std::size_t age = taps_len_ - 1 - (i + taps_len_ - static_cast<std::size_t>(index)) % taps_len_;
        const Values sample = part(form_.samples, past, age, 1);
        line.insert(line.end(), sample.begin(), sample.end());
    }
    const std::vector<std::byte> bytes = encoded(form_.samples, line);
    std::copy(bytes.begin(), bytes.end(), line_);
}

void DirectFilter::set_line_of_blocks(const Values& past, int index)
{
    index_ = index;
    Values line(2 * past.size(), 77);
    std::copy(past.begin(), past.end(), line.begin() + index * form_.samples.components);
    const std::vector<std::byte> bytes = encoded(form_.samples, line);
    std::copy(bytes.begin(), bytes.end(), line_);
}

void DirectFilter::call(const AnyExport& f, std::initializer_list<AnyArgument> first, int scale)
{
    std::vector<AnyArgument> all = first;
    all.push_back(AnyArgument::of(taps_));
    all.push_back(AnyArgument::of(static_cast<int>(taps_len_)));
    if (form_.has_factor) all.push_back(AnyArgument::of(factor_));
    all.push_back(AnyArgument::of(line_));
    all.push_back(AnyArgument::of(&index_));
    all.push_back(AnyArgument::of(scale));
    const CallNote note([&] { return std::to_string(taps_len_) + " taps"; });
    const int index_before = index_;
    const Values line_before = may_lack_memory ? line() : Values();
    status = f.callee()->call(all.data());
    if (may_lack_memory && status == orvErrNoMemory) {
        EXPECT_EQ(index_, index_before) << f.name();
        EXPECT_EQ(line(), line_before) << f.name();
    } else {
        EXPECT_EQ(status, orvOk) << f.name() << ", " << taps_len_ << " taps";
    }
}

Values DirectFilter::filter(const Values& x, int scale, const FirPlaces& places)
{
    const auto bytes = encoded(form_.samples, x);
    const std::size_t n = count(form_.samples, x);
    GuardedBlock source(bytes.size()), destination(bytes.size());
    std::byte* src = source.place(bytes.size(), places.source);
    std::byte* dst = destination.place(bytes.size(), places.destination);
    std::copy(bytes.begin(), bytes.end(), src);
    const std::vector<std::byte> before(dst, dst + bytes.size());
    call(form_.filter, {AnyArgument::of(src), AnyArgument::of(dst), AnyArgument::of(static_cast<int>(n))}, scale);
    EXPECT_EQ(destination.damage(), "") << form_.filter.name() << ", " << taps_len_ << " taps, " << n << " samples";
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), src)) << form_.filter.name() << " has changed its source";
    EXPECT_TRUE(status == orvOk || std::equal(before.begin(), before.end(), dst)) << form_.filter.name();
    return decoded(form_.samples, dst, n);
}

Values DirectFilter::filter_in_place(const Values& x, int scale, Placement placement)
{
    const auto bytes = encoded(form_.samples, x);
    const std::size_t n = count(form_.samples, x);
    GuardedBlock array(bytes.size());
    std::byte* src_dst = array.place(bytes.size(), placement);
    std::copy(bytes.begin(), bytes.end(), src_dst);
    call(form_.filter_in_place, {AnyArgument::of(src_dst), AnyArgument::of(static_cast<int>(n))}, scale);
    EXPECT_EQ(array.damage(), "") << form_.filter_in_place.name() << ", " << taps_len_ << " taps, " << n << " samples";
    EXPECT_TRUE(status == orvOk || std::equal(bytes.begin(), bytes.end(), src_dst)) << form_.filter_in_place.name();
    return decoded(form_.samples, src_dst, n);
}

Values DirectFilter::one_by_one(const Values& x, int scale)
{
    const auto bytes = encoded(form_.samples, x);
    const std::size_t size = form_.samples.size();
    GuardedBlock destination(size);
    std::byte* dst = destination.place(size, before_guard);
    Values y;
    for (std::size_t i = 0; i < bytes.size(); i += size) {
        call(form_.one, {AnyArgument::of_bytes(&bytes[i], size), AnyArgument::of(dst)}, scale);
        const Values one = decoded(form_.samples, dst, 1);
        y.insert(y.end(), one.begin(), one.end());
    }
    EXPECT_EQ(destination.damage(), "") << form_.one.name();
    return y;
}

Values DirectFilter::one_by_one_in_place(const Values& x, int scale)
{
    const auto bytes = encoded(form_.samples, x);
    const std::size_t size = form_.samples.size();
    GuardedBlock array(size);
    std::byte* src_dst = array.place(size, before_guard);
    Values y;
    for (std::size_t i = 0; i < bytes.size(); i += size) {
        std::copy_n(&bytes[i], size, src_dst);
        call(form_.one_in_place, {AnyArgument::of(src_dst)}, scale);
        const Values one = decoded(form_.samples, src_dst, 1);
        y.insert(y.end(), one.begin(), one.end());
    }
    EXPECT_EQ(array.damage(), "") << form_.one_in_place.name();
    return y;
}

void DirectFilter::expect_no_damage() const
{
    EXPECT_EQ(line_block_.damage(), "") << form_.form;
    EXPECT_EQ(taps_block_.damage(), "") << form_.form;
}

} // namespace orvtest
