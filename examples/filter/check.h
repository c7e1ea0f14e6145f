#ifndef FILTER_CHECK_H
#define FILTER_CHECK_H

#include <orvs/types.h>

#include <stdexcept>
#include <string>

// Every function of the library reports by its status. Here anything but success ends the program.
inline void check(OrvStatus status, const char* function)
{
    if (status != orvOk)
        throw std::runtime_error(std::string(function) + " failed with status " + std::to_string(status));
}

#endif
