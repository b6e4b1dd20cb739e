// SPDX-License-Identifier: MIT
//
// Every call of a run made to fail in turn, with every number: the run ends, the sources stay
// as they are, no channel stays open, and what the handler says comes about.
#include "listing/listing.h"
#include "rewriter/banco.h"
#include "rewriter/disco_annotato.h"

namespace morvella {

namespace {

using namespace prove;

using File = std::map<std::string, std::string>;

constexpr int Numeri[] = {53, 55, 57, 61, 70, 75, 76};

struct Motore {
    const char* Nome;
    void (*Clic)(Stato&);
};
constexpr Motore Motori[] = {{"mnuRiordina_Click", mnuRiordina_Click}, {"mnuvorn_Click", mnuvorn_Click}};

enum class Progetto {
    Nuovo,   // no work directory yet
    Rifatto, // one of an earlier run
    Lungo,   // sources and outputs of several blocks, and a line longer than a block
};

struct Corsa {
    DiscoAnnotato Disco;
    Banco B{Disco};
    File Sorgenti;

    explicit Corsa(Progetto progetto) {
        Disco.Metti("/p/Prova.vbp", "Type=Exe\r\n");
        B.S.File1Leggi.Nomi = {"Prova.vbp"};
        B.S.File1Leggi.ListIndex = 0;
        B.S.Check1 = 1;
        B.S.Text1 = "'T";
        Testo lungo;
        if (progetto == Progetto::Lungo) {
            for (int i = 0; i < 5000; ++i) lungo += "If x = " + CStr(i) + " Then y = 0\r\nEnd If\r\n";
            lungo += Testo(140000, 'z') + "\r\n";
        }
        B.Voce("a.bas", "/p/a.bas", "Attribute VB_Name = \"A\"\nOption Explicit\nSub a()\nC.Show\nEnd Sub\n");
        B.Voce("b.cls", "/p/b.cls", "Attribute VB_Exposed = False\nOption Explicit\n");
        Disco.Metti("/p/b.cls", Disco.Leggi("/p/b.cls") + lungo + "x\r\n");
        B.Voce("c.frm", "/p/c.frm", "VERSION 5.00\nAttribute VB_Exposed = False\nIf x Then\ny\nEnd If\n");
        Disco.Metti("/p/c.frx", "binario");
        Sorgenti = Disco.TuttiIFile();
        Disco.Chiamate.clear();
        if (progetto != Progetto::Rifatto) return;
        Disco.Metti("/p/Appoggio/OK.LOG", "vecchio");
        for (const char* nome : {"a.txt", "b.txt", "c.txt", "a.bas", "c.frx", "a.log", "b.log", "c.log"})
            Disco.Metti(std::string("/p/Appoggio/") + nome, "vecchio");
    }

