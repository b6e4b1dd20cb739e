#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the release and measures it:
#   bench/run.sh            whole runs over synthetic projects; exit status 1 when a limit is broken
#   bench/run.sh --micro    Google Benchmarks; what follows goes to them (--benchmark_filter=...)
# Set from outside: BUILD    build directory (otherwise that of the preset "release")
#                   TMPDIR   where projects are generated (otherwise /dev/shm or /tmp); removed at the end
#                   DISCO    a directory on a real disk for the second table (otherwise BUILD)
#                   GIRI     pairs of each ratio, the median decides (31); growth takes the best of three
set -eu
LC_ALL=C
export LC_ALL
radice=$(cd "$(dirname "$0")/.." && pwd)
giri=${GIRI:-31}
giri_crescita=$((giri < 3 ? giri : 3))

# Limits
rapporto_di() { # whole run of an operation against the floor
  case $1 in
    riordina) echo 1.70 ;;
    struttura) echo 2.0 ;;
    esegui) echo 1.8 ;;
    documenta) echo 1.9 ;;
  esac
}
memoria=16384      # KiB at the peak
memoria_molti=24576 # KiB at the peak for 10,000 modules
memoria_piu=1024   # KiB more at the peak for a file 100 times longer
finestra=1.2       # whole run in the window against the same without it
crescita=2.0       # time per module, per entry, per MB: the largest size against the cheapest

costruisci() { # target...
  cd "$radice"
  if [ -n "${BUILD:-}" ]; then
    cmake -S . -B "$BUILD" -DCMAKE_BUILD_TYPE=Release -DMORVELLA_BENCH=ON >/dev/null
    cmake --build "$BUILD" --target "$@" >&2
  else
    BUILD=$radice/build-release
    cmake --preset release -DMORVELLA_BENCH=ON >/dev/null
    cmake --build --preset release --target "$@" >&2
  fi
  BUILD=$(cd "$BUILD" && pwd)
}

if [ "${1:-}" = --micro ]; then
  shift
  costruisci primitive_bench
  exec "$BUILD/bench/primitive_bench" "$@"
fi
if [ $# -gt 0 ]; then
  sed -n '3,9s/^# //p' "$0" >&2
  exit 2
fi

costruisci morvella-cli genera floor misura
strumenti=$BUILD/bench
# Only where Qt was found.
if cmake --build "$BUILD" --target help 2>/dev/null | grep -q finestra_bench; then costruisci finestra_bench; fi
dove=${TMPDIR:-}
if [ -z "$dove" ]; then
  dove=/tmp
  # 600 MiB are enough for all of it.
  libero=$(df -Pk /dev/shm 2>/dev/null | awk 'NR == 2 { print $4 }')
  if [ -w /dev/shm ] && [ "${libero:-0}" -gt 614400 ]; then dove=/dev/shm; fi
fi
lavoro=$(mktemp -d "$dove/morvella-bench.XXXXXX")
disco=$(mktemp -d "${DISCO:-$BUILD}/morvella-bench.XXXXXX")
trap 'rm -rf "$lavoro" "$disco"' EXIT
trap 'exit 130' INT TERM HUP

rotti=0
conto() { awk "BEGIN { $1 }"; }
esito() { # 1 when the limit is kept
  if [ "$1" = 1 ]; then giudizio=ok; else giudizio=BROKEN rotti=$((rotti + 1)); fi
}

genera() { # name, options: makes the project anew
  nome=$1
  shift
  rm -rf "${lavoro:?}/$nome"
  "$strumenti/genera" "$lavoro/$nome" "$@"
}

# Without a word on a run: what a script would use.
opzioni_di() {
  case $1 in
    esegui) echo -sq ;;
    *) echo -q ;;
  esac
}

# A run of command $1 over project $2: adds "seconds KiB" to $3.
corri() {
  "$strumenti/misura" "$BUILD/morvella-cli" "$1" "$(opzioni_di "$1")" "$lavoro/$2/Sintetico.vbp" >>"$3"
}

# The best time and the greatest peak of a file of measures.
migliore() { awk 'NR == 1 || $1 < m { m = $1 } END { printf "%.6f", m }' "$1"; }
picco() { awk '$2 > p { p = $2 } END { print p }' "$1"; }

# Best of some runs of command $1 over project $2, $3 of them; leaves it in $tempo and $kib.
misura() {
  : >"$lavoro/misure"
  i=0
  while [ $i -lt "${3:-$giri_crescita}" ]; do
    corri "$1" "$2" "$lavoro/misure"
    i=$((i + 1))
  done
  tempo=$(migliore "$lavoro/misure")
  kib=$(picco "$lavoro/misure")
}

