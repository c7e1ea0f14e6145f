#!/usr/bin/env -S gnuplot -c
# Draws the rates of the fast Fourier transforms, ours and FFTW's, over the logarithm of the length:
#
#     build/x9/bench/bench_transform >table.txt
#     bench/plot_fft.gp table.txt fft.png

if (ARGC != 2) { print "usage: bench/plot_fft.gp TABLE PICTURE"; exit status 1 }

set terminal pngcairo size 1200, 500 font "sans,12"
set output ARG2
set multiplot layout 1, 2
set xlabel "log_2 N"
set ylabel "GF/s"
set xrange [2:23]
set xtics 2
set yrange [0:]
set grid
set key below maxrows 2
set style data linespoints

# The columns of the table: 2 kind, 3 size, 6 rate of ours, 10 ratio of ours to the better of FFTW's plans.
last(text) = text[strlen(text):]
unit(text) = last(text) eq "K" ? 1024 : last(text) eq "M" ? 1024 * 1024 : 1
order(column_of_size) = log(column(column_of_size) * unit(strcol(column_of_size))) / log(2)
ours(kind) = strcol(2) eq kind ? column(6) : NaN
fftw(kind) = ours(kind) / column(10)

array real[2] = ["rfft32f", "rfft64f"]
array complex[2] = ["fft32fc", "fft64fc"]
set title "complex: 5 N log_2 N operations"
plot for [i = 1:2] ARG1 using (order(3)):(ours(complex[i])) title "ours ".complex[i] lc i pt 7, \
     for [i = 1:2] ARG1 using (order(3)):(fftw(complex[i])) title "FFTW ".complex[i] lc i pt 6 dt 2
set title "real: 2.5 N log_2 N operations"
plot for [i = 1:2] ARG1 using (order(3)):(ours(real[i])) title "ours ".real[i] lc i pt 7, \
     for [i = 1:2] ARG1 using (order(3)):(fftw(real[i])) title "FFTW ".real[i] lc i pt 6 dt 2
