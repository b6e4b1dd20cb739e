// SPDX-License-Identifier: MIT
#include "shell/protezione.h"

#include "shell/cartella.h"

namespace morvella {

void ProteggiSorgenti(Stato& s) {
    // Runs are repeated for the rows that are left; none should examine every row again.
    if (s.Protetto.Versione == s.File1.Versione() && s.Protetto.Directory == s.Dir1Path &&
        s.Protetto.Progetto == s.File1Leggi.Scelto() && s.File.ProtezioneFresca())
        return;
    std::vector<Testo> percorsi;
    percorsi.reserve(static_cast<std::size_t>(s.File1.ListCount()) * 2 + 1);
    for (Lungo i = 0; i < s.File1.ListCount(); ++i) {
        const Testo& voce = s.File1.List(i);
        percorsi.push_back(s.Dir1Path + "\\" + voce);
        if (Len(voce) >= 4) percorsi.push_back(s.Dir1Path + "\\" + Testo(BaseDiVoce(voce)) + ".Frx");
    }
    percorsi.push_back(s.Dir1Path + "\\" + Testo(s.File1Leggi.Scelto()));
    s.Protetto.Versione = -1; // Proteggi may throw halfway
    s.File.Proteggi(percorsi);
    s.Protetto.Versione = s.File1.Versione();
    s.Protetto.Directory = s.Dir1Path;
    s.Protetto.Progetto = s.File1Leggi.Scelto();
}

} // namespace morvella