    // What holds after any run whatever.
    void Esegui(const Motore& motore) {
        EXPECT_NO_THROW(motore.Clic(B.S));
        EXPECT_TRUE(B.ChiusoTutto());
        EXPECT_LE(B.Fronte.Arresti.size(), 1U);
        const File dopo = Disco.TuttiIFile();
        for (const auto& [percorso, bytes] : Sorgenti)
            EXPECT_TRUE(dopo.contains(percorso) && dopo.at(percorso) == bytes) << percorso;
    }
};

void OgniChiamataConOgniNumero(const Motore& motore) {
    for (const Progetto progetto : {Progetto::Nuovo, Progetto::Rifatto, Progetto::Lungo}) {
        Corsa intera(progetto);
        intera.Disco.FallisciAllaChiamata(0, 0);
        intera.Esegui(motore);
        ASSERT_EQ(intera.B.Arresto(), 0);
        const int chiamate = intera.Disco.ChiamateFatte();
        const std::vector<std::string> nomi = intera.Disco.Chiamate;
        ASSERT_EQ(static_cast<std::size_t>(chiamate), nomi.size());
        const File fatti = intera.Disco.TuttiIFile();
        bool inCartella = true; // while the work directory is made, where failures are passed over
        const bool riordina = motore.Clic == mnuRiordina_Click;

        for (int k = 1; k <= chiamate; ++k) {
            const std::string& nome = nomi[static_cast<std::size_t>(k - 1)];
            const std::string operazione = nome.substr(0, nome.find(' '));
            const std::string percorso = nome.substr(nome.find(' ') + 1);
            const bool sorgente = intera.Sorgenti.contains(percorso);
            if (operazione == "CambiaDirectory" || sorgente) inCartella = false;
            for (const int numero : Numeri) {
                SCOPED_TRACE(testing::Message() << motore.Nome << " " << k << " " << nome << " " << numero);
                Corsa corsa(progetto);
                corsa.Disco.FallisciAllaChiamata(k, numero);
                corsa.Esegui(motore);
                const int arresto = corsa.B.Arresto();
                const File dopo = corsa.Disco.TuttiIFile();

                if (inCartella && operazione == "CreaDirectory") {
                    EXPECT_EQ(arresto, 76); // at the first output
                    EXPECT_EQ(dopo, corsa.Sorgenti);
                } else if (inCartella) { // the marker or the project's copy is missing or empty, no more
                    EXPECT_EQ(arresto, 0);
                    for (const auto& [quale, bytes] : fatti)
                        EXPECT_TRUE(quale == percorso || dopo.at(quale) == bytes) << quale;
                } else if (operazione == "Chiudi" && sorgente) { // all of it was read
                    EXPECT_EQ(arresto, 0);
                    EXPECT_TRUE(dopo == fatti);
                } else if (numero != 55 && numero != 76) {
                    EXPECT_EQ(arresto, numero);
                } else if (operazione == "Scrivi") {
                    // No disk says 55 or 76 to a write: the run only has to end well.
                } else if (numero == 76) { // the same statement again
                    EXPECT_EQ(arresto, 0);
                    EXPECT_TRUE(dopo == fatti);
                } else if (!riordina) { // on after it; 52 where a channel is used again
                    EXPECT_TRUE(arresto == 0 || arresto == 52) << arresto;
                } else if (operazione == "CambiaDirectory" || operazione == "Cancella" ||
                           operazione == "Chiudi") { // on after it, and nothing is missing
                    EXPECT_EQ(arresto, 0);
                    EXPECT_TRUE(dopo == fatti);
                } else if (operazione == "Copia") {
                    EXPECT_EQ(arresto, 0);
                    for (const auto& [quale, bytes] : fatti)
                        EXPECT_TRUE(quale == percorso || dopo.at(quale) == bytes) << quale;
                    EXPECT_TRUE(!dopo.contains(percorso) || dopo.at(percorso) == "vecchio");
                } else { // on after it with closed channels: 52 at the next use of one
                    EXPECT_EQ(arresto, 52);
                }
            }
            if (testing::Test::HasFailure()) return;
        }
    }
}

TEST(Guasti, OgniChiamataDelRiordino) { OgniChiamataConOgniNumero(Motori[0]); }
TEST(Guasti, OgniChiamataDellaStruttura) { OgniChiamataConOgniNumero(Motori[1]); }

TEST(Guasti, PerSempre) { // a 76 that no repair helps ends by itself, wherever it comes from
    const std::pair<const char*, const char*> casi[] = {
        {"ApriLettura", "/a.bas"}, {"Leggi", "/a.bas"}, {"ApriScrittura", ".txt"}, {"Adesso", ""},
        {"Cancella", "/a.txt"},    {"Copia", "/a.bas"}, {"Copia", "/c.frx"},       {"CambiaDirectory", "/p"},
        {"ApriLettura", "/c.frm"}, {"Leggi", "/c.frm"},
    };
    for (const auto& [operazione, fine] : casi)
        for (const int numero : Numeri) {
            SCOPED_TRACE(testing::Message() << operazione << " " << fine << " " << numero);
            Corsa corsa(Progetto::Rifatto);
            corsa.Disco.Fallisci(operazione, fine, numero);
            corsa.Esegui({"mnuRiordina_Click", mnuRiordina_Click});
            if (numero != 55) {
                EXPECT_EQ(corsa.B.Arresto(), numero);
            }
        }
}

TEST(Guasti, EsamiEdElenchi) { // what cannot be asked of the disk raises nothing out of an engine
    for (const Motore& motore : Motori)
        for (const Progetto progetto : {Progetto::Nuovo, Progetto::Rifatto}) {
            Corsa intera(progetto);
            const int primoEsame = intera.Disco.Esami, primoElenco = intera.Disco.Elenchi;
            intera.Esegui(motore);
            for (const int numero : {57, 75, 76}) {
                for (int k = primoEsame + 1; k <= intera.Disco.Esami; ++k) {
                    SCOPED_TRACE(testing::Message() << motore.Nome << " Esamina " << k << " " << numero);
                    Corsa corsa(progetto);
                    corsa.Disco.FallisceEsame = k;
                    corsa.Disco.Numero = numero;
                    corsa.Esegui(motore);
                }
                for (int k = primoElenco + 1; k <= intera.Disco.Elenchi; ++k) {
                    SCOPED_TRACE(testing::Message() << motore.Nome << " Elenca " << k << " " << numero);
                    Corsa corsa(progetto);
                    corsa.Disco.FallisceElenco = k;
                    corsa.Disco.Numero = numero;
                    corsa.Esegui(motore);
                }
            }
            if (HasFailure()) return;
        }
}

TEST(Guasti, DiscoPieno) { // wherever the space ends: 61, and the incomplete text is reported
    Corsa intera(Progetto::Nuovo);
    intera.Esegui(Motori[0]);
    std::size_t bytes = 0;
    for (const auto& [percorso, contenuto] : intera.Disco.TuttiIFile())
        if (percorso.starts_with("/p/Appoggio/")) bytes += contenuto.size();
    for (std::size_t spazio = bytes % 11; spazio <= bytes; spazio += 11) { // the last has room for all
        Corsa corsa(Progetto::Nuovo);
        corsa.Disco.SpazioLibero = spazio;
        corsa.Esegui(Motori[0]);
        EXPECT_EQ(corsa.B.Arresto(), spazio < bytes ? 61 : 0) << spazio;
    }
}

} // namespace

} // namespace morvella
