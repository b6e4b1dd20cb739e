// SPDX-License-Identifier: MIT
#include "shell/gestore.h"

#include <gtest/gtest.h>

#include "comandi/comandi.h"
#include "listing/listing.h"
#include "rewriter/rewriter.h"
#include "shell/banco.h"
#include "shell/motore.h"

namespace morvella {

namespace {

using prove::Banco;
using prove::NumeroDi;

// What became of one statement that fails as told, once for each number, and then succeeds.
struct Esito {
    int Tentativi = 0;
    bool Riuscita = false; // the statement came to its end
    int Fine = 0;          // the number that ended the engine
};

Esito Prova(Banco& b, const std::vector<int>& errori) {
    Esito esito;
    try {
        Istruzione(b.S, [&] {
            const auto quale = static_cast<std::size_t>(esito.Tentativi++);
            if (quale < errori.size()) throw Errore(errori[quale], "\\p\\f");
            esito.Riuscita = true;
        });
    } catch (const FineMotore& fine) {
        esito.Fine = fine.Causa.Numero;
    }
    return esito;
}

struct ConCanali : Banco {
    ConCanali() {
        Disco.Metti("/p/in", "a\r\n");
        CambiaDir1(S, "/p");
        S.Canale.OpenInput(1, "\\p\\in");
        S.Canale.OpenOutput(2, "\\p\\out");
        S.Canale.OpenOutput(7, "\\p\\sette");
        S.Canale.Print(2, "scritto");
        S.FileUscita = "\\p\\Appoggio\\sub\\x.txt";
    }
    bool Aperti() const { return S.Canale.Aperto(1) && S.Canale.Aperto(2); }
    bool Chiusi() const { return !S.Canale.Aperto(1) && !S.Canale.Aperto(2); }
};

TEST(Gestore, SenzaErrore) {
    ConCanali b;
    const Esito e = Prova(b, {});
    EXPECT_EQ(e.Tentativi, 1);
    EXPECT_TRUE(e.Riuscita);
    EXPECT_TRUE(b.Aperti());
    EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\sub\\x.txt");
    EXPECT_EQ(Istruzione(b.S, [] { return 7; }), 7);
}

TEST(Gestore, Errore55ProsegueDopo) {
    ConCanali b;
    const Esito e = Prova(b, {55});
    EXPECT_EQ(e.Tentativi, 1); // not repeated
    EXPECT_FALSE(e.Riuscita);
    EXPECT_EQ(e.Fine, 0);
    EXPECT_TRUE(b.Chiusi());
    EXPECT_TRUE(b.S.Canale.Aperto(7)); // its number is not the handler's business
    EXPECT_EQ(b.Disco.Leggi("/p/out"), "scritto\r\n");
    EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\sub\\x.txt");
    EXPECT_TRUE(b.Fronte.Arresti.empty());
}

TEST(Gestore, Errore55DaIlValoreVuoto) {
    Banco b;
    EXPECT_EQ(Istruzione(b.S, []() -> Testo { throw Errore(55); }), "");
    EXPECT_EQ(Istruzione(b.S, []() -> Vista { throw Errore(55); }), "");
    EXPECT_FALSE(Istruzione(b.S, []() -> bool { throw Errore(55); }));
}

TEST(Gestore, Errore76RipeteLaStessaIstruzione) {
    ConCanali b;
    const Esito e = Prova(b, {76});
    EXPECT_EQ(e.Tentativi, 2);
    EXPECT_TRUE(e.Riuscita);
    EXPECT_TRUE(b.Aperti()); // nothing is closed
    EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\x.txt");
}

TEST(Gestore, Ripetizioni) {
    struct Caso {
        const char* FileUscita;
        std::vector<int> Errori;
        int Tentativi;
        bool Riuscita;
        int Fine;
    };
    const Caso casi[] = {
        // A repair that changes the name, then one that does not, then the end.
        {"\\p\\Appoggio\\sub\\x", {76, 76}, 3, true, 0},
        {"\\p\\Appoggio\\sub\\x", {76, 76, 76}, 3, false, 76},
        {"\\p\\Appoggio\\sub\\x", {76, 76, 76, 76}, 3, false, 76},
        // It is flat from the start: one attempt more.
        {"\\p\\Appoggio\\x", {76}, 2, true, 0},
        {"\\p\\Appoggio\\x", {76, 76}, 2, false, 76},
        // No name to repair, as before the first row.
        {"", {76}, 2, true, 0},
        {"", {76, 76}, 2, false, 76},
        {"senza barra", {76, 76}, 2, false, 76},
        // The last attempt may end otherwise.
        {"\\p\\Appoggio\\sub\\x", {76, 53}, 2, false, 53},
        {"\\p\\Appoggio\\x", {76, 55}, 2, false, 0},
        {"\\p\\Appoggio\\x", {76, 70}, 2, false, 70},
        {"\\p\\Appoggio\\x", {55, 76}, 1, false, 0},
    };
    for (const Caso& c : casi) {
        ConCanali b;
        b.S.FileUscita = c.FileUscita;
        const Esito e = Prova(b, c.Errori);
        EXPECT_EQ(e.Tentativi, c.Tentativi) << c.FileUscita << testing::PrintToString(c.Errori);
        EXPECT_EQ(e.Riuscita, c.Riuscita) << c.FileUscita << testing::PrintToString(c.Errori);
        EXPECT_EQ(e.Fine, c.Fine) << c.FileUscita << testing::PrintToString(c.Errori);
        EXPECT_EQ(b.Chiusi(), !c.Riuscita) << c.FileUscita << testing::PrintToString(c.Errori);
    }
}

TEST(Gestore, OgniIstruzioneContaPerSe) {
    // A useless retry of one statement does not count for the next.
    ConCanali b;
    b.S.FileUscita = "\\p\\Appoggio\\x";
    EXPECT_TRUE(Prova(b, {76}).Riuscita);
    EXPECT_TRUE(Prova(b, {76}).Riuscita);
    EXPECT_EQ(Prova(b, {76, 76}).Tentativi, 2);
}

TEST(Gestore, OgniAltroNumeroFinisce) {
    for (const int numero : {5, 7, 52, 53, 57, 61, 62, 70, 71, 75, 9999}) {
        ConCanali b;
        const Esito e = Prova(b, {numero});
        EXPECT_EQ(e.Tentativi, 1) << numero;
        EXPECT_EQ(e.Fine, numero);
        EXPECT_TRUE(b.Chiusi()) << numero;
        EXPECT_TRUE(b.S.Canale.Aperto(7));
        EXPECT_EQ(b.Disco.Leggi("/p/out"), "scritto\r\n") << numero; // what was written is kept
        EXPECT_EQ(b.S.FileUscita, "\\p\\Appoggio\\sub\\x.txt");
        EXPECT_TRUE(b.Fronte.Arresti.empty()); // the word comes from EseguiMotore
    }
}

TEST(Gestore, MemoriaFinita) {
    ConCanali b;
    int fine = 0;
    try {
        Istruzione(b.S, [] { throw std::bad_alloc(); });
    } catch (const FineMotore& f) {
        fine = f.Causa.Numero;
    }
    EXPECT_EQ(fine, 7);
    EXPECT_TRUE(b.Chiusi());
}

TEST(Gestore, ChiusuraCheFallisceMentreFinisce) {
    for (const char* operazione : {"Scrivi", "Chiudi"}) {
        ConCanali b;
        b.Disco.Fallisci(operazione, "/out", 61, 1);
        EXPECT_EQ(Prova(b, {53}).Fine, 53);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1u) << operazione; // lost bytes are reported
        EXPECT_EQ(b.Fronte.Arresti[0].Motore, "Close");
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 61);
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.File, "\\p\\out");
        EXPECT_TRUE(b.Chiusi());
    }
}

