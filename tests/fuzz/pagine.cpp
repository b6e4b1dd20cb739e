// SPDX-License-Identifier: MIT
//
// The HTML pages of any module. Any bytes come to an end, sources stay, and the oracles of
// ProvaMotore hold.
#include "docs/docs.h"
#include "fuzz/banco.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    morvella::prove::ProvaMotore(dati, quanti, morvella::mnuHTML_Click);
    return 0;
}
