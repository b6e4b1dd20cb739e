// SPDX-License-Identifier: MIT
//
// The run over the rows: what carries over from one file to the next, the outputs, bars and label.
#include "comandi/comandi.h"
#include "listing/banco.h"

namespace morvella {

namespace {

using namespace prove;

TEST(Corsa, BasPrimaEDopoUnForm) {
    const std::string bas = Sorgente({"Attribute VB_Name = \"B\"", "Option Explicit", "x"});
    const std::string form = Sorgente({"VERSION 5.00", Exposed, "y"});
    Banco b;
    b.Modulo("A.bas", bas);
    b.Modulo("M.frm", form);
    b.Modulo("Z.bas", bas);
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("A.log"), "");
    EXPECT_EQ(b.Log("M.log"), Listato({"1|···y"}));
    EXPECT_EQ(b.Log("Z.log"), Listato({"1|···Attribute VB_Name = \"B\"", "2|···Option Explicit", "3|···x"}));

    // A run begins at 0 again: the same file alone gives nothing.
    SelezionaFile1(b.S, 2, true);
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("Z.log"), "");
    EXPECT_EQ(b.Log("M.log"), Listato({"1|···y"})); // not selected, not touched
}

// Only selected rows carry the state on: a form that is not selected changes nothing.
TEST(Corsa, UnFormNonSelezionatoNonConta) {
    Banco b;
    b.Modulo("A.frm", "x\r\n");
    b.Modulo("B.bas", "Attribute VB_Name = \"B\"\r\nx\r\n");
    b.S.File1.Segna(1, true);
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("B.log"), "");
    EXPECT_FALSE(b.Fatto("A.log"));
}

// The count of Attribute lines carries over too: each module of a project without forms brings one,
// and the fifth gets the head that is meant for a class.
TEST(Corsa, IlQuintoModulo) {
    Banco b;
    for (const char* nome : {"A.bas", "B.bas", "C.bas", "D.bas", "E.bas", "F.bas"})
        b.Modulo(nome, Sorgente({"Attribute VB_Name = \"M\"", "Option Explicit", "x"}));
    b.Tutte();
    mnuvorn_Click(b.S);
    for (const char* nome : {"A.log", "B.log", "C.log", "D.log"}) EXPECT_EQ(b.Log(nome), "") << nome;
    EXPECT_EQ(b.Log("E.log"), Testa() + Listato({"1|···Option Explicit", "2|···x"}));
    EXPECT_EQ(b.Log("F.log"), Listato({"1|···Attribute VB_Name = \"M\"", "2|···Option Explicit", "3|···x"}));
}

TEST(Corsa, NienteSelezionato) {
    Banco b;
    b.Modulo("A.frm", "x\r\n");
    b.Disco.Metti("/p/Appoggio/A.log", "di prima");
    b.S.Label2 = "prima";
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("A.log"), "di prima");
    EXPECT_EQ(b.S.Label2, "");
    EXPECT_EQ(b.Fronte.Etichette, (std::vector<Testo>{""}));
    EXPECT_EQ(b.S.DirAppoggio, "\\p\\Appoggio");
    EXPECT_FALSE(b.S.ProgressBar1.Visible || b.S.Progress.Visible);
    EXPECT_EQ(b.S.ProgressBar1.Value, 0);
    EXPECT_EQ(b.S.ProgressBar1.Max, 1);
    EXPECT_TRUE(b.Fronte.Box_.empty());
}

TEST(Corsa, ListaVuota) {
    Banco b;
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.S.ProgressBar1.Max, 0);
    EXPECT_TRUE(b.Disco.Esiste("/p/Appoggio/OK.LOG"));
    EXPECT_EQ(b.Disco.TuttiIFile().size(), 1U);
    EXPECT_TRUE(b.Fronte.Box_.empty() && b.Fronte.Arresti.empty());
}

TEST(Corsa, FileVuoto) {
    Banco b;
    b.Modulo("A.frm", "");
    b.Tutte();
    b.S.Numero = "di prima";
    b.S.Progress.Min = 7;
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.S.Numero, "");
    EXPECT_EQ(b.S.Progress.Min, 0);
    EXPECT_EQ(b.Log("A.log"), "");
    EXPECT_EQ(b.S.Progress.Max, 15);
}

TEST(Corsa, DueVolteUguale) {
    Banco b;
    b.Modulo("A.frm", Sorgente({"a", Exposed, "Sub b()", "If c Then d", "End Sub"}));
    b.Modulo("B.cls", Sorgente(Con(Classe5, {Exposed, "Option Explicit"})));
    b.Tutte();
    mnuvorn_Click(b.S);
    const auto prima = b.Disco.TuttiIFile();
    b.Disco.Metti("/p/Appoggio/A.log", std::string(10000, 'z')); // an older one is emptied
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Disco.TuttiIFile(), prima);
}

