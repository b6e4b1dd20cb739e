#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds everything and runs every test, then again under AddressSanitizer and under
# UndefinedBehaviorSanitizer. With --browser also walks through the pages of the sample in a
# real browser; screenshots stay in build-release/schermate.
set -eu
cd "$(dirname "$0")"
. strumenti/pacchetti.sh
serve g++ cmake ninja-build libgtest-dev libbenchmark-dev

for modo in release asan ubsan; do
  echo "== $modo"
  cmake --preset $modo -DMORVELLA_PROVE=ON >/dev/null
  cmake --build --preset $modo
  ctest --preset $modo -j "$(nproc)" --output-on-failure
done

if [ "${1:-}" = --browser ]; then
  echo "== browser"
  tests/browser/esegui build-release/morvella-cli build-release/schermate
fi