TEST(Gestore, ChiusuraCheFallisceProseguendo) {
    // 55 would go on in silence with a file that is not whole: the engine ends instead.
    for (const char* operazione : {"Scrivi", "Chiudi"}) {
        ConCanali b;
        b.Disco.Fallisci(operazione, "/out", 61, 1);
        const Esito e = Prova(b, {55});
        EXPECT_EQ(e.Fine, 61) << operazione;
        EXPECT_TRUE(b.Chiusi());
    }
}

TEST(Gestore, ChiusuraDiUnFileSoloLettoNonDisturba) {
    ConCanali b;
    b.Disco.Fallisci("Chiudi", "/in", 57, 1);
    EXPECT_EQ(Prova(b, {55}).Fine, 0);
    EXPECT_TRUE(b.Chiusi()); // the second is closed all the same
    EXPECT_EQ(b.Disco.Leggi("/p/out"), "scritto\r\n");
}

TEST(Gestore, GuastoGiaDettoNonSiRipete) {
    ConCanali b;
    b.Disco.Fallisci("Scrivi", "/out", 61);
    int fine = 0;
    try {
        for (;;) Istruzione(b.S, [&] { b.S.Canale.Print(2, Testo(1000, 'x')); });
    } catch (const FineMotore& f) {
        fine = f.Causa.Numero;
    }
    EXPECT_EQ(fine, 61);
    EXPECT_TRUE(b.Fronte.Arresti.empty()); // one loss, one word
    EXPECT_TRUE(b.Chiusi());
}

