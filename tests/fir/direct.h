// Filters without a record: the delay line and its index, as a caller keeps them.
#pragma once

#include "tests/fir/forms.h"

namespace orvtest {

/// Which way a block goes, which shows in what becomes of the delay line.
enum class DirectRoad {
    samples,     ///< one by one
    lanes,       ///< the beginning one by one, the rest straight from the source
    record,      ///< through a record for the time of the call
    newest_first ///< the same; the delay line is turned around
};
DirectRoad direct_road(const FirTypes& form, std::size_t taps_len, std::size_t len);

class DirectFilter {
public:
    /// The past, newest first, is laid into the line with this index.
    DirectFilter(const FirDirectForm& form, const Values& taps, int factor, const Values& past, int index);

    Values filter(const Values& x, int scale, const FirPlaces& places = {});
    Values filter_in_place(const Values& x, int scale, Placement placement = before_guard);
    Values one_by_one(const Values& x, int scale);
    Values one_by_one_in_place(const Values& x, int scale);

    bool may_lack_memory = false; ///< so that orvErrNoMemory is no failure; then nothing may have changed
    OrvStatus status = orvOk;     ///< of the last call

    int index() const { return index_; }
    Values line() const { return decoded(form_.samples, line_, 2 * taps_len_); }
    void set_line(const Values& past, int index);           ///< as for single samples
    void set_line_of_blocks(const Values& past, int index); ///< for the 16s form: newest first from the index on
    void expect_no_damage() const;

private:
    void call(const AnyExport& f, std::initializer_list<AnyArgument> first, int scale);

    const FirDirectForm& form_;
    const std::size_t taps_len_;
    const int factor_;
    GuardedBlock taps_block_, line_block_;
    std::byte* taps_;
    std::byte* line_;
    int index_ = 0;
};

/// The power of two of the taps.
int direct_factor(const FirTypes& form, int factor);

} // namespace orvtest
