// SPDX-License-Identifier: MIT
// tests/rewriter/banco.h
//
// A program on the tests' double with a project in /p: for the indent engine one line at a
// time, for the run a list of rows. Texts here are written with "\n" for CR LF.
#pragma once

#include <gtest/gtest.h>

#include "comandi/comandi.h"
#include "rewriter/rewriter.h"
#include "scan/testa.h"
#include "sostegno/disco_finto.h"
#include "sostegno/finestra_finta.h"

namespace morvella::prove {

/// Every "\n" becomes CR LF.
inline Testo CrLf(Vista s) {
    Testo testo;
    for (const char c : s) testo += c == '\n' ? Testo("\r\n") : Testo(1, c);
    return testo;
}

/// `n` blanks, the text, CR LF.
inline Testo Linea(Lungo n, Vista testo) { return Space(n) + Testo(testo) + "\r\n"; }

/// A banner: five lines, of which the third is `davanti` blanks and the source line.
inline Testo Riquadro(Lungo prefisso, std::size_t stelle, Lungo blank, Lungo davanti, Vista riga) {
    const Testo bordo = Linea(prefisso, "'" + Testo(stelle, '*'));
    const Testo vuota = Linea(prefisso, "'*" + Space(blank) + "*");
    return bordo + vuota + Linea(davanti, riga) + vuota + bordo;
}
inline Testo RiquadroSub(Vista riga) { return Riquadro(10, 114, 112, 10, riga); }
inline Testo RiquadroProperty(Vista riga) { return Riquadro(8, 101, 99, 13, riga); }
inline Testo RiquadroType(Lungo m, Vista riga) { return Riquadro(m + 5, 112, 110, m + 5, riga); }

/// The closing block; `voci` are its entries, each as it stands after the comment mark.
inline Testo Chiusura(std::initializer_list<Vista> voci = {}) {
    const Testo stelle = Linea(10, "'" + Testo(55, '*'));
    Testo blocco = stelle;
    blocco += Linea(10, "'*              Procedura by Dario Fenzoni             *");
    blocco += Linea(10, "'*              E-mail vorn@morvella.example           *");
    blocco += Linea(10, "'* Procedura per il riordino dei programmi Visual Basic*");
    if (voci.size() > 0) blocco += Linea(10, "'*  La procedura richiama i seguenti Form o procedure:   *");
    for (const Vista voce : voci) blocco += Linea(10, "'" + Testo(voce));
    return blocco + stelle + Linea(10, "'               Rilettura del 21/11/2026...") + Linea(10, "'");
}

/// An entry of the closing block, as the first pass and VoceShow make it of a short name.
inline Testo Voce(Vista nome) { return "*    " + Testo(nome) + Space(49 - Len(nome)) + "*"; }

struct Banco {
    DiscoFinto& Disco;
    FinestraFinta Fronte;
    Stato S;

    explicit Banco(DiscoFinto& disco, const std::string& directory = "/p") : Disco(disco), S(disco, Fronte) {
        Fronte.S = &S;
        CambiaDir1(S, directory);
    }

    /// Adds a row, selected.
    void Voce(Vista voce) {
        S.File1.AddItem(voce);
        for (Lungo i = 0; i < S.File1.ListCount(); ++i) SelezionaFile1(S, i, true);
    }
    void Voce(Vista voce, const std::string& percorso, Vista sorgente) {
        Disco.Metti(percorso, CrLf(sorgente));
        Voce(voce);
    }
    /// The number that ended the run, 0 when nothing did.
    int Arresto() const { return Fronte.Arresti.empty() ? 0 : Fronte.Arresti.front().Causa.Numero; }
    bool ChiusoTutto() const { return !S.Canale.Aperto(1) && !S.Canale.Aperto(2) && !S.Canale.Aperto(7); }
};

/// The indent engine by itself: a file on channel 2 and a margin to start from.
struct BancoRighe {
    DiscoFinto Disco;
    Banco B{Disco};
    Stato& S = B.S;

    explicit BancoRighe(Lungo margine = 5) {
        S.Numero = Space(5);
        S.Margine = Space(margine);
        S.StoriaBlocchi = "00";
        S.Canale.OpenOutput(2, "\\p\\u.txt");
    }
    /// What one line, already trimmed, gives.
    Testo Una(Vista riga) {
        const Testo viva(riga); // the engine looks into a channel's buffer, not into a literal
        S.Riga = viva;
        RiscriviRiga(S, ClassificaRiga(S.Riga));
        S.Canale.Close(2);
        const Testo scritto = Disco.Leggi("/p/u.txt");
        S.Canale.OpenOutput(2, "\\p\\u.txt");
        return scritto;
    }
    Testo Tutte(std::initializer_list<Vista> righe) {
        Testo scritto;
        for (const Vista riga : righe) scritto += Una(riga);
        return scritto;
    }
    Lungo M() const { return Len(S.Margine); }
};

} // namespace morvella::prove
