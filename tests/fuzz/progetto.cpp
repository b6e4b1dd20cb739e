// SPDX-License-Identifier: MIT
//
// The project reader over any bytes: it ends, with short reads as without, and every row is a piece of
// a line of the file.
#include "fuzz/banco.h"

namespace {

using namespace morvella;
using namespace morvella::prove;

std::vector<Testo> Voci(const std::string& bytes, bool lf, bool lento) {
    DiscoLento disco;
    disco.Lento = lento;
    disco.Metti("/p/P.vbp", bytes);
    FinestraFinta finestra;
    Stato s(disco, finestra);
    s.Canale.FineRigaLf = lf;
    CambiaDir1(s, "/p");
    s.File1Leggi.Nomi = {"P.vbp"};
    s.File1Leggi.ListIndex = 0;
    LeggiProgetto(s);
    std::vector<Testo> voci;
    for (Lungo i = 0; i < s.File1.ListCount(); ++i) voci.push_back(s.File1.List(i));
    return voci;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dati, std::size_t quanti) {
    const std::string bytes(reinterpret_cast<const char*>(dati), quanti);
    for (const bool lf : {false, true}) {
        const std::vector<Testo> voci = Voci(bytes, lf, false);
        Esige(Voci(bytes, lf, true) == voci, "short reads give other rows");
        for (std::size_t i = 0; i < voci.size(); ++i) {
            Esige(bytes.find(voci[i]) != std::string::npos, "a row that no line holds");
            Esige(i == 0 || LCase(voci[i - 1]) <= LCase(voci[i]), "rows out of order");
        }
    }
    return 0;
}
