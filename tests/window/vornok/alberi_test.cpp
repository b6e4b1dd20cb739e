// SPDX-License-Identifier: MIT
//
// Whole runs by mouse on the machine's own disk. The window writes, byte for byte, what the command
// line writes and what the cases of tests/casi expect. Cases with options that the window lacks are
// left to the command line.
#include <QClipboard>
#include <QTemporaryDir>
#include <set>
#include <sstream>

#include "cli/programma.h"
#include "sostegno/alberi.h"
#include "sostegno/disco_orologio.h"
#include "window/vornok/banco.h"

using namespace morvella;
using namespace morvella::prove;
namespace fs = std::filesystem;

namespace {

std::string LeggiFile(const fs::path& file) {
    const Albero albero = LeggiAlbero(file.parent_path());
    return albero.at(file.filename().string());
}

// A case's options as actions in the window.
struct Mossa {
    std::string Comando = "riordina";
    bool TogliCommenti = false;
    bool Intestazione = false;
    std::string Testo; // UTF-8, or what the file has
    QStringList Righe; // to select; all when empty
    bool Esprimibile = true;
};

Mossa LeggiMossa(const fs::path& caso) {
    Mossa m;
    bool prima = true;
    for (const std::string& opzione : morvella::prove::Righe(caso / "opzioni")) {
        if (prima && opzione.front() != '-') {
            m.Comando = opzione;
        } else if (opzione == "-t" || opzione == "--togli-commenti") {
            m.TogliCommenti = true;
        } else if (opzione == "-i" || opzione == "--intestazione-procedure") {
            m.Intestazione = true;
        } else if (opzione.starts_with("--testo-intestazione=")) {
            m.Testo = LeggiFile(caso / opzione.substr(opzione.find('=') + 1));
        } else if (opzione.front() != '-') {
            m.Righe << QString::fromStdString(opzione);
        } else if (opzione != "--si" && opzione != "--senza-processi") {
            m.Esprimibile = false; // these two answer boxes
        }
        prima = false;
    }
    return m;
}

// A user of the window: ticks, clicks and answers.
class Persona {
  public:
    Persona(Disco& disco, const fs::path& programma, const fs::path& progetto)
        : W(disco, programma.string(), progetto.parent_path().string()), progetto_(progetto) {
        Ricomincia();
        W.show();
        QApplication::setActiveWindow(&W);
        QCoreApplication::processEvents();
    }

    void Opzioni(const Mossa& m) {
        auto* linguette = C<QTabBar>("SSTab1.Linguette");
        QTest::mouseClick(linguette, Qt::LeftButton, {}, linguette->tabRect(1).center());
        if (m.TogliCommenti) Spunta("TogliCommenti");
        if (m.Intestazione) {
            Spunta("Check1");
            auto* testo = C<QPlainTextEdit>("Text1");
            QTest::keySequence(testo, QKeySequence::SelectAll);
            QTest::keyClick(testo, Qt::Key_Delete);
            QApplication::clipboard()->setText(MostraNome(m.Testo));
            QTest::keySequence(testo, QKeySequence::Paste);
        }
        QTest::mouseClick(linguette, Qt::LeftButton, {}, linguette->tabRect(0).center());
    }
    void Scegli(const char* risposta) {
        auto* lista = C<QListWidget>("File1Leggi");
        const auto dove =
            lista->findItems(QString::fromStdString(progetto_.filename().string()), Qt::MatchExactly);
        QCOMPARE(dove.size(), 1);
        Risponditore r({risposta});
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                          lista->visualItemRect(dove.front()).center());
        QVERIFY(r.Esaurito());
    }
    // Ctrl and click on each row with the name, in any case.
    void Righe(const QStringList& righe) {
        if (righe.isEmpty()) return;
        C<QAction>("mnuSeleziona")->trigger();
        auto* lista = C<QListView>("File1");
        for (int i = 0; i < lista->model()->rowCount(); ++i) {
            const QModelIndex riga = lista->model()->index(i, 0);
            if (!righe.contains(riga.data().toString(), Qt::CaseInsensitive)) continue;
            lista->scrollTo(riga);
            QTest::mouseClick(lista->viewport(), Qt::LeftButton, Qt::ControlModifier,
                              lista->visualRect(riga).center());
        }
    }
    void Esegui(const Mossa& m) {
        Opzioni(m);
        Scegli(m.Comando == "esegui" ? "Sì" : "No");
        if (m.Comando == "esegui") return;
        Righe(m.Righe);
        if (m.Comando == "documenta") {
            Risponditore r({"No"}); // Esc closes the box of an error, which counts as well
            C<QAction>("mnuHTML")->trigger();
        } else {
            C<QAction>(m.Comando == "struttura" ? "mnuvorn" : "mnuRiordina")->trigger();
        }
    }

    Forma W;

  private:
    template <class T>
    T* C(const char* nome) {
        T* trovato = W.findChild<T*>(nome);
        if (!trovato) qFatal("no control %s", nome);
        return trovato;
    }
    void Spunta(const char* nome) {
        auto* casella = C<QCheckBox>(nome);
        QTest::mouseClick(casella, Qt::LeftButton, {}, QPoint(6, casella->height() / 2));
        QVERIFY(casella->isChecked());
    }