// The same row twice is listed twice, in the state that stands then.
TEST(Corsa, LaStessaRigaDueVolte) {
    Banco b;
    b.Modulo("A.bas", Sorgente({"option x", "y"}));
    b.Modulo("A.bas", std::nullopt);
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("A.log"), Listato({"1|···option x", "2|···y"}));
    EXPECT_EQ(b.Fronte.Scritti.size(), 2U);
}

// The ending is cut by four bytes, whatever it is.
TEST(Corsa, NomiDelleUscite) {
    const std::pair<const char*, const char*> casi[] = {
        {"Form1.frm", "Form1.log"}, {"Form1.f", "For.log"}, {"abcd", ".log"},
        {"x.frmx", "x..log"},       {"a.b.frm", "a.b.log"},
    };
    for (const auto& [riga, uscita] : casi) {
        Banco b;
        b.Modulo(riga, "option\r\n");
        b.Tutte();
        mnuvorn_Click(b.S);
        EXPECT_TRUE(b.Fatto(uscita)) << riga;
    }
}

TEST(Corsa, RigheConDirectory) {
    Banco b; // no folder below Appoggio: flat; a folder there: into it
    b.Modulo("sub\\A.frm", "a\r\n");
    b.Modulo("due\\B.frm", "b\r\n");
    b.Modulo("..\\lib\\C.frm", std::nullopt);
    b.Disco.Metti("/lib/C.frm", "c\r\n");
    b.Disco.FaiDirectory("/p/Appoggio/due");
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("A.log"), Listato({"1|···a"}));
    EXPECT_EQ(b.Log("due/B.log"), Listato({"1|···b"}));
    EXPECT_EQ(b.Log("C.log"), Listato({"1|···c"}));
    EXPECT_FALSE(b.Fatto("B.log"));
    EXPECT_FALSE(b.Disco.Esiste("/lib/C.log"));
    EXPECT_TRUE(b.Fronte.Arresti.empty());
}

// "..\lib" from the work directory is p\lib: where that exists, the listing lands there.
TEST(Corsa, RigaCheEsceDallaDirectory) {
    Banco b;
    b.Modulo("..\\lib\\C.frm", std::nullopt);
    b.Disco.Metti("/lib/C.frm", "c\r\n");
    b.Disco.FaiDirectory("/p/lib");
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Disco.Leggi("/p/lib/C.log"), Listato({"1|···c"}));
    EXPECT_FALSE(b.Fatto("C.log"));
}

TEST(Corsa, Menu) {
    for (const bool scelta : {false, true}) {
        Banco b;
        b.Modulo("A.frm", "x\r\n");
        b.S.File1.Segna(0, scelta);
        b.S.mnuLettura = b.S.mnuvorn = b.S.mnuRiordina = b.S.mnuHTML = false;
        mnuvorn_Click(b.S);
        EXPECT_TRUE(b.S.mnuLettura);
        EXPECT_EQ(b.S.mnuvorn, scelta); // by the event of the deselected row
        EXPECT_EQ(b.S.mnuRiordina, scelta);
        EXPECT_FALSE(b.S.mnuHTML);
    }
}

// Each row is deselected and Label2 is set before the first byte of its source is read.
TEST(Corsa, PrimaDiLeggere) {
    Banco b;
    b.Modulo("A.frm", "x\r\n");
    b.Modulo("B.frm", "x\r\n");
    b.Tutte();
    std::vector<std::string> viste;
    b.Disco.PrimaDiLeggere = [&](const std::string& file) {
        viste.push_back(file + "|" + b.S.Label2 + "|" + b.Selezione());
    };
    mnuvorn_Click(b.S);
    ASSERT_GE(viste.size(), 4U);
    EXPECT_EQ(viste.front(), "/p/A.frm|\\p\\A.frm|01");
    EXPECT_EQ(viste.back(), "/p/B.frm|\\p\\B.frm|00");
    EXPECT_EQ(b.Fronte.Etichette, (std::vector<Testo>{"\\p\\A.frm", "\\p\\B.frm", ""}));
}

