// SPDX-License-Identifier: MIT
//
// The structure on the command line: written, checked, opened.
#include <gtest/gtest.h>

#include <sstream>

#include "cli/programma.h"
#include "sostegno/disco_finto.h"

namespace morvella::cli {

namespace {

using prove::DiscoFinto;

std::string Crlf(const std::vector<std::string>& righe) {
    std::string bytes;
    for (const std::string& riga : righe) bytes += riga + "\r\n";
    return bytes;
}

const std::vector<std::string> Testata = {"VERSION 5.00", "Begin VB.Form F", "End",
                                          "Attribute VB_Name = \"F\"", "Attribute VB_Exposed = False"};

// A form: five lines of control section, then this.
std::string Form(const std::vector<std::string>& codice) { return Crlf(Testata) + Crlf(codice); }

struct Banco {
    DiscoFinto Disco{"/casa"};
    std::istringstream Ingresso;
    std::ostringstream Uscita;
    std::ostringstream Errori;
    std::string Vbp;

    void Riga(const std::string& riga, const std::optional<std::string>& bytes) {
        Vbp += (riga.ends_with(".frm") ? "Form=" : "Module=M; ") + riga + "\r\n";
        Disco.Metti("/casa/p/Prova.vbp", Vbp);
        if (bytes) Disco.Metti("/casa/p/" + riga, *bytes);
    }

    int Esegui(std::vector<std::string> argomenti) {
        Uscita.str("");
        Errori.str("");
        Disco.CambiaDirectory("/casa"); // a run leaves the process in the project's directory
        Ambiente ambiente{.Macchina = Disco, .Ingresso = Ingresso, .Uscita = Uscita, .Errori = Errori};
        ambiente.DirectoryProgramma = "/casa/programma";
        return Programma(argomenti, ambiente);
    }

