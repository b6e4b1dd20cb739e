// SPDX-License-Identifier: MIT
//
// The decoder of listings over any line: its slices are the whole line, in order, and both ways of
// taking a line apart agree.
#include "listing/decodifica.h"
#include "fuzz/banco.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    using namespace morvella;
    using namespace morvella::prove;
    const Vista riga(reinterpret_cast<const char*>(dati), quanti);
    std::vector<Porzione> fette;
    std::vector<Tratto> tratti;
    TagliaRiga(riga, fette);
    DecodificaRiga(riga, tratti);
    Esige(fette.size() == tratti.size(), "slices and texts differ in number");
    std::size_t fine = 0;
    for (std::size_t i = 0; i < fette.size(); ++i) {
        Esige(fette[i].Da == fine && fette[i].Quanti > 0, "a slice that does not follow");
        Esige(fette[i].Che == tratti[i].Che && !tratti[i].Utf8.empty(), "slice and text disagree");
        fine += fette[i].Quanti;
    }
    Esige(fine == riga.size(), "the slices are not the line");
    Esige(CampoDiRiga(riga) <= riga.size(), "a field beyond the line");
    return 0;
}