// A source that cannot be opened never reaches Label2, and its row is deselected all the same.
TEST(Corsa, SorgenteMancante) {
    Banco b;
    b.Modulo("A.frm", "x\r\n");
    b.Modulo("B.frm", std::nullopt);
    b.Modulo("C.frm", "x\r\n");
    b.Tutte();
    mnuvorn_Click(b.S);
    ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 53);
    EXPECT_EQ(b.Fronte.Arresti[0].Voce, 1);
    EXPECT_EQ(b.Fronte.Arresti[0].Riga, 0);
    EXPECT_EQ(b.S.Label2, "\\p\\A.frm");
    EXPECT_EQ(b.Selezione(), "001");
    EXPECT_TRUE(b.Fatto("A.log"));
    EXPECT_FALSE(b.Fatto("B.log") || b.Fatto("C.log"));
    EXPECT_TRUE(b.S.ProgressBar1.Visible && b.S.Progress.Visible);
    EXPECT_EQ(b.S.ProgressBar1.Value, 2);
    EXPECT_EQ(b.S.Progress.Value, 1); // as the file before left it
    EXPECT_TRUE(b.CanaliChiusi());
}

TEST(Corsa, RigaTroppoCorta) {
    for (const char* riga : {"", "a", "abc"}) {
        Banco b;
        b.Modulo("zzz.frm", "x\r\n");
        b.S.File1.AddItem(riga);
        b.Tutte();
        mnuvorn_Click(b.S);
        ASSERT_EQ(b.Fronte.Arresti.size(), 1U) << riga;
        EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 5);
        EXPECT_EQ(b.Selezione(), "01");
        EXPECT_FALSE(b.Fatto("zzz.log"));
    }
}

// A row "Appoggio\A.log" makes the listing of A.frm a source, and sources are never written.
TEST(Corsa, MaiSopraUnSorgente) {
    Banco b;
    b.Modulo("A.frm", "x\r\n");
    b.Modulo("Appoggio\\A.log", "Attribute a\r\n");
    b.Tutte();
    mnuvorn_Click(b.S);
    EXPECT_EQ(b.Log("A.log"), "Attribute a\r\n");
    ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(b.Fronte.Arresti[0].Causa.Numero, 70);
}

// Keeps what each repainting of a bar showed.
struct FinestraBarre : FinestraFinta {
    Stato* Tutto = nullptr;
    std::vector<std::string> Viste;
    void RidisegnaBarra(const Barra& barra) override {
        const char* quale = &barra == &Tutto->Progress ? "righe" : "file";
        Viste.push_back(std::string(quale) + ' ' + CStr(barra.Value) + '/' + CStr(barra.Max) +
                        (barra.Visible ? " si" : " no"));
    }
};

TEST(Corsa, Barre) {
    DiscoFinto disco;
    FinestraBarre fronte;
    Stato s(disco, fronte);
    fronte.Tutto = &s;
    CambiaDir1(s, "/p");
    disco.Metti("/p/B.frm", "a\r\nb\r\n");
    for (const char* riga : {"A.frm", "B.frm", "C.frm"}) s.File1.AddItem(riga);
    s.File1.Segna(1, true);
    s.ProgressBar1.Value = 5; // as a rewriter's run leaves it
    s.ProgressBar1.Max = 5;
    mnuvorn_Click(s);
    EXPECT_EQ(fronte.Viste,
              (std::vector<std::string>{"file 5/3 no", "file 5/3 si", "file 0/3 si", // Max, Visible, Value
                                        "file 1/3 si", "file 2/3 si", "righe 0/17 no", "righe 0/17 no",
                                        "righe 0/17 si", "righe 1/17 si", "righe 2/17 si", "file 3/3 si",
                                        "righe 2/17 no", "righe 0/17 no", "file 0/3 si", "file 0/3 no"}));
}

// The full run: the listing comes after the rewriter, also after one that stopped.
TEST(Corsa, Command1ChiamaTuttiEDue) {
    Banco b;
    b.Modulo("A.frm", Sorgente({"a", Exposed, "x"}));
    b.Modulo("B.frm", Sorgente({"x"}));
    b.Tutte();
    b.S.OpzSenzaConferma = true;
    b.Disco.Fallisci("ApriScrittura", "a.txt", 75);
    Command1_Click(b.S);
    ASSERT_EQ(b.Fronte.Arresti.size(), 1U);
    EXPECT_EQ(b.Fronte.Arresti[0].Motore, "mnuRiordina_Click");
    EXPECT_EQ(b.Log("A.log"), Listato({"1|···x"}));
    EXPECT_EQ(b.Log("B.log"), Listato({"1|···x"}));
    EXPECT_EQ(b.Selezione(), "00");
}

TEST(Corsa, Command1ConNoNonScrive) {
    Banco b;
    b.Modulo("A.frm", "x\r\n");
    b.Tutte();
    Command1_Click(b.S);
    EXPECT_FALSE(b.Disco.Esiste("/p/Appoggio"));
    EXPECT_EQ(b.Selezione(), "1");
}

} // namespace

} // namespace morvella
