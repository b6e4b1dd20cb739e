// SPDX-License-Identifier: MIT
// tests/shell/banco.h
//
// A fresh program over the double's disk and window, with the project directory "/p".
#pragma once

#include "sostegno/disco_finto.h"
#include "sostegno/finestra_finta.h"
#include "text/numero_di.h"

namespace morvella::prove {

struct Banco {
    DiscoFinto Disco{"/altrove"};
    FinestraFinta Fronte;
    Stato S{Disco, Fronte};

    Banco() {
        Disco.FaiDirectory("/p");
        Fronte.S = &S;
    }

    /// Dir1 on "/p" with this project file, which is chosen; nothing has run yet.
    void Scegli(const std::string& progetto, const Testo& nome = "Prova.vbp") {
        Disco.Metti("/p/" + Utf8Da1252(nome), progetto);
        CambiaDir1(S, "/p");
        S.File1Leggi.Nomi = {"Altro.vbp", nome};
        S.File1Leggi.ListIndex = 1;
    }

    std::vector<Testo> Voci() const {
        std::vector<Testo> voci;
        for (Lungo i = 0; i < S.File1.ListCount(); ++i) voci.push_back(S.File1.List(i));
        return voci;
    }
    /// "101": which rows are selected.
    Testo Selezione() const {
        Testo segni;
        for (Lungo i = 0; i < S.File1.ListCount(); ++i) segni += S.File1.Selected(i) ? '1' : '0';
        return segni;
    }
    /// mnuRiordina, mnuvorn, mnuLettura, mnuHTML.
    Testo Menu() const {
        Testo segni;
        for (const bool acceso : {S.mnuRiordina, S.mnuvorn, S.mnuLettura, S.mnuHTML})
            segni += acceso ? '1' : '0';
        return segni;
    }
    void MettiMenu(Vista segni) {
        S.mnuRiordina = segni[0] == '1';
        S.mnuvorn = segni[1] == '1';
        S.mnuLettura = segni[2] == '1';
        S.mnuHTML = segni[3] == '1';
    }
};

} // namespace morvella::prove
