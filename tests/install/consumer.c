/* A C program that links the installed library. Prints what it got; exit code 0 if all of it is right. */
#include <orvs/orvs.h>

#include <stdio.h>
#include <string.h>

static int sums_saturate(void)
{
    const Orv16s a[4] = {1, 32767, -32768, 100};
    const Orv16s b[4] = {2, 1, -1, -200};
    const Orv16s expected[4] = {3, 32767, -32768, -100};
    Orv16s sum[4] = {0, 0, 0, 0};
    const OrvStatus status = orvsAdd_16s(a, b, sum, 4);

    printf("orvsAdd_16s: status %d, sums %d %d %d %d\n", (int)status, sum[0], sum[1], sum[2], sum[3]);
    return status == orvOk && memcmp(sum, expected, sizeof sum) == 0 && orvsAdd_16s(a, b, NULL, 4) == orvErrNullPointer;
}

static int version_is_known(void)
{
    const OrvLibraryVersion* version = orvsGetLibVersion();

    printf("%s, version %s\n", version->name, version->version);
    return version->major == 8 && version->minor == 2;
}

static int core_is_linked(void)
{
    printf("%d threads\n", orvGetNumThreads());
    return orvGetNumThreads() >= 1;
}

int main(void) { return version_is_known() && sums_saturate() && core_is_linked() ? 0 : 1; }
