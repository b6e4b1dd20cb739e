#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds everything and runs every test, then again under AddressSanitizer and
# UndefinedBehaviorSanitizer in one build. With --browser also walks through the pages of the sample
# in a real browser, with --schermo through the windows on a screen in memory; screenshots stay in
# build-release/schermate.
set -eu
cd "$(dirname "$0")"
. strumenti/pacchetti.sh
browser= schermo=
for opzione in "$@"; do
  case $opzione in
    --browser) browser=si ;;
    --schermo) schermo=si ;;
    *) echo "usage: ./test.sh [--browser] [--schermo]" >&2; exit 2 ;;
  esac
done
serve g++ cmake ninja-build libgtest-dev libbenchmark-dev qt6-base-dev fonts-liberation \
  desktop-file-utils appstream libxml2-utils shared-mime-info

for modo in release sanitizers; do
  echo "== $modo"
  cmake --preset $modo -DMORVELLA_PROVE=ON >/dev/null
  cmake --build --preset $modo
  ctest --preset $modo -j "$(nproc)" --output-on-failure
done

if [ -n "$schermo" ]; then
  echo "== schermo"
  serve xvfb openbox xdotool imagemagick fonts-comic-neue
  tests/schermo/esegui build-release build-release/schermate
fi

if [ -n "$browser" ]; then
  echo "== browser"
  tests/browser/esegui build-release/morvella-cli build-release/schermate
fi
