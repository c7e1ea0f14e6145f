// The version record.
#include "orvs/frame.h"

#define ORV_TEXT(x) ORV_TEXT_OF(x)
#define ORV_TEXT_OF(x) #x

static constexpr const char variant[] = ORV_TEXT(ORV_VARIANT);

static constexpr OrvLibraryVersion s_libVer = {
    .major = 8,
    .minor = 2,
    .majorBuild = 0,
    .build = 43166,
    .targetCpu = {variant[0], variant[1], 0, 0},
    .name = "orvSP AVX2 (" ORV_TEXT(ORV_VARIANT) " threaded)",
    .version = "8.2.0 (r43166)",
    .buildDate = "Jul  7 2014",
};

const OrvLibraryVersion* orvsGetLibVersion() { return &s_libVer; }