TEST(Gestore, Appiattisci) {
    struct Caso {
        const char *Prima, *Dopo;
        Lungo PosBarra;
    };
    constexpr Caso Casi[] = {
        {"\\p\\Appoggio\\sub\\x.txt", "\\p\\Appoggio\\x.txt", 16},
        {"\\p\\appoggio\\x.txt", "\\p\\Appoggio\\x.txt", 12}, // the case of the directory comes back
        {"\\p\\Appoggio\\x.txt", "\\p\\Appoggio\\x.txt", 12},
        {"\\p\\Appoggio\\..\\lib\\x.txt", "\\p\\Appoggio\\x.txt", 19},
        {"x\\", "\\p\\Appoggio\\", 2},
        {"\\", "\\p\\Appoggio\\", 1},
        {"a/b\\c/d", "\\p\\Appoggio\\c/d", 4}, // "/" is no bar here
        {"x.txt", "x.txt", 0},
        {"", "", 0},
    };
    for (const Caso& c : Casi) {
        Banco b;
        CambiaDir1(b.S, "/p");
        b.S.FileUscita = c.Prima;
        AppiattisciUscita(b.S);
        EXPECT_EQ(b.S.FileUscita, c.Dopo) << c.Prima;
        EXPECT_EQ(b.S.PosBarra, c.PosBarra) << c.Prima;
    }
}

TEST(Gestore, EseguiMotore) {
    ConCanali b;
    EseguiMotore(b.S, "prova_Click", [&] {
        EXPECT_EQ(b.S.Punto.Voce, -1);
        b.S.Punto.Voce = 3;
        b.S.Punto.Riga = 12;
        b.S.ContaRighe = 10;
        b.S.Riga = "If x";
        Istruzione(b.S, [] { throw Errore(53, "\\p\\manca"); });
        ADD_FAILURE() << "the engine is over";
    });
    ASSERT_EQ(b.Fronte.Arresti.size(), 1u);
    const Arresto& a = b.Fronte.Arresti[0];
    EXPECT_EQ(a.Motore, "prova_Click");
    EXPECT_EQ(a.Causa.Numero, 53);
    EXPECT_EQ(a.Causa.File, "\\p\\manca");
    EXPECT_EQ(a.Voce, 3);
    EXPECT_EQ(a.Riga, 12);
    EXPECT_EQ(a.RigaListato, 10);
    EXPECT_EQ(a.Linea, "If x");
    EXPECT_FALSE(a.SecondoGiro);
    EXPECT_TRUE(b.Fronte.Box_.empty()); // the window itself is silent

    EseguiMotore(b.S, "prova_Click", [] {});
    EXPECT_EQ(b.Fronte.Arresti.size(), 1u);
}

