// SPDX-License-Identifier: MIT
//
// The rewriter over any module. Any bytes come to an end, sources stay, and the oracles of
// ProvaMotore hold.
#include "fuzz/banco.h"
#include "rewriter/rewriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    morvella::prove::ProvaMotore(dati, quanti, morvella::mnuRiordina_Click);
    return 0;
}
