// SPDX-License-Identifier: MIT
// tests/rewriter/prova.h
//
// A run of the rewriter over a project of small modules, on the disk that notes its calls.
#pragma once

#include <algorithm>

#include "rewriter/banco.h"
#include "rewriter/disco_annotato.h"

namespace morvella::prove {

/// The source of a small module, and its rewritten copy.
inline constexpr Vista Modulo = "Option Explicit\nx = 1\n";
inline const Testo Rifatto = Linea(15, "Option Explicit") + Linea(15, "x = 1") + Chiusura();

struct Prova {
    DiscoAnnotato Disco;
    Banco B{Disco};
    Stato& S = B.S;

    explicit Prova(const std::string& directory = "/p") : Disco(directory), B(Disco, directory) {}
    /// A row with its source, a small module.
    void Voce(Vista voce) {
        Testo percorso(voce);
        std::replace(percorso.begin(), percorso.end(), '\\', '/');
        B.Voce(voce, "/p/" + percorso, Modulo);
    }
    void Esegui() {
        Disco.Chiamate.clear();
        B.Fronte.Etichette.clear();
        B.Fronte.Arresti.clear();
        mnuRiordina_Click(S);
        EXPECT_TRUE(B.ChiusoTutto());
    }
    Testo A(const Testo& nome) const {
        const std::string percorso = "/p/Appoggio/" + nome;
        return Disco.Esiste(percorso) ? Disco.Leggi(percorso) : "(manca)";
    }
    /// The names in the work directory but for the marker, with blanks between.
    Testo InAppoggio() const {
        Testo nomi;
        for (const auto& [percorso, bytes] : Disco.TuttiIFile())
            if (percorso.starts_with("/p/Appoggio/") && !percorso.ends_with("OK.LOG"))
                nomi += (nomi.empty() ? "" : " ") + percorso.substr(12);
        return nomi;
    }
};

} // namespace morvella::prove