luogo_di() { # where a directory lies
  echo "$(df -P "$1" | awk 'NR == 2 { print $NF }') ($(stat -f -c %T "$1" 2>/dev/null || echo '?'))"
}

echo "machine   $(uname -sm), $(getconf _NPROCESSORS_ONLN) processors"
echo "files on  $(luogo_di "$lavoro"), disk rows on $(luogo_di "$disco")"
echo "ratios    median of $giri pairs, run and floor in turn"

# coppie DIRECTORY COMMAND: the command over the project in DIRECTORY and the floor of its engines in turn.
coppie() {
  dove=$1
  comando=$2
  case $comando in
    esegui) set -- riordina struttura ;;
    *) set -- "$comando" ;;
  esac
  "$BUILD/morvella-cli" "$comando" "$(opzioni_di "$comando")" "$dove/Sintetico.vbp" >/dev/null
  "$strumenti/floor" --prepara "$dove" "$lavoro/piano" "$@"
  "$strumenti/floor" "$lavoro/piano"
  "$strumenti/floor" --prepara "$dove" "$lavoro/piano2" "$@"
  cmp "$lavoro/piano" "$lavoro/piano2" # the floor must write the same lengths as the run
  if [ "$terminale" = 1 ]; then # as a person has it: with the line that shows the progress
    script -qec "'$strumenti/misura' --coppie $giri '$BUILD/morvella-cli' $comando -s '$dove/Sintetico.vbp' \
      -- '$strumenti/floor' '$lavoro/piano' >'$lavoro/coppie'" /dev/null </dev/null >/dev/null
  else
    "$strumenti/misura" --coppie "$giri" "$BUILD/morvella-cli" "$comando" "$(opzioni_di "$comando")" \
      "$dove/Sintetico.vbp" -- "$strumenti/floor" "$lavoro/piano" >"$lavoro/coppie"
  fi
}

# riga TITLE LIMIT: a row of the table from the last pairs; without a limit it decides nothing.
riga() {
  # shellcheck disable=SC2046 # the measures are words
  set -- "$1" "$2" $(cat "$lavoro/coppie")
  if [ -n "$2" ]; then
    esito "$(conto "print ($5 <= $2 && $8 <= $memoria)")"
  else
    giudizio="for information"
  fi
  printf '  %-16s %9.3f %9.3f %7.2f  %4.2f-%4.2f %6s %12.0f %10s  %s\n' "$1" "$3" "$4" "$5" "$6" "$7" "${2:--}" \
    "$(conto "print 1000000 / $3")" "$8" "$giudizio"
}

intestazione() {
  printf '  %-16s %9s %9s %7s %10s %6s %12s %10s\n' "" seconds floor ratio quartiles limit lines/s "peak KiB"
}

terminale=0
genera intero --moduli 300 --righe 1000000
echo
echo "Whole runs: 1,000,000 lines in 300 modules; limits: the ratio, and $memoria KiB"
intestazione
for comando in riordina struttura esegui documenta; do
  coppie "$lavoro/intero" $comando
  riga "$comando" "$(rapporto_di "$comando")"
  if [ "$comando" != esegui ]; then continue; fi
  if script -qec true /dev/null >/dev/null 2>&1 </dev/null; then
    terminale=1
    coppie "$lavoro/intero" esegui
    riga "  on a terminal" "$(rapporto_di esegui)"
    terminale=0
  else
    echo "    on a terminal  left out: there is no script(1) that runs a command"
  fi
done

echo
echo "The same on the disk: what it is busy with decides the seconds, so no limit holds here"
if [ "$(stat -f -c %T "$disco" 2>/dev/null)" = tmpfs ]; then
  echo "  left out: $(luogo_di "$disco") is no real disk; set DISCO"
else
  "$strumenti/genera" "$disco/intero" --moduli 300 --righe 1000000
  intestazione
  for comando in riordina struttura esegui documenta; do
    coppie "$disco/intero" $comando
    riga "$comando" ""
  done
  rm -rf "$disco/intero"
fi

echo
if [ -x "$strumenti/finestra_bench" ]; then
  QT_QPA_PLATFORM=offscreen "$strumenti/misura" --coppie "$giri" --detto \
    "$strumenti/finestra_bench" "$lavoro/intero/Sintetico.vbp" \
    -- "$BUILD/morvella-cli" esegui -sq "$lavoro/intero/Sintetico.vbp" >"$lavoro/coppie" 2>/dev/null
  # shellcheck disable=SC2046 # the measures are words
  set -- $(cat "$lavoro/coppie")
  esito "$(conto "print ($3 <= $finestra)")"
  echo "The same esegui in the window: $1 seconds, $3 ($4-$5) times the command line's, limit $finestra: $giudizio"
  echo "  controls painted up to $6 times"
