# Draws the growth curves: medians as lines, the module solid and the plain reference dashed.
#   gnuplot -e "data='growth.csv'; picture='growth.svg'" growth.gnuplot
set terminal svg size 1200,420 font 'sans-serif,13' background rgb 'white'
set output picture
set datafile separator ','
set logscale xy
set grid ytics lc rgb '#dddddd'
set format y '%.0s %cs'
set yrange [1e-8:1e-2]
set key off
set multiplot layout 1,3

algorithms = 'minimum notes,maximum notes,equal notes,equal emptying'
colours = '#1b6ca8 #d1495b #2a9d5c #8a5fbf'
name(i) = system(sprintf("echo '%s' | cut -d, -f%d", algorithms, i))
picked(curve, who, i) = sprintf("< grep '^%s,[0-9]*,%s,%s,' %s", curve, name(i), who, data)

do for [curve in 'amount units limit'] {
    set title 'median time against '.curve
    set xlabel curve
    if (curve eq 'amount') { set key top left Left reverse samplen 2; set xrange [10:30000] }
    if (curve ne 'amount') { set key off; set xrange [*:*] }
    if (curve eq 'units') { unset logscale x; set xtics 1 } else { set logscale x; set xtics auto }
    plot for [i=1:4] picked(curve, 'module', i) using 2:($5*1e-9) with linespoints \
             lw 2 pt 7 ps 0.5 lc rgb word(colours, i) title name(i), \
         for [i=1:4] picked(curve, 'reference', i) using 2:($5*1e-9) with lines \
             lw 1 dt 2 lc rgb word(colours, i) title (i == 3 ? 'dashed: plain enumeration' : '')
}
unset multiplot
