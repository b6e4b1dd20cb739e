// SPDX-License-Identifier: MIT
// tests/listing/banco.h
//
// A project on a fake disk, and a notation for listings that shows columns:
//   "7|···╔═>For"     line 7: the number field, then the text with its blanks and connectors
//   "R|7|14|Sub a()"  the five lines of a box whose first line is indented by 14
//   anything else     as it stands
// The middle dot is a blank, a glyph is its byte of code page 437, "ù" is the byte 249.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>

#include "listing/listing.h"
#include "sostegno/disco_finto.h"
#include "sostegno/finestra_finta.h"

namespace morvella::prove {

struct Glifo {
    std::string_view Segno;
    char Byte;
};
// clang-format off
inline constexpr Glifo Glifi[] = {
    {"·", ' '},
    {"┌", '\xDA'}, {"─", '\xC4'}, {"├", '\xC3'}, {"└", '\xC0'}, {"│", '\xB3'},
    {"╔", '\xC9'}, {"═", '\xCD'}, {"╚", '\xC8'}, {"║", '\xBA'},
    {"ù", '\xF9'},
};
// clang-format on

inline Testo DaGlifi(std::string_view scritto) {
    Testo bytes;
    while (!scritto.empty()) {
        std::size_t lungo = 1;
        char byte = scritto.front();
        for (const Glifo& glifo : Glifi)
            if (scritto.starts_with(glifo.Segno)) {
                lungo = glifo.Segno.size();
                byte = glifo.Byte;
            }
        bytes += byte;
        scritto.remove_prefix(lungo);
    }
    return bytes;
}

inline Testo Campo(int n) {
    char testo[32];
    std::snprintf(testo, sizeof testo, "%06d     ", n);
    return testo;
}

/// One entry of the notation as its bytes, CR LF included.
inline Testo Listata(std::string_view voce) {
    const auto numero = [&] {
        const int n = std::stoi(std::string(voce));
        voce.remove_prefix(voce.find('|') + 1);
        return n;
    };
    if (voce.starts_with("R|")) {
        voce.remove_prefix(2);
        const int n = numero();
        const Testo p(static_cast<std::size_t>(numero()), ' ');
        const Testo bordo = p + Testo(101, '*') + "\r\n";
        const Testo fianchi = p + "*" + Testo(99, ' ') + "*\r\n";
        return bordo + fianchi + Campo(n) + p + "  " + DaGlifi(voce) + "\r\n" + fianchi + bordo;
    }
    const bool numerata = !voce.empty() && voce.front() >= '0' && voce.front() <= '9';
    const Testo campo = numerata ? Campo(numero()) : Testo();
    return campo + DaGlifi(voce) + "\r\n";
}

inline Testo Listato(const std::vector<std::string>& voci) {
    Testo bytes;
    for (const std::string& voce : voci) bytes += Listata(voce);
    return bytes;
}

inline Testo Sorgente(const std::vector<std::string>& righe) {
    Testo bytes;
    for (const std::string& riga : righe) bytes += riga + "\r\n";
    return bytes;
}

/// The line that ends a control section; a class up to it, with four Attribute lines.
inline constexpr const char* Exposed = "Attribute VB_Exposed = False";
inline const std::vector<std::string> Classe5 = {"VERSION 1.0 CLASS",
                                                 "BEGIN",
                                                 "  MultiUse = -1  'True",
                                                 "END",
                                                 "Attribute VB_Name = \"C\"",
                                                 "Attribute VB_GlobalNameSpace = False",
                                                 "Attribute VB_Creatable = True",
                                                 "Attribute VB_PredeclaredId = False"};

inline std::vector<std::string> Con(std::vector<std::string> righe, const std::vector<std::string>& coda) {
    righe.insert(righe.end(), coda.begin(), coda.end());
    return righe;
}

/// The head of a listing that shows these entries.
inline Testo Testa(const std::vector<std::string>& voci = {}) {
    const Testo stelle(55, '*');
    Testo testa = "\x0F" + stelle +
                  "\r\n"
                  "*              Procedura by Dario Fenzoni             *\r\n"
                  "*              E-mail vorn@morvella.example           *\r\n"
                  "*" +
                  Testo(53, ' ') + "*\r\n";
    if (!voci.empty()) testa += "*  La procedura esegue i seguenti Form o procedure:   *\r\n";
    for (const std::string& voce : voci) testa += voce + "\r\n";
    return testa + stelle + "\r\n              ... 21/11/2026 - 14:30:05\r\n\r\n";
}

struct Banco {
    DiscoFinto Disco;
    FinestraFinta Fronte;
    Stato S{Disco, Fronte};

    Banco() {
        Fronte.S = &S;
        CambiaDir1(S, "/p");
    }

    /// A row, with its file unless `bytes` is nullopt.
    void Modulo(const std::string& riga, const std::optional<std::string>& bytes) {
        S.File1.AddItem(riga);
        std::string percorso = "/p/" + riga;
        std::replace(percorso.begin(), percorso.end(), '\\', '/');
        if (bytes) Disco.Metti(percorso, *bytes);
    }
    void Tutte() {
        for (Lungo i = 0; i < S.File1.ListCount(); ++i) S.File1.Segna(i, true);
    }
    std::string Selezione() const {
        std::string quali;
        for (Lungo i = 0; i < S.File1.ListCount(); ++i) quali += S.File1.Selected(i) ? '1' : '0';
        return quali;
    }
    bool Fatto(const std::string& nome) const { return Disco.Esiste("/p/Appoggio/" + nome); }
    Testo Log(const std::string& nome) const { return Disco.Leggi("/p/Appoggio/" + nome); }
    bool CanaliChiusi() const { return !S.Canale.Aperto(1) && !S.Canale.Aperto(2); }
};

/// The listing of a form with this source: code from its first line on. A front end that does not
/// watch the margin gets the same, from the batch writer.
inline Testo ListatoDi(Banco& b, const std::vector<std::string>& righe) {
    Banco altro;
    altro.Fronte.Segue = false;
    altro.S.Check1 = b.S.Check1;
    altro.S.Text1 = b.S.Text1;
    altro.S.TogliCommenti = b.S.TogliCommenti;
    altro.S.Option1_0 = b.S.Option1_0;
    altro.S.Canale.FineRigaLf = b.S.Canale.FineRigaLf;
    for (Banco* banco : {&b, &altro}) {
        banco->Modulo("F.frm", Sorgente(righe));
        banco->Tutte();
        mnuvorn_Click(banco->S);
    }
    EXPECT_EQ(altro.Log("F.log"), b.Log("F.log"));
    EXPECT_EQ(altro.S.Margine, b.S.Margine);
    EXPECT_EQ(altro.S.Numero, b.S.Numero);
    EXPECT_EQ(altro.S.StoriaBlocchi, b.S.StoriaBlocchi);
    EXPECT_EQ(altro.S.ContaRighe, b.S.ContaRighe);
    EXPECT_EQ(altro.S.Progress.Value, b.S.Progress.Value);
    EXPECT_EQ(altro.Fronte.Arresti.size(), b.Fronte.Arresti.size());
    return b.Log("F.log");
}

inline constexpr const char* RigaErrore = // sic
    "···········######  Errore generico - Manca uno o più elementi di chiusura ENDIF - Loop, Next ... ect";

} // namespace morvella::prove