else
  echo "The window is left out: there is no Qt here"
fi
rm -rf "$lavoro/intero"

echo
echo "Memory: one file"
printf '  %-10s %9s %9s %10s\n' "" lines seconds "peak KiB"
for righe in 3300 330000; do
  genera "uno$righe" --moduli 1 --righe $righe
done
for comando in riordina struttura documenta; do
  for righe in 3300 330000; do
    misura "$comando" "uno$righe"
    printf '  %-10s %9s %9.4f %10s\n' "$comando" $righe "$tempo" "$kib"
    if [ $righe = 3300 ]; then kib_corto=$kib; fi
  done
  esito "$(conto "print ($kib <= $memoria && $kib - $kib_corto <= $memoria_piu)")"
  printf '  limit %s KiB, and %s KiB more for the longer file: %s\n' "$memoria" "$memoria_piu" "$giudizio"
done
rm -rf "$lavoro"/uno*

# How the time per unit grows: the largest size against the cheapest.
#   cresce COMMAND KIB TITLE SIZES UNIT: reads lines "SIZE UNITS GENERA-OPTIONS" from standard input;
#   units "log" are the MB of the listing that the run has written; KIB is the limit of the last
#   row's peak, "" for none
cresce() {
  comando=$1
  limite=$2
  shift 2
  # What the program takes to start and to end is not of any unit.
  genera vuoto --moduli 1 --righe 40
  misura "$comando" vuoto 20
  avvio=$tempo
  echo
  echo "$1"
  printf '  %-16s %9s %14s %10s\n' "$2" seconds "us per $3" "peak KiB"
  : >"$lavoro/unita"
  while read -r etichetta quanti opzioni; do
    # shellcheck disable=SC2086 # the options are words
    genera cresce $opzioni
    misura "$comando" cresce
    if [ "$quanti" = log ]; then
      quanti=$(cat "$lavoro"/cresce/Appoggio/*.log | wc -c)
      quanti=$(conto "printf \"%.3f\", $quanti / 1e6")
    fi
    per=$(conto "print ($tempo - $avvio) * 1e6 / $quanti")
    printf '  %-16s %9.4f %14.3f %10s\n' "$etichetta" "$tempo" "$per" "$kib"
    echo "$per" >>"$lavoro/unita"
  done
  rm -rf "$lavoro/cresce"
  quanto=$(awk 'NR == 1 || $1 < m { m = $1 } { u = $1 } END { printf "%.2f", u / m }' "$lavoro/unita")
  esito "$(conto "print ($quanto <= $crescita && ${kib:-0} <= ${limite:-$kib})")"
  printf '  the last against the cheapest %s, limit %s%s: %s\n' "$quanto" "$crescita" \
    "${limite:+, and $limite KiB}" "$giudizio"
}

for comando in riordina struttura documenta; do
  altro=""
  if [ $comando = documenta ]; then altro=", the index with them"; fi
  cresce $comando $memoria_molti "$comando: modules in one directory, 100 lines each$altro" modules module <<EOF
100 100 --moduli 100 --righe 10000
1000 1000 --moduli 1000 --righe 100000
10000 10000 --moduli 10000 --righe 1000000
EOF
done

cresce riordina "" "riordina: .Show entries in one file, one in ten lines" entries entry <<EOF
1000 1000 --moduli 1 --righe 10000 --show 1000
10000 10000 --moduli 1 --righe 100000 --show 10000
100000 100000 --moduli 1 --righe 1000000 --show 100000
EOF

cresce riordina "" "riordina: length of statements, about 60 MB in one file" characters MB <<EOF
600 60 --moduli 1 --righe 130000 --lunghezza 600
60000 60 --moduli 1 --righe 1300 --lunghezza 60000
600000 60 --moduli 1 --righe 130 --lunghezza 600000
EOF

# Each open block makes every line of the listing three bytes wider: 100,000 of them, one in the
# other, would be 15 GB. What they cost is their output: a MB of it as much at every depth, and
# 100,000 in one procedure no more than others when they stand open 300 at a time.
cresce struttura "" "struttura: open blocks in one procedure, without a line between them" blocks MB <<EOF
1000 log --aperti 1000
3000 log --aperti 3000
10000 log --aperti 10000
100000_by_300 log --aperti 100000 --profondi 300
EOF

echo
if [ $rotti -gt 0 ]; then
  echo "$rotti limits broken"
  exit 1
fi
echo "all limits kept"
