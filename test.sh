#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds everything and runs every test, then again under AddressSanitizer and under
# UndefinedBehaviorSanitizer.
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
