# Draws what scripts/bench measured: processes.tsv has a name and milliseconds in each line, rows.tsv
# a number of catalogues and nanoseconds.
#   gnuplot -e "folder='FOLDER'" bench/speed.gnuplot > speed.svg
set terminal svg size 860,300 font "sans-serif,12" background "white"
set datafile separator "\t"
set multiplot layout 1,2
set style fill solid noborder
set tics nomirror
set border 3 linecolor "#888888"
set key off

set lmargin at screen 0.30
set rmargin at screen 0.62
set title "From start to the first access point, ms"
set xrange [0:*]
set yrange [*:*] reverse
set offsets 0, 0, 0.6, 0.6
set ytics scale 0
plot folder."/processes.tsv" using ($2/2):0:($2/2):(0.35):($0 == 0 ? 0x2a6fbb : 0xaab4c0):ytic(1) \
         with boxxyerror linecolor rgb variable, \
     "" using 2:0:(sprintf(" %.2f", $2)) with labels left

set lmargin at screen 0.72
set rmargin at screen 0.97
set title "Start, ns a row"
set xlabel "catalogues of the world in one"
set logscale x 2
set xrange [0.8:20]
set yrange [0:*] noreverse
set offsets 0, 0, 0, 0
set ytics scale 1 autofreq
plot folder."/rows.tsv" using 1:2 with linespoints linewidth 2 pointtype 7 linecolor "#2a6fbb"