    fs::path progetto_;
};

int SenzaFinestra(Disco& disco, const fs::path& programma, std::vector<std::string> argomenti) {
    std::istringstream ingresso;
    std::ostringstream uscita;
    std::ostringstream errori;
    cli::Ambiente ambiente{.Macchina = disco, .Ingresso = ingresso, .Uscita = uscita, .Errori = errori};
    ambiente.DirectoryProgramma = programma.string();
    return cli::Programma(argomenti, ambiente);
}

void Uguali(const Albero& atteso, const Albero& avuto) {
    const std::vector<std::string> diverse = Differenze(atteso, avuto);
    for (const std::string& diversa : diverse) qWarning("%s", diversa.c_str());
    QVERIFY(diverse.empty());
}

} // namespace

class AlberiTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() { fs::current_path(fs::temp_directory_path()); }
    void casi_data();
    void casi();
    void quantiCasi();
    void magazzino();
    void magazzinoConHtml();
};

void AlberiTest::casi_data() {
    QTest::addColumn<QString>("caso");
    for (const fs::path& caso : Casi(MORVELLA_CASI))
        if (LeggiMossa(caso).Esprimibile) {
            const std::string nome = (caso.parent_path().filename() / caso.filename()).string();
            QTest::newRow(nome.c_str()) << QString::fromStdString(nome);
        }
}

void AlberiTest::casi() {
    QFETCH(QString, caso);
    const fs::path da = fs::path(MORVELLA_CASI) / caso.toStdString();
    const fs::path qui = fs::path(MORVELLA_CASI_USCITA) / caso.toStdString();
    const fs::path progetto = PreparaCaso(da, qui, MORVELLA_RADICE);
    DiscoOrologio disco;
    Persona persona(disco, qui, progetto);
    persona.Esegui(LeggiMossa(da));
    Albero scritto = LeggiAlbero(progetto.parent_path() / "Appoggio");
    SenzaLuogo(scritto, qui);
    Uguali(AttesoDiCaso(da, MORVELLA_RADICE), scritto);
}

// Only cases with an option that the window lacks are left out.
void AlberiTest::quantiCasi() {
    std::set<std::string> fuori;
    int esprimibili = 0;
    for (const fs::path& caso : Casi(MORVELLA_CASI)) {
        if (LeggiMossa(caso).Esprimibile) {
            ++esprimibili;
            continue;
        }
        for (const std::string& opzione : Righe(caso / "opzioni"))
            if (opzione.front() == '-') fuori.insert(opzione.substr(0, opzione.find('=')));
    }
    for (const char* nota :
         {"-k", "--prosegui", "--lf", "--controlla", "--sottocartelle", "-i", "-t",
          "--intestazione-procedure", "--testo-intestazione", "--togli-commenti", "--si", "--senza-processi"})
        fuori.erase(nota);
    QCOMPARE(fuori, std::set<std::string>());
    QVERIFY2(esprimibili >= 90, qPrintable(QString::number(esprimibili)));
}

void AlberiTest::magazzino() {
    const fs::path esempio = fs::path(MORVELLA_RADICE) / "examples" / "Magazzino";
    QTemporaryDir temporanea;
    const fs::path qui = fs::path(temporanea.path().toStdString());
    const auto prepara = [&] {
        fs::remove_all(qui / "progetto");
        fs::copy(esempio, qui / "progetto", fs::copy_options::recursive);
    };
    DiscoOrologio disco;
    prepara();
    QCOMPARE(SenzaFinestra(disco, qui, {"esegui", (qui / "progetto/Magazzino.vbp").string(), "--si"}), 0);
    const Albero senza = LeggiAlbero(qui / "progetto");
    QVERIFY(senza.size() > 20);

    prepara();
    fs::remove(qui / "Default.ini");
    Persona persona(disco, qui, qui / "progetto/Magazzino.vbp");
    persona.Scegli("Sì");
    Uguali(senza, LeggiAlbero(qui / "progetto"));
    // Once more over its own output.
    persona.Scegli("Sì");
    Uguali(senza, LeggiAlbero(qui / "progetto"));
}

void AlberiTest::magazzinoConHtml() {
    const fs::path esempio = fs::path(MORVELLA_RADICE) / "examples" / "Magazzino";
    QTemporaryDir temporanea;
    const fs::path qui = fs::path(temporanea.path().toStdString());
    for (const char* figura : Figure) fs::copy(fs::path(MORVELLA_RADICE) / "assets" / figura, qui / figura);
    const auto prepara = [&] {
        fs::remove_all(qui / "progetto");
        fs::copy(esempio, qui / "progetto", fs::copy_options::recursive);
    };
    DiscoOrologio disco;
    prepara();
    const std::string progetto = (qui / "progetto/Magazzino.vbp").string();
    QCOMPARE(SenzaFinestra(disco, qui, {"documenta", progetto, "--senza-processi"}), 0);
    const Albero senza = LeggiAlbero(qui / "progetto");

    prepara();
    Persona persona(disco, qui, progetto);
    Mossa m;
    m.Comando = "documenta";
    persona.Esegui(m);
    Uguali(senza, LeggiAlbero(qui / "progetto"));
}

QTEST_MAIN(AlberiTest)
#include "alberi_test.moc"