// A window that runs out of memory when it repaints its status line.
struct FinestraSenzaMemoria : prove::FinestraFinta {
    void RidisegnaLabel2() override { throw std::bad_alloc(); }
};

TEST(Gestore, MemoriaFinitaTraDueIstruzioni) {
    ConCanali b;
    EseguiMotore(b.S, "prova_Click", [&] {
        b.S.Punto.Voce = 2;
        throw std::bad_alloc();
    });
    ASSERT_EQ(b.Fronte.Arresti.size(), 1u);
    EXPECT_EQ(b.Fronte.Arresti[0].Motore, "prova_Click");
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 7);
    EXPECT_EQ(b.Fronte.Arresti[0].Voce, 2);
    EXPECT_TRUE(b.Chiusi());
}

TEST(Motori, MemoriaFinitaTraDueIstruzioni) {
    for (void (*motore)(Stato&) : {mnuRiordina_Click, mnuvorn_Click}) {
        prove::DiscoFinto disco;
        FinestraSenzaMemoria fronte;
        Stato s(disco, fronte);
        disco.Metti("/p/a.bas", "Sub a()\r\nEnd Sub\r\n");
        CambiaDir1(s, "/p");
        s.File1.AddItem("a.bas");
        SelezionaFile1(s, 0, true);
        motore(s); // returns, as after any error: the caller goes on
        ASSERT_EQ(fronte.Arresti.size(), 1u);
        EXPECT_EQ(fronte.Arresti[0].Causa.Numero, 7);
        EXPECT_EQ(fronte.Arresti[0].Voce, 0);
        EXPECT_FALSE(s.Canale.Aperto(1) || s.Canale.Aperto(2));
    }
}

TEST(Gestore, ProteggeSorgentiCompagniEProgetto) {
    Banco b;
    b.Scegli("Form=..\\lib\\F.frm\r\n");
    for (const char* file : {"/p/A.bas", "/p/A.frx", "/lib/F.frm", "/lib/F.frx", "/p/abc", "/p/libero.txt"})
        b.Disco.Metti(file, "x");
    for (const char* voce : {"a.BAS", "..\\lib\\F.frm", "abc", "manca.bas", ""})
        b.S.File1.AddItem(voce); // selected or not: none is
    EseguiMotore(b.S, "prova_Click", [&] {
        for (const char* file : {"\\p\\A.bas", "\\P\\a.FRX", "\\lib\\f.frm",
                                 "\\p\\Appoggio\\..\\..\\lib\\F.Frx", "\\p\\abc", "\\p\\prova.VBP"}) {
            EXPECT_EQ(NumeroDi([&] { return b.S.File.Kill(file), 0; }), 70) << file;
            EXPECT_EQ(NumeroDi([&] { return b.S.Canale.OpenOutput(2, file), 0; }), 70) << file;
            EXPECT_EQ(NumeroDi([&] { return b.S.File.FileCopy("\\p\\libero.txt", file), 0; }), 70) << file;
        }
        EXPECT_EQ(NumeroDi([&] { return b.S.File.Kill("\\p\\libero.txt"), 0; }), 0);
    });
    EXPECT_EQ(b.Disco.TuttiIFile().size(), 6u);
}

