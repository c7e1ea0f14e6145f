/* Tells how a recording is levelled: for each channel its peak and where that is, its offset, its RMS level, its crest
 * factor and its deviation; for two channels also how much they have in common.
 *
 *     peak        the largest magnitude                    offset       the mean
 *     RMS         sqrt(mean of squares)                    crest        peak / RMS
 *     deviation   of the samples from their mean           correlation  sum(a * b) / sqrt(sum(a^2) * sum(b^2))
 *
 * A channel is held as a whole, in double precision: sums of hours of audio keep their digits, and the place of a peak
 * is exact at any length. */

#include <orvs/frame.h>
#include <orvs/stats.h>

#include <sndfile.h>

#include <limits.h>
#include <math.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { block_frames = 4096, usage_error = 2 };

static const char default_recording[] = "/usr/share/sounds/alsa/Front_Center.wav";

static void print_help(void)
{
    printf(
        "Usage: levels [recording]\n"
        "Prints, for each channel of a recording, its peak and the time of it, its offset, its RMS level, its crest\n"
        "factor and its standard deviation, and the correlation of two channels.\n"
        "\n"
        "  --help        this text\n"
        "\n"
        "0 dB is full scale. A sine has a crest factor of 3.01 dB. A correlation of 1 is mono, 0 are channels that\n"
        "have nothing in common, and with -1 nothing is left when they are added.\n"
        "The whole recording is held in memory, with 8 bytes a sample.\n"
        "Without a file name: %s\n",
        default_recording);
}

/* Ends the program. */
static void fail(int code, const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    fputs("levels: ", stderr);
    vfprintf(stderr, format, arguments);
    fputs(code == usage_error ? "\nTry 'levels --help'.\n" : "\n", stderr);
    va_end(arguments);
    exit(code);
}

/* Every function of the library reports by its status. Here anything but success ends the program. */
static void check(OrvStatus status, const char* function)
{
    if (status != orvOk) fail(EXIT_FAILURE, "%s failed with status %d", function, (int)status);
}

/* ---- Recordings */

typedef struct {
    const char* path;
    int rate, channels, len;
    Orv64f** channel; /* channels arrays of len samples, in [-1, 1) unless the recording is louder than full scale */
} Recording;

static SNDFILE* open_recording(const char* path, SF_INFO* info)
{
    memset(info, 0, sizeof *info);
    SNDFILE* file = sf_open(path, SFM_READ, info);
    if (!file) fail(EXIT_FAILURE, "cannot read '%s': %s", path, sf_strerror(NULL));
    /* A deviation is one of two values at least. */
    if (info->frames < 2) fail(EXIT_FAILURE, "'%s' holds %s", path, info->frames ? "a single sample" : "no samples");
    if (info->frames > INT_MAX) fail(EXIT_FAILURE, "'%s' holds more than %d samples", path, INT_MAX);
    return file;
}

static void* must_have(void* memory)
{
    if (!memory) fail(EXIT_FAILURE, "out of memory");
    return memory;
}

static Recording read_recording(const char* path)
{
    SF_INFO info;
    SNDFILE* file = open_recording(path, &info);
    Recording recording = {path, info.samplerate, info.channels, (int)info.frames, NULL};
    const size_t width = (size_t)info.channels;
    recording.channel = must_have(malloc(width * sizeof *recording.channel));
    for (size_t c = 0; c < width; c++) recording.channel[c] = must_have(orvsMalloc_64f(recording.len));

    double* block = must_have(malloc(block_frames * width * sizeof *block)); /* channels are interleaved */
    for (int done = 0; done < recording.len;) {
        const int got = (int)sf_readf_double(file, block, block_frames);
        if (got < 1 || got > recording.len - done) {
            fail(EXIT_FAILURE, "cannot read '%s': %s", path,
                 sf_error(file) ? sf_strerror(file) : "its length is wrong");
        }
        for (size_t c = 0; c < width; c++) {
            for (int i = 0; i < got; i++) recording.channel[c][done + i] = block[(size_t)i * width + c];
        }
        done += got;
    }
    free(block);
    sf_close(file);
    return recording;
}

static void release(Recording* recording)
{
    for (int c = 0; c < recording->channels; c++) orvsFree(recording->channel[c]);
    free(recording->channel);
}

/* ---- Levels */

typedef struct {
    Orv64f peak; /* a magnitude */
    Orv32s peak_at;
    Orv64f offset, rms, deviation;
} Levels;

static Levels measure(const Orv64f* x, int len)
{
    Levels levels;
    Orv64f most, least, norm;
    Orv32s most_at, least_at;
    check(orvsMaxIndx_64f(x, len, &most, &most_at), "orvsMaxIndx_64f");
    check(orvsMinIndx_64f(x, len, &least, &least_at), "orvsMinIndx_64f");
    const int above = most > -least || (most == -least && most_at < least_at);
    levels.peak = above ? most : -least;
    levels.peak_at = above ? most_at : least_at;

    check(orvsNorm_L2_64f(x, len, &norm), "orvsNorm_L2_64f");
    levels.rms = norm / sqrt(len);
    check(orvsMeanStdDev_64f(x, len, &levels.offset, &levels.deviation), "orvsMeanStdDev_64f");
    return levels;
}

/* ---- Report */

static double decibels(double ratio) { return 20 * log10(ratio); }

static void print_channel(int number, const Levels* levels, int rate)
{
    printf("%-7d %8.2f dB %11.4f s %+10.6f %8.2f dB ", number, decibels(levels->peak), (double)levels->peak_at / rate,
           levels->offset, decibels(levels->rms));
    if (levels->rms > 0) printf("%5.2f dB", decibels(levels->peak / levels->rms));
    else printf("       -"); /* of silence */
    printf("  %9.6f\n", levels->deviation);
}

static void print_correlation(const Recording* recording, const Levels levels[2])
{
    Orv64f product;
    check(orvsDotProd_64f(recording->channel[0], recording->channel[1], recording->len, &product), "orvsDotProd_64f");
    const double scale = levels[0].rms * levels[1].rms * recording->len;
    if (scale > 0) printf("\ncorrelation %+.4f\n", product / scale);
    else printf("\ncorrelation -\n");
}

static void print_report(const Recording* recording)
{
    printf("recording %8.3f s  %s (%d Hz, %d channel%s)\n\n", (double)recording->len / recording->rate, recording->path,
           recording->rate, recording->channels, recording->channels == 1 ? "" : "s");
    printf("channel        peak            at     offset         RMS    crest  deviation\n");
    Levels levels[2]; /* of the last two channels */
    for (int c = 0; c < recording->channels; c++) {
        levels[c % 2] = measure(recording->channel[c], recording->len);
        print_channel(c + 1, &levels[c % 2], recording->rate);
    }
    if (recording->channels == 2) print_correlation(recording, levels);
}

int main(int argc, char** argv)
{
    const char* path = default_recording;
    int files = 0;
    for (int i = 1; i < argc; i++) {
        if (strcmp(argv[i], "--help") == 0) {
            print_help();
            return EXIT_SUCCESS;
        }
        if (argv[i][0] == '-') fail(usage_error, "unknown option %s", argv[i]);
        path = argv[i];
        files++;
    }
    if (files > 1) fail(usage_error, "expected one recording or none, got %d", files);

    Recording recording = read_recording(path);
    print_report(&recording);
    release(&recording);
    return EXIT_SUCCESS;
}
