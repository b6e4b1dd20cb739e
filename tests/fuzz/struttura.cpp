// SPDX-License-Identifier: MIT
//
// The structure listing over any module. Any bytes come to an end, sources stay, and the oracles of
// ProvaMotore hold.
#include "fuzz/banco.h"
#include "listing/listing.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    morvella::prove::ProvaMotore(dati, quanti, morvella::mnuvorn_Click);
    return 0;
}