    bool Fatto(const std::string& nome) const { return Disco.Esiste("/casa/p/Appoggio/" + nome); }
    std::string Log(const std::string& nome) const { return Disco.Leggi("/casa/p/Appoggio/" + nome); }
    bool Detto(const std::string& testo) const { return Uscita.str().find(testo) != std::string::npos; }
    bool Avvertito(const std::string& testo) const { return Errori.str().find(testo) != std::string::npos; }
    // The lines of standard output that tell of a place in a file of the project.
    std::vector<std::string> Rilievi() const {
        std::vector<std::string> rilievi;
        std::istringstream righe(Uscita.str());
        for (std::string riga; std::getline(righe, riga);)
            if (riga.starts_with("p/")) rilievi.push_back(riga);
        return rilievi;
    }
};

// Three forms: the second stops the listing after its End Sub, the third is whole.
void TreForm(Banco& b) {
    b.Riga("A.frm", Form({"Sub a()", "End Sub"}));
    b.Riga("B.frm", Form({"Sub b()", "End Sub", "#End If", "x"}));
    b.Riga("C.frm", Form({"x"}));
}

TEST(Struttura, TutteLeRighe) {
    Banco b;
    b.Riga("A.bas", "Attribute VB_Name = \"A\"\r\n");
    b.Riga("B.frm", Form({"x", "y"}));
    b.Riga("C.bas", "Attribute VB_Name = \"C\"\r\n");
    EXPECT_EQ(b.Esegui({"struttura", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Log("A.log"), "");
    EXPECT_EQ(b.Log("B.log"), "000001        x\r\n000002        y\r\n");
    EXPECT_EQ(b.Log("C.log"), "000001        Attribute VB_Name = \"C\"\r\n");
    EXPECT_FALSE(b.Fatto("b.txt"));
    EXPECT_TRUE(b.Detto("  B.frm  -> Appoggio/B.log\n")) << b.Uscita.str();
    EXPECT_TRUE(b.Detto("3 moduli, 9 righe, "));
    EXPECT_EQ(b.Errori.str(),
              "Avviso: la struttura di «A.bas» è vuota: nessun form viene prima, e la testata del modulo "
              "non finisce mai.\n");
}

TEST(Struttura, RigheNominate) {
    Banco b;
    b.Riga("A.frm", Form({"x"}));
    b.Riga("B.bas", "Attribute VB_Name = \"A\"\r\n");
    EXPECT_EQ(b.Esegui({"struttura", "--senza-conferma", "p/Prova.vbp", "b.BAS"}), 0);
    EXPECT_FALSE(b.Fatto("A.log")); // not selected: not listed, and no help to the module after it
    EXPECT_EQ(b.Log("B.log"), "");
    EXPECT_EQ(b.Esegui({"struttura", "p/Prova.vbp", "Z.bas"}), 2);
}

TEST(Struttura, Opzioni) {
    Banco b;
    b.Riga("A.frm", Form({"'via", "'* resta", "x"}));
    b.Disco.Metti("/casa/t.txt", "'Perch\xC3\xA9\n");
    EXPECT_EQ(b.Esegui({"struttura", "-ti", "--testo-intestazione=/casa/t.txt", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Log("A.log"), "'Perch\xE9\r\n\r\n000002        \r\n000003        x\r\n");
}

TEST(Struttura, SoloLf) {
    Banco b;
    b.Riga("A.frm", "VERSION 5.00\nAttribute VB_Exposed = False\nx\n");
    EXPECT_EQ(b.Esegui({"struttura", "--lf", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Log("A.log"), "000001        x\r\n");
    EXPECT_EQ(b.Errori.str(), "");
}

TEST(Esegui, RiordinaEStruttura) {
    Banco b;
    b.Riga("A.frm", Form({"x"}));
    EXPECT_EQ(b.Esegui({"esegui", "--si", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Log("A.log"), "000001        x\r\n");
    EXPECT_TRUE(b.Detto("A.frm  -> Appoggio/a.txt, Appoggio/a.frm, Appoggio/A.log")) << b.Uscita.str();
}

TEST(Esegui, StrutturaAncheDopoUnArresto) {
    Banco b;
    b.Riga("A.frm", Form({"x"}));
    b.Disco.Fallisci("ApriScrittura", "a.txt", 75);
    EXPECT_EQ(b.Esegui({"esegui", "--si", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Fatto("A.log"));
    EXPECT_TRUE(b.Avvertito("mnuRiordina_Click fermato alla riga «A.frm»: errore 75"));
}

TEST(Prosegui, DopoLaRigaCheFerma) {
    Banco b;
    TreForm(b);
    EXPECT_EQ(b.Esegui({"struttura", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Fatto("A.log") && b.Fatto("B.log"));
    EXPECT_FALSE(b.Fatto("C.log"));
    const std::string parte = b.Log("B.log"); // up to its line
    EXPECT_TRUE(parte.ends_with("\r\n000002        End Sub\r\n"));
    // Where it stopped is told by file and line of the source.
    EXPECT_TRUE(b.Avvertito("mnuvorn_Click fermato alla riga «B.frm»: errore 5, ")) << b.Errori.str();
    EXPECT_TRUE(b.Avvertito("(p/B.frm:8)")) << b.Errori.str();

    EXPECT_EQ(b.Esegui({"struttura", "--prosegui", "p/Prova.vbp"}), 1);
    EXPECT_EQ(b.Log("B.log"), parte);
    EXPECT_EQ(b.Log("C.log"), "000001        x\r\n");
    EXPECT_TRUE(b.Avvertito("(p/B.frm:8)"));
    EXPECT_TRUE(b.Detto("2 moduli, ")) << b.Uscita.str();
}

TEST(Prosegui, OgniErroreEDetto) {
    Banco b;
    TreForm(b);
    b.Riga("D.frm", std::nullopt);
    b.Riga("E.frm", Form({"y"}));
    b.Riga("x", std::nullopt);
    EXPECT_EQ(b.Esegui({"struttura", "-k", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Fatto("C.log") && b.Fatto("E.log"));
    EXPECT_TRUE(b.Avvertito("«B.frm»: errore 5, "));
    EXPECT_TRUE(b.Avvertito("«D.frm»: errore 53, "));
    EXPECT_TRUE(b.Avvertito("«x»: errore 5, "));
    EXPECT_FALSE(b.Fatto("D.log"));
}

TEST(Prosegui, DaEsegui) {
    Banco b;
    TreForm(b);
    b.Riga("B2.frm", std::nullopt); // stops the rewriter as well
    EXPECT_EQ(b.Esegui({"esegui", "-sk", "p/Prova.vbp"}), 1);
    for (const char* nome : {"a.frm", "b.frm", "c.frm", "A.log", "B.log", "C.log"})
        EXPECT_TRUE(b.Fatto(nome)) << nome;
    EXPECT_TRUE(b.Avvertito("mnuRiordina_Click fermato alla riga «B2.frm»: errore 53"));
    EXPECT_TRUE(b.Avvertito("mnuvorn_Click fermato alla riga «B2.frm»: errore 53"));
    EXPECT_TRUE(b.Avvertito("mnuvorn_Click fermato alla riga «B.frm»: errore 5"));
}

TEST(Prosegui, TutteFerme) {
    Banco b;
    for (const char* riga : {"A.frm", "B.frm", "C.frm"}) b.Riga(riga, std::nullopt);
    EXPECT_EQ(b.Esegui({"struttura", "-k", "p/Prova.vbp"}), 1);
    for (const char* riga : {"«A.frm»", "«B.frm»", "«C.frm»"}) EXPECT_TRUE(b.Avvertito(riga)) << riga;
}

struct Rilevato {
    const char* Che;
    std::vector<std::string> Codice; // from line 6 of the file on, line 1 of the listing
    const char* Inizio;              // of the message
    std::vector<std::string> Pezzi;  // that it holds, in this order
};
// clang-format off
const Rilevato Rilevati[] = {
    {"one-line If", {"Option Explicit", "Private Sub a()", "  If x Then y", "End Sub"},
        "p/F.frm:9: ", {"«Private Sub a()» (riga 7)", "riga 8 «If x Then y»", "riga 4 della struttura"}},
    {"While", {"Function f()", "  While x", "  Wend", "End Function"},
        "p/F.frm:9: ", {"«Function f()» (riga 6)", "riga 7 «While x»", "riga 4 della struttura"}},
    {"Property", {"Property Get p()", "With x", "End Property"},
        "p/F.frm:8: ", {"«Property Get p()» (riga 6)", "riga 7 «With x»"}},
    {"only what still stands open", {"Sub a()", "If x Then", "For i = 1 To 2", "Next", "Do", "If z Then", "End If", "End Sub"},
        "p/F.frm:13: ", {"«Sub a()» (riga 6)", "2 blocchi", "riga 7 «If x Then»", "riga 10 «Do»", "riga 8 della struttura"}},
    {"a column is its opener's, not its Else's", {"Sub a()", "If x Then", "ElseIf y Then", "Else", "End Sub"},
        "p/F.frm:10: ", {"«Sub a()»", "un blocco", "riga 7 «If x Then»"}},
    {"a surplus Else draws a column of its own", {"Sub a()", "x", "Else", "End Sub"},
        "p/F.frm:9: ", {"«Sub a()»", "un blocco", "riga 8 «Else»"}},
    {"a surplus Else of a closed block", {"Sub a()", "If x Then", "End If", "Else", "If y Then z", "End Sub"},
        "p/F.frm:11: ", {"2 blocchi", "riga 9 «Else»", "riga 10 «If y Then z»"}},
    {"a head drops what was open", {"Sub a()", "If x Then y", "Sub b()", "Do", "End Sub"},
        "p/F.frm:10: ", {"«Sub b()» (riga 8)", "un blocco", "riga 9 «Do»"}},
    {"an unknown head", {"Friend Sub a()", "If x Then y", "End Sub"},
        "p/F.frm:8: ", {"non si riconosce la testata", "riga 7 «If x Then y»"}},
    {"an unknown head after a known one", {"Sub a()", "End Sub", "Static Sub b()", "Do", "End Sub"},
        "p/F.frm:10: ", {"non si riconosce la testata", "riga 9 «Do»"}},
    {"a block between procedures", {"Function a()", "End Function", "If x Then y", "Friend Sub b()", "End Sub"},
        "p/F.frm:10: ", {"non si riconosce la testata", "riga 8 «If x Then y»"}},
    {"#End If after End Sub", {"#If x Then", "Sub a()", "End Sub", "#End If"},
        "p/F.frm:9: ", {"«#End If»", "riga 4 della struttura"}},
    {"Next after End Sub", {"Sub a()", "End Sub", "   Next i"}, "p/F.frm:8: ", {"«Next i»"}},
    {"accents", {"Sub Perch\xE9()", "If \xE8 Then y", "End Sub"}, "p/F.frm:8: ", {"«Sub Perché()»", "«If è Then y»"}},
};
// clang-format on

TEST(Controlla, OgniRilievo) {
    for (const Rilevato& caso : Rilevati) {
        for (const char* comando : {"struttura", "esegui"}) {
            Banco b;
            b.Riga("F.frm", Form(caso.Codice));
            EXPECT_EQ(b.Esegui({comando, "--si", "--controlla", "p/Prova.vbp"}), 4) << caso.Che;
            const auto rilievi = b.Rilievi();
            ASSERT_EQ(rilievi.size(), 1U) << caso.Che << '\n' << b.Uscita.str();
            EXPECT_TRUE(rilievi[0].starts_with(caso.Inizio)) << caso.Che << '\n' << rilievi[0];
            std::size_t da = 0;
            for (const std::string& pezzo : caso.Pezzi) {
                const std::size_t dove = rilievi[0].find(pezzo, da);
                EXPECT_NE(dove, std::string::npos) << caso.Che << ": " << pezzo << "\n" << rilievi[0];
                if (dove != std::string::npos) da = dove;
            }
        }
    }
}

// A column that the control section left open is told by its line there: the listing has discarded it,
// but in the file it can be found.
TEST(Controlla, ApertoNellaSezioneDeiControlli) {
    Banco b;
    b.Riga("F.frm",
           Crlf({"VERSION 5.00", "Do", "Attribute VB_Exposed = False", "Friend Sub a()", "End Sub"}));
    EXPECT_EQ(b.Esegui({"struttura", "--controlla", "p/Prova.vbp"}), 4);
    const auto rilievi = b.Rilievi();
    ASSERT_EQ(rilievi.size(), 1U);
    EXPECT_TRUE(rilievi[0].starts_with("p/F.frm:5: ")) << rilievi[0];
    EXPECT_NE(rilievi[0].find("riga 2 «Do»"), std::string::npos) << rilievi[0];
    EXPECT_NE(rilievi[0].find("riga 2 della struttura"), std::string::npos) << rilievi[0];
}

// An editor ends a line at a lone LF, the engine does not: the editor's line is told.
TEST(Controlla, LfSoli) {
    Banco b;
    b.Riga("F.frm",
           "VERSION\r\nAttribute VB_Exposed = False\r\n'a\n'b\n'c\r\nSub a()\r\n'd\n'e\r\nIf x Then y\n'f\r\n"
           "End Sub\r\n#End If\r\n");
    EXPECT_EQ(b.Esegui({"struttura", "--controlla", "p/Prova.vbp"}), 4);
    const auto rilievi = b.Rilievi();
    ASSERT_EQ(rilievi.size(), 2U);
    EXPECT_EQ(rilievi[0], "p/F.frm:11: la procedura «Sub a()» (riga 6) finisce con un blocco aperto: riga 9 "
                          "«If x Then y␊'f» (riga 5 della struttura)");
    EXPECT_TRUE(rilievi[1].starts_with("p/F.frm:12: «#End If» ")) << rilievi[1];
    EXPECT_NE(b.Errori.str().find("(p/F.frm:12)"), std::string::npos) << b.Errori.str();
}

// Four blocks are all named; of more the first three, and how many others there are.
TEST(Controlla, MoltiAperti) {
    Banco b;
    std::vector<std::string> codice = {"Sub a()"};
    for (int i = 0; i < 300; ++i) codice.push_back("If a" + std::to_string(i) + " Then");
    codice.push_back("End Sub");
    b.Riga("F.frm", Form(codice));
    EXPECT_EQ(b.Esegui({"struttura", "--controlla", "p/Prova.vbp"}), 4);
    ASSERT_EQ(b.Rilievi().size(), 1U);
    const std::string frase = b.Rilievi()[0];
    EXPECT_NE(frase.find("con 300 blocchi aperti: "), std::string::npos);
    for (int i = 0; i < 300; ++i)
        EXPECT_EQ(frase.find("«If a" + std::to_string(i) + " Then»") != std::string::npos, i < 3) << i;
    EXPECT_NE(frase.find("Then» e altri 297 (riga"), std::string::npos) << frase;
    Banco quattro;
    quattro.Riga("F.frm", Form({"Sub a()", "If a Then", "If b Then", "If c Then", "If d Then", "End Sub"}));
    EXPECT_EQ(quattro.Esegui({"struttura", "--controlla", "p/Prova.vbp"}), 4);
    ASSERT_EQ(quattro.Rilievi().size(), 1U);
    EXPECT_NE(quattro.Rilievi()[0].find("«If d Then» (riga"), std::string::npos) << quattro.Rilievi()[0];
    EXPECT_EQ(quattro.Rilievi()[0].find("altri"), std::string::npos);
}

TEST(Controlla, NienteDaDire) {
    for (const char* comando : {"struttura", "esegui"}) {
        Banco b;
        b.Riga("F.frm",
               Form({"Sub a()", "If x Then", "End If", "End If", "For i = 1 To 2", "End If", "End Sub",
                     "End With", "Function f()", "End Function", "#End If", "Sub b()", "If c Then d"}));
        EXPECT_EQ(b.Esegui({comando, "-s", "--controlla", "p/Prova.vbp"}), 0);
        EXPECT_TRUE(b.Rilievi().empty());
    }
}

// The findings of all rows, in the order of the rows, with paths relative to where the program was
// started.
TEST(Controlla, PiuRighe) {
    Banco b;
    b.Riga("C.frm", Form({"Sub c()", "Do", "End Sub", "Sub d()", "Do", "End Sub"}));
    b.Riga("A.frm", Form({"Sub a()", "End Sub", "#Else"}));
    b.Riga("B.frm", std::nullopt);
    b.Disco.Metti("/casa/p/Prova.vbp", b.Vbp + "Form=sub\\Quantit\xE0.frm\r\n");
    b.Disco.Metti("/casa/p/sub/Quantit\xC3\xA0.frm", Form({"Sub q()", "Do", "End Sub"}));
    EXPECT_EQ(b.Esegui({"struttura", "-q", "--controlla", "p/Prova.vbp"}), 4);
    EXPECT_EQ(b.Rilievi().size(), 1U); // the first row stops the run
    EXPECT_EQ(b.Esegui({"struttura", "-qk", "--controlla", "p/Prova.vbp"}), 4);
    const auto rilievi = b.Rilievi();
    ASSERT_EQ(rilievi.size(), 4U) << b.Uscita.str();
    EXPECT_TRUE(rilievi[0].starts_with("p/A.frm:8: "));
    EXPECT_TRUE(rilievi[1].starts_with("p/C.frm:8: "));
    EXPECT_TRUE(rilievi[2].starts_with("p/C.frm:11: "));
    EXPECT_TRUE(rilievi[3].starts_with("p/sub/Quantità.frm:8: "));
    const std::string tutto = b.Uscita.str();
    EXPECT_EQ(std::count(tutto.begin(), tutto.end(), '\n'), 4) << "-q leaves nothing else";
    EXPECT_TRUE(b.Avvertito("«B.frm»: errore 53"));
}

// Without a finding the error decides the exit status.
TEST(Controlla, UnErroreSolo) {
    Banco b;
    b.Riga("F.frm", std::nullopt);
    EXPECT_EQ(b.Esegui({"struttura", "--controlla", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Rilievi().empty());
}

TEST(Controlla, SenzaOpzioneNonSiDice) {
    Banco b;
    b.Riga("F.frm", Form({"Sub a()", "Do", "End Sub"}));
    EXPECT_EQ(b.Esegui({"struttura", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Rilievi().empty());
}

// A message cuts a long line, and holds nothing that would act on a terminal.
TEST(Controlla, LineaLungaEByteDiControllo) {
    Banco b;
    b.Riga("F.frm", Form({"Sub a()", "If \x1B[31m\t" + std::string(500, 'x'), "End Sub"}));
    EXPECT_EQ(b.Esegui({"struttura", "-q", "--controlla", "p/Prova.vbp"}), 4);
    EXPECT_FALSE(b.Detto("\x1B"));
    EXPECT_FALSE(b.Detto(std::string(100, 'x')));
    EXPECT_TRUE(b.Detto("…»"));
}

TEST(Leggi, UnLettorePerStruttura) {
    Banco b;
    b.Riga("A.frm", Form({"x"}));
    b.Riga("B.frm", Form({"x"}));
    EXPECT_EQ(b.Esegui({"struttura", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Esegui({"leggi", "p/Prova.vbp"}), 0) << b.Errori.str();
    ASSERT_EQ(b.Disco.Avviati.size(), 2U);
    EXPECT_EQ(b.Disco.Avviati[0], "Notepad.exe|/casa/p/Appoggio/A.log");
    EXPECT_EQ(b.Disco.Avviati[1], "Notepad.exe|/casa/p/Appoggio/B.log");
    EXPECT_TRUE(b.Avvertito("Selezionare il carattere TERMINAL - Normale"));
    b.Disco.Avviati.clear();
    EXPECT_EQ(b.Esegui({"leggi", "-q", "p/Prova.vbp", "b.frm"}), 0);
    EXPECT_EQ(b.Disco.Avviati, std::vector<std::string>{"Notepad.exe|/casa/p/Appoggio/B.log"});
    EXPECT_EQ(b.Uscita.str() + b.Errori.str(), "");
}

// A missing structure is written; nothing opens until the command is given again.
TEST(Leggi, StrutturaMancante) {
    Banco b;
    b.Riga("A.frm", Form({"x"}));
    EXPECT_EQ(b.Esegui({"leggi", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(b.Fatto("A.log"));
    EXPECT_TRUE(b.Disco.Avviati.empty());
    EXPECT_TRUE(b.Avvertito("Avviso: una struttura mancava")) << b.Errori.str();
    EXPECT_EQ(b.Esegui({"leggi", "p/Prova.vbp"}), 0);
    EXPECT_EQ(b.Disco.Avviati.size(), 1U);
    EXPECT_FALSE(b.Avvertito("Avviso"));
}

TEST(Leggi, SenzaLettore) {
    Banco b;
    b.Riga("A.frm", Form({"x"}));
    b.Esegui({"struttura", "p/Prova.vbp"});
    b.Disco.Fallisci("Avvia", "", ErrFileAssente);
    EXPECT_EQ(b.Esegui({"leggi", "p/Prova.vbp"}), 1);
    // Error 53 is about the viewer: the structure is there.
    EXPECT_TRUE(b.Avvertito("mnuLettura_Click fermato alla riga «A.frm»: errore 53, File non trovato. (un "
                            "programma per /casa/p/Appoggio/A.log)\n  Manca un programma che apra il file"))
        << b.Errori.str();
}

TEST(Eventi, Struttura) {
    Banco b;
    TreForm(b);
    EXPECT_EQ(
        b.Esegui({"eventi", "p/Prova.vbp", "File1Leggi_Click", "seleziona=0,2", "mnuvorn_Click", "-r", "-"}),
        0);
    EXPECT_TRUE(b.Fatto("A.log") && b.Fatto("C.log"));
    EXPECT_FALSE(b.Fatto("B.log"));
    EXPECT_TRUE(b.Detto("{\"testo\": \"A.frm\", \"selezionata\": false}"));
    // The command given again goes on after the row that stopped the run.
    EXPECT_EQ(b.Esegui({"eventi", "p/Prova.vbp", "File1Leggi_Click", "mnuvorn_Click", "mnuvorn_Click"}), 1);
    EXPECT_TRUE(b.Fatto("C.log"));
}

TEST(Eventi, LetturaSenzaProcessi) {
    Banco b;
    b.Riga("A.frm", Form({"x"}));
    b.Riga("B.frm", Form({"x"}));
    // The listing deselects the rows: the toggle is pressed twice to select them again.
    EXPECT_EQ(b.Esegui({"eventi", "--senza-processi", "-r", "-", "p/Prova.vbp", "File1Leggi_Click",
                        "mnuvorn_Click", "mnuSeleziona_Click", "mnuSeleziona_Click", "mnuLettura_Click"}),
              0);
    EXPECT_TRUE(b.Detto("\"processi\": [\"Notepad.exe \\\\casa\\\\p\\\\Appoggio\\\\A.Log\", "
                        "\"Notepad.exe \\\\casa\\\\p\\\\Appoggio\\\\B.Log\"]") ||
                b.Detto("\"Notepad.exe \\\\casa\\\\p\\\\Appoggio\\\\A.Log\",\n"))
        << b.Uscita.str();
    EXPECT_TRUE(b.Detto("Notepad.exe \\\\casa\\\\p\\\\Appoggio\\\\B.Log"));
    EXPECT_TRUE(b.Detto("\"flag\": 64, \"titolo\": \"Lettura Ottimizzata\", \"risposta\": 1"));
    EXPECT_TRUE(b.Disco.Avviati.empty());
}

// No finding must mean "examined and clean": what was not examined is reported in spite of -q.
TEST(Controlla, InSilenzioDiceCheCosaNonHaVisto) {
    Banco senza;
    senza.Riga("A.bas", "Attribute VB_Name = \"A\"\r\nSub a()\r\nDo\r\nEnd Sub\r\n");
    EXPECT_EQ(senza.Esegui({"struttura", "--controlla", "-q", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(senza.Avvertito("Avviso: la struttura di «A.bas» è vuota")) << senza.Errori.str();
    EXPECT_EQ(senza.Esegui({"struttura", "-q", "p/Prova.vbp"}), 0);
    EXPECT_EQ(senza.Errori.str(), "");

    Banco lf;
    lf.Riga("A.frm", "VERSION 5.00\nAttribute VB_Exposed = False\nSub a()\nDo\nEnd Sub\n");
    EXPECT_EQ(lf.Esegui({"struttura", "--controlla", "-q", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(lf.Avvertito("Avviso: «A.frm» ha fine riga LF")) << lf.Errori.str();
    EXPECT_FALSE(lf.Avvertito("«Prova.vbp»"));
    EXPECT_EQ(lf.Esegui({"struttura", "--controlla", "-q", "--lf", "p/Prova.vbp"}), 4);
    EXPECT_EQ(lf.Errori.str(), "");

    Banco vuoto;
    vuoto.Disco.Metti("/casa/p/Prova.vbp", "Type=Exe\r\n");
    EXPECT_EQ(vuoto.Esegui({"esegui", "-s", "--controlla", "-q", "p/Prova.vbp"}), 0);
    EXPECT_TRUE(vuoto.Avvertito("non ha righe Form=, Module= o Class=: non c'è niente da controllare."));

    Banco bene;
    bene.Riga("A.frm", Form({"Sub a()", "End Sub"}));
    EXPECT_EQ(bene.Esegui({"struttura", "--controlla", "-q", "p/Prova.vbp"}), 0);
    EXPECT_EQ(bene.Errori.str() + bene.Uscita.str(), "");
}

// A report that cannot be written does not hide that something was found.
TEST(Controlla, ConUnRapportoImpossibile) {
    Banco b;
    b.Riga("A.frm", Form({"Sub a()", "Do", "End Sub"}));
    EXPECT_EQ(b.Esegui({"struttura", "--controlla", "-r", "nessuna/r.json", "p/Prova.vbp"}), 4);
    EXPECT_EQ(b.Rilievi().size(), 1U);
    EXPECT_TRUE(b.Avvertito("errore 76, ") && b.Avvertito("(--rapporto /casa/nessuna/r.json)") &&
                b.Avvertito("Il resto è fatto, il rapporto no"))
        << b.Errori.str();
    EXPECT_EQ(b.Esegui({"struttura", "-r", "nessuna/r.json", "p/Prova.vbp"}), 1);
}

// In the second run of --prosegui no form comes before the modules any more.
TEST(Prosegui, LaCorsaRicomincia) {
    Banco b;
    b.Riga("A.frm", Form({"x"}));
    b.Riga("B.frm", Form({"Sub b()", "End Sub", "#End If", "x"}));
    b.Riga("D.bas", "Attribute VB_Name = \"D\"\r\n");
    EXPECT_EQ(b.Esegui({"struttura", "-k", "p/Prova.vbp"}), 1);
    EXPECT_TRUE(b.Avvertito("«D.bas» è vuota: nessun form viene prima nella corsa, che dopo un errore "
                            "ricomincia, e la testata"))
        << b.Errori.str();
}

TEST(Eventi, ConControlla) {
    Banco b;
    b.Riga("A.frm", Form({"Sub a()", "Do", "End Sub"}));
    EXPECT_EQ(b.Esegui({"eventi", "--controlla", "p/Prova.vbp", "File1Leggi_Click", "mnuvorn_Click"}), 4);
    EXPECT_EQ(b.Rilievi().size(), 1U);
}

} // namespace

} // namespace morvella::cli
