#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the release and measures it:
#   bench/run.sh            whole runs over synthetic projects; exit status 1 when a limit is broken
#   bench/run.sh --micro    Google Benchmarks; what follows goes to them (--benchmark_filter=...)
# Set from outside: BUILD    build directory (otherwise that of the preset "release")
#                   TMPDIR   where projects are generated (otherwise /dev/shm or /tmp); removed at the end
#                   GIRI     runs of each kind, the best counts (15); three where growth is measured
set -eu
LC_ALL=C
export LC_ALL
radice=$(cd "$(dirname "$0")/.." && pwd)
giri=${GIRI:-15}
giri_crescita=$((giri < 3 ? giri : 3))

# Limits
rapporto=2.0       # whole run against the floor
memoria=16384      # KiB at the peak
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
  sed -n 's/^# //; 3,8p' "$0" >&2
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
trap 'rm -rf "$lavoro"' EXIT
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

# A run of command $1 over project $2: adds "seconds KiB" to $3.
corri() {
  case $1 in
    esegui) opzioni=-sq ;;
    *) opzioni=-q ;;
  esac
  "$strumenti/misura" "$BUILD/morvella-cli" "$1" $opzioni "$lavoro/$2/Sintetico.vbp" >>"$3"
}

# The same as a person has it: with the line that shows the progress, on a terminal.
corri_a_terminale() {
  script -qec "'$strumenti/misura' '$BUILD/morvella-cli' $1 -s '$lavoro/$2/Sintetico.vbp' >>'$3'" /dev/null \
    </dev/null >/dev/null
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

echo "machine   $(uname -sm), $(getconf _NPROCESSORS_ONLN) processors"
echo "files on  $(df -P "$lavoro" | awk 'NR == 2 { print $NF }') ($(stat -f -c %T "$lavoro" 2>/dev/null || echo '?'))"
echo "best of   $giri runs"

echo
# intero NAME RUNNER COMMAND ENGINE...: the command over the project, and the floor of the same
# engines.
intero() {
  titolo=$1
  come=$2
  comando=$3
  shift 3
  $come "$comando" intero "$lavoro/scarto"
  "$strumenti/floor" --prepara "$lavoro/intero" "$lavoro/piano" "$@"
  : >"$lavoro/corsa"
  : >"$lavoro/fondo"
  i=0
  while [ $i -lt "$giri" ]; do # in turn, so that a busy machine slows down both
    "$strumenti/misura" "$strumenti/floor" "$lavoro/piano" >>"$lavoro/fondo"
    if [ $i -eq 0 ]; then
      "$strumenti/floor" --prepara "$lavoro/intero" "$lavoro/piano2" "$@"
      cmp "$lavoro/piano" "$lavoro/piano2" # the floor wrote other lengths than the run
    fi
    $come "$comando" intero "$lavoro/corsa"
    i=$((i + 1))
  done
  corsa=$(migliore "$lavoro/corsa")
  fondo=$(migliore "$lavoro/fondo")
  esito "$(conto "print ($corsa / $fondo <= $rapporto && $(picco "$lavoro/corsa") <= $memoria)")"
  printf '  %-16s %9.3f %9.3f %7.2f %12.0f %10s  %s\n' "$titolo" "$corsa" "$fondo" \
    "$(conto "print $corsa / $fondo")" "$(conto "print 1000000 / $corsa")" "$(picco "$lavoro/corsa")" "$giudizio"
}

echo "Whole runs: 1,000,000 lines in 300 modules; limits: $rapporto times the floor, $memoria KiB"
printf '  %-16s %9s %9s %7s %12s %10s\n' "" seconds floor ratio lines/s "peak KiB"
genera intero --moduli 300 --righe 1000000
intero riordina corri riordina riordina
intero struttura corri struttura struttura
intero esegui corri esegui riordina struttura
if script -qec true /dev/null >/dev/null 2>&1 </dev/null; then
  intero "  on a terminal" corri_a_terminale esegui riordina struttura
else
  echo "    on a terminal  left out: there is no script(1) that runs a command"
fi
intero documenta corri documenta documenta

if [ -x "$strumenti/finestra_bench" ]; then
  : >"$lavoro/corsa"
  : >"$lavoro/fondo"
  i=0
  while [ $i -lt "$giri" ]; do
    corri esegui intero "$lavoro/fondo"
    QT_QPA_PLATFORM=offscreen "$strumenti/finestra_bench" "$lavoro/intero/Sintetico.vbp" >>"$lavoro/corsa" 2>/dev/null
    i=$((i + 1))
  done
  quanto=$(conto "printf \"%.2f\", $(migliore "$lavoro/corsa") / $(migliore "$lavoro/fondo")")
  esito "$(conto "print ($quanto <= $finestra)")"
  echo
  echo "The same esegui in the window: $(migliore "$lavoro/corsa") seconds, $quanto times the command line's," \
    "limit $finestra: $giudizio"
  echo "  controls painted up to $(picco "$lavoro/corsa") times"
else
  echo
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
#   cresce COMMAND TITLE SIZES UNIT: reads lines "SIZE UNITS GENERA-OPTIONS" from standard input;
#   units "log" are the MB of the listing that the run has written
cresce() {
  comando=$1
  shift
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
  esito "$(conto "print ($quanto <= $crescita)")"
  printf '  the last against the cheapest %s, limit %s: %s\n' "$quanto" "$crescita" "$giudizio"
}

for comando in riordina struttura documenta; do
  altro=""
  if [ $comando = documenta ]; then altro=", the index with them"; fi
  cresce $comando "$comando: modules in one directory, 100 lines each$altro" modules module <<EOF
100 100 --moduli 100 --righe 10000
1000 1000 --moduli 1000 --righe 100000
10000 10000 --moduli 10000 --righe 1000000
EOF
done

cresce riordina "riordina: .Show entries in one file, one in ten lines" entries entry <<EOF
1000 1000 --moduli 1 --righe 10000 --show 1000
10000 10000 --moduli 1 --righe 100000 --show 10000
100000 100000 --moduli 1 --righe 1000000 --show 100000
EOF

cresce riordina "riordina: length of statements, about 60 MB in one file" characters MB <<EOF
600 60 --moduli 1 --righe 130000 --lunghezza 600
60000 60 --moduli 1 --righe 1300 --lunghezza 60000
600000 60 --moduli 1 --righe 130 --lunghezza 600000
EOF

# Each open block makes every line of the listing three bytes wider: 100,000 of them, one in the
# other, would be 15 GB. What they cost is their output: a MB of it as much at every depth, and
# 100,000 in one procedure no more than others when they stand open 300 at a time.
cresce struttura "struttura: open blocks in one procedure, without a line between them" blocks MB <<EOF
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
