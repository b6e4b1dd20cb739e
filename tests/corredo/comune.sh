# SPDX-License-Identifier: MIT
# Sourced by the tests beside it: installa PREFIX [OPTION...] installs the build there and leaves
# the build's own manifest, by which its user may remove what he installed, as it was.

fallito() {
  echo "FAILED: $*" >&2
  exit 1
}

installa() {
  prefisso=$1
  shift
  for manifesto in "$costruzione"/install_manifest*.txt; do
    [ ! -e "$manifesto" ] || mv "$manifesto" "$manifesto.prima"
  done
  esito=0
  "$cmake" --install "$costruzione" --prefix "$prefisso" "$@" >"$prova/installazione" || esito=$?
  rm -f "$costruzione"/install_manifest*.txt
  for manifesto in "$costruzione"/install_manifest*.txt.prima; do
    [ ! -e "$manifesto" ] || mv "$manifesto" "${manifesto%.prima}"
  done
  [ "$esito" -eq 0 ] || {
    cat "$prova/installazione"
    fallito "the installation ended with $esito"
  }
}
