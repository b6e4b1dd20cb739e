// SPDX-License-Identifier: MIT
#include "shell/cartella.h"

namespace morvella {

namespace {

// A statement under "resume next": the next one runs whatever becomes of it. What it leaves undone is
// reported, but for a missing directory, which the engines meet at their first output, and for a
// channel that an earlier failure left closed.
template <class F>
void SaltaSeFallisce(Stato& s, F&& statement) {
    try {
        statement();
    } catch (const Errore& e) {
        if (e.Numero != ErrPercorso && e.Numero != ErrNumeroFile) s.Fronte.ErroreSaltato(e);
    }
}

} // namespace

void ScriviDir(Stato& s, Vista mdir) {
    const Testo marca = Testo(mdir) + "\\OK.LOG";
    s.File.SganciaLavoro(); // of an earlier run
    // A plain file of that name counts as the directory: nothing is made, and the engines fail at
    // their first output.
    bool manca = false;
    SaltaSeFallisce(s, [&] { manca = s.File.Dir(mdir, 16).empty(); });
    if (manca) {
        SaltaSeFallisce(s, [&] { s.File.MkDir(mdir); });
        SaltaSeFallisce(s, [&] { s.Canale.OpenOutput(7, marca); });
        SaltaSeFallisce(s, [&] { s.Canale.Print(7, FraseOkLog); });
        SaltaSeFallisce(s, [&] { s.Canale.Close(7); });
    }
    s.DirAppoggio = mdir;
    SaltaSeFallisce(s, [&] { s.File.AgganciaLavoro(mdir); });
    const Testo progetto(s.File1Leggi.Scelto());
    if (!Trim(progetto).empty())
        SaltaSeFallisce(
            s, [&] { s.File.FileCopy(s.Dir1Path + "\\" + progetto, Testo(mdir) + "\\" + progetto); });
    s.Fronte.AggiornaDir1();
}

Testo PercorsoCorto(Stato& s, Vista percorso) {
    Disco& disco = s.File.DiscoInUso();
    if (!disco.HaPercorsiCorti()) return Testo(percorso);
    Testo buffer(165, '\0');
    const unsigned long n = disco.GetShortPathNameA(s.File.Trova(percorso).Percorso, buffer.data(), 164);
    const Testo corto(Mid(Left(buffer, static_cast<Lungo>(n)), 1, 50)); // the cut at 50 is meant
    return corto.empty() ? Testo(percorso) : corto;
}

} // namespace morvella