TEST(Motori, UnaDirectoryCheNonSiElencaNonEsceDalMotore) {
    // A directory may be passable but not readable: whether it has the name in another case cannot be
    // told, and is not told.
    for (void (*motore)(Stato&) : {mnuRiordina_Click, mnuvorn_Click}) {
        Banco b;
        b.Scegli("Module=A; a.bas\r\n");
        b.Disco.Metti("/p/A.bas", "Sub a()\r\nEnd Sub\r\n");
        File1Leggi_Click(b.S);
        b.Disco.Fallisci("Elenca", "/p", ErrAccesso);
        EXPECT_EQ(NumeroDi([&] { return motore(b.S), 0; }), 0);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, ErrAccesso);
    }
}

TEST(Motori, UnSorgenteCheNonSiEsaminaFermaLaCorsa) {
    for (void (*motore)(Stato&) : {mnuRiordina_Click, mnuvorn_Click}) {
        Banco b;
        b.Scegli("Module=A; a.bas\r\nModule=B; z.bas\r\n");
        b.Disco.Metti("/p/a.bas", "Sub a()\r\nEnd Sub\r\n");
        b.Disco.Metti("/p/z.bas", "Sub z()\r\nEnd Sub\r\n");
        File1Leggi_Click(b.S);
        SelezionaFile1(b.S, 0, true);
        SelezionaFile1(b.S, 1, true);
        const auto prima = b.Disco.TuttiIFile();
        b.Fronte.Arresti.clear();
        b.Disco.FaiDirectory("/p/nuova"); // what was seen of the directory holds no more
        b.Disco.Fallisci("Esamina", "/z.bas", ErrDispositivo);
        EXPECT_EQ(NumeroDi([&] { return motore(b.S), 0; }), 0);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, ErrDispositivo);
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.File, "\\p\\z.bas");
        EXPECT_EQ(b.Disco.TuttiIFile(), prima); // not even the first output
    }
}

// A disk that has no memory left when it is asked about a path.
struct DiscoSenzaMemoria : prove::DiscoFinto {
    Scheda Esamina(const std::string& percorso) override {
        if (!Guasto.empty() && percorso.ends_with(Guasto)) throw std::bad_alloc();
        return DiscoFinto::Esamina(percorso);
    }
    std::string Guasto;
};

TEST(Motori, UnaProtezioneSenzaMemoriaSiRifa) {
    DiscoSenzaMemoria disco;
    prove::FinestraFinta fronte;
    Stato s(disco, fronte);
    disco.Metti("/p/a.bas", "x");
    disco.Metti("/p/z.bas", "x");
    CambiaDir1(s, "/p");
    s.File1.AddItem("a.bas");
    s.File1.AddItem("z.bas");
    EseguiMotore(s, "x", [] {});
    disco.Metti("/p/nuovo", ""); // the directory changed: the sources are looked at again
    disco.Guasto = "/z.bas";
    EseguiMotore(s, "x", [] { ADD_FAILURE() << "without its protection"; });
    ASSERT_EQ(fronte.Arresti.size(), 1u);
    EXPECT_EQ(fronte.Arresti[0].Causa.Numero, 7);
    disco.Guasto.clear();
    EseguiMotore(s, "x", [&] {
        for (const char* file : {"\\p\\a.bas", "\\p\\z.bas"})
            EXPECT_EQ(NumeroDi([&] { return s.File.Kill(file), 0; }), 70) << file;
    });
}

TEST(Motori, UnaProtezioneAMetaNonVale) {
    Banco b;
    b.Scegli("Module=A; a.bas\r\nModule=B; z.bas\r\n");
    b.Disco.Metti("/p/a.bas", "Sub a()\r\nEnd Sub\r\n");
    b.Disco.Metti("/p/z.bas", "Sub z()\r\nEnd Sub\r\n");
    File1Leggi_Click(b.S);
    b.Disco.Fallisci("Elenca", "/p", ErrAccesso, 1);
    EseguiMotore(b.S, "x", [] {});
    EseguiMotore(b.S, "x",
                 [&] { EXPECT_EQ(NumeroDi([&] { return b.S.File.Kill("\\p\\z.bas"), 0; }), ErrPermesso); });
}

} // namespace

} // namespace morvella
