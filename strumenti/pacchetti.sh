# SPDX-License-Identifier: MIT
# Sourced by the scripts at the root: serve PACKAGE... installs what is missing, on Debian and
# its like through apt, with sudo where the user is not root; elsewhere it says what is needed.

serve() {
  mancano=
  for pacchetto in "$@"; do
    presente "$pacchetto" || mancano="$mancano $pacchetto"
  done
  [ -n "$mancano" ] || return 0
  if ! command -v apt-get >/dev/null 2>&1; then
    echo "Needed (names of Debian's packages):$mancano" >&2
    echo "This system has no apt-get: please install their like and run this again." >&2
    return 1
  fi
  come_root=
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null 2>&1 || {
      echo "Needed:$mancano - as root: apt-get install$mancano" >&2
      return 1
    }
    come_root=sudo
  fi
  echo "Installing:$mancano" >&2
  $come_root apt-get update -qq
  # shellcheck disable=SC2086 # a list of words is meant
  $come_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $mancano >/dev/null
}

# Whether what a package brings is there, however it came.
presente() {
  case $1 in
    g++) command -v c++ >/dev/null 2>&1 ;;
    cmake) command -v cmake >/dev/null 2>&1 ;;
    ninja-build) command -v ninja >/dev/null 2>&1 ;;
    qt6-base-dev) installato "$1" || { ! command -v apt-get && command -v qmake6; } >/dev/null 2>&1 ;;
    *) installato "$1" ;;
  esac
}

installato() {
  dpkg-query -W -f '${Status}' "$1" 2>/dev/null | grep -q 'install ok installed'
}
