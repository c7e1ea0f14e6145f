// The functions of the C library: known ones to try the meter with, and a comparison for ours.
#pragma once

#include "meter.h"

namespace orvtest {

template <class T>
std::vector<Subject<T>> c_library()
{
    const std::string type = sizeof(T) == 4 ? " 32f" : " 64f";
    std::vector<Subject<T>> subjects;
    const auto add = [&](const Function& function, auto f) {
        Subject<T> subject = of_numbers(function.name + type, function, f);
        subject.level = "C library";
        subjects.push_back(subject);
    };
    using One = T (*)(T);
    using Two = T (*)(T, T);
    add(functions::sine, One{std::sin});
    add(functions::cosine, One{std::cos});
    add(functions::exponential, One{std::exp});
    add(functions::logarithm, One{std::log});
    add(functions::arctangent, One{std::atan});
    add(functions::cube_root, One{std::cbrt});
    add(functions::arctangent2, Two{std::atan2});
    return subjects;
}

} // namespace orvtest
