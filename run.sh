#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the tool, its window and its reader, and runs its main job: ./run.sh [PROJECT.vbp]
# Without a project it works on a copy of the sample, so that the checkout stays clean.
set -eu
radice=$(cd "$(dirname "$0")" && pwd)
qui=$(pwd)
. "$radice/strumenti/pacchetti.sh"
serve g++ cmake ninja-build qt6-base-dev

cd "$radice"
cmake --preset release -DMORVELLA_PROVE=OFF -DMORVELLA_BENCH=OFF >/dev/null
cmake --build --preset release
programma="$radice/build-release/morvella-cli"

if [ $# -gt 0 ]; then
  cd "$qui"
  progetto=$1
else
  rm -rf "$radice/out"
  mkdir -p "$radice/out"
  cp -r "$radice/examples/Magazzino" "$radice/out/"
  progetto="$radice/out/Magazzino/Magazzino.vbp"
fi

esito=0
"$programma" esegui --si "$progetto" || esito=$?
lavoro=$(cd "$(dirname "$progetto")" && pwd)/Appoggio
echo
echo "Results: $lavoro"
echo "  *.txt              the rewritten modules; *.frm *.bas *.cls are the same under their own names"
echo "  *.log              their structures"
primo=$(find "$lavoro" -name '*.txt' 2>/dev/null | sort | head -n 1)
[ -z "$primo" ] || echo "  look at one:       iconv -f WINDOWS-1252 '$primo' | less"
primo=$(find "$lavoro" -name '*.log' -size +0 ! -name OK.LOG 2>/dev/null | sort | head -n 1)
[ -z "$primo" ] || echo "  and at its blocks: $programma mostra '$primo'"
echo "  the program:       $programma --aiuto"
[ ! -x "$radice/build-release/morvella" ] || echo "  the window:        $radice/build-release/morvella '$progetto'"
exit $esito
