/* Everything: one include for a program that does not care which family a function belongs to. */
#ifndef ORVS_H
#define ORVS_H

#include "orvs/arith.h"
#include "orvs/convert.h"
#include "orvs/core.h"
#include "orvs/fir.h"
#include "orvs/frame.h"
#include "orvs/stats.h"
#include "orvs/transform.h"
#include "orvs/types.h"

#endif
