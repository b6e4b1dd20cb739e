// SPDX-License-Identifier: MIT
//
// Finding a text, going to a number, an error, a procedure; the list of procedures.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include "window/lettore/banco_finestra.h"

namespace morvella::lettore {

using namespace provefinestra;

class ProvaRicerca : public QObject {
    Q_OBJECT

    Cartella cartella_;
    QString Esempio(const char* nome = "Modulo.log") {
        return cartella_.Scrivi(nome, Unite(provefinestra::Esempio()));
    }

  private slots:
    void initTestCase() { ParlaItaliano(*qApp); }
    void Trova();
    void TrovaDaSelezione();
    void AlNumero();
    void Errori();
    void SenzaErrori();
    void Procedure();
    void ProcedureConITasti();
};

void ProvaRicerca::Trova() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    auto* barra = Figlio<QWidget>(f, "barraTrova");
    auto* esito = Figlio<QLabel>(f, "esito");
    QVERIFY(!barra->isVisible());
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(barra->isVisible());
    QCOMPARE(f->focusWidget(), Figlio<QLineEdit>(f, "daTrovare"));
    Scrivi(f, "p"); // found as it is typed
    QCOMPARE(Scelto(f), QString("P"));
    Scrivi(f, "erché");
    QCOMPARE(Scelto(f), QString("Perché"));
    AL_POSTO(v, 10, 33);
    QCOMPARE(esito->text(), QString());
    Premi(f, Qt::Key_Return);
    QCOMPARE(Scelto(f), QString("PERCHÉ"));
    AL_POSTO(v, 23, 22);
    Premi(f, Qt::Key_F3); // wraps around and says so
    AL_POSTO(v, 10, 33);
    QCOMPARE(esito->text(), QString("Ricominciato dall'inizio."));
    Premi(f, Qt::Key_F3, Qt::ShiftModifier);
    AL_POSTO(v, 23, 22);
    QCOMPARE(esito->text(), QString("Ricominciato dalla fine."));
    Premi(f, Qt::Key_Return, Qt::ShiftModifier);
    AL_POSTO(v, 10, 33);
    QCOMPARE(esito->text(), QString());
    // No match: says so, and the selection stays.
    Scrivi(f, "!");
    QCOMPARE(esito->text(), QString("«perché!» non trovato."));
    AL_POSTO(v, 10, 33);
    Premi(f, Qt::Key_Escape);
    QVERIFY(!barra->isVisible());
    QVERIFY(v->hasFocus());
    Premi(f, Qt::Key_F3); // in the status bar when the find bar is closed
    QCOMPARE(Detto(f), QString("«perché!» non trovato."));
    // By the buttons, and for drawn characters.
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    Scrivi(f, "─>");
    AL_POSTO(v, 11, 20); // from the caret in line 10
    for (QPushButton* bottone : barra->findChildren<QPushButton*>())
        if (bottone->text() == "P&recedente") bottone->click();
    AL_POSTO(v, 9, 20);
    for (QPushButton* bottone : barra->findChildren<QPushButton*>())
        if (bottone->text() == "C&hiudi") bottone->click();
    QVERIFY(!barra->isVisible());
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    v->setFocus();
    Premi(f, Qt::Key_Escape); // from the listing as well
    QVERIFY(!barra->isVisible());
}

void ProvaRicerca::TrovaDaSelezione() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    Premi(f, Qt::Key_F3); // nothing to find yet: opens the bar
    QVERIFY(Figlio<QWidget>(f, "barraTrova")->isVisible());
    Premi(f, Qt::Key_Escape);
    f->LaVista()->Scegli({12, 17}, {12, 23});
    Premi(f, Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(Figlio<QLineEdit>(f, "daTrovare")->text(), QString("Next i"));
    // Decomposed letters are the same letters.
    auto* testo = Figlio<QLineEdit>(f, "daTrovare");
    testo->setText(QString("Perche") + QChar(0x301));
    Premi(f, Qt::Key_Return);
    QCOMPARE(Scelto(f), QString("PERCHÉ"));
}

void ProvaRicerca::AlNumero() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    auto* barra = Figlio<QWidget>(f, "barraNumero");
    auto* esito = Figlio<QLabel>(f, "esitoNumero");
    Premi(f, Qt::Key_G, Qt::ControlModifier);
    QVERIFY(barra->isVisible());
    Scrivi(f, "1x5"); // takes digits only
    Premi(f, Qt::Key_Return);
    QVERIFY(!barra->isVisible()); // found: closes
    QCOMPARE(Scelto(f), QString("000015        ┌─>If a Then b = 1"));
    QVERIFY(f->LaVista()->hasFocus());
    const std::pair<const char*, const char*> casi[] = {
        {"1", "Il numero 1 non c'è: il seguente è 3."},
        {"99", "L'ultimo numero è 20."},
        {"1000000", "Oltre 999999 le righe non hanno numero."},
    };
    for (const auto& [numero, detto] : casi) {
        Premi(f, Qt::Key_G, Qt::ControlModifier);
        Scrivi(f, numero);
        Premi(f, Qt::Key_Return);
        QVERIFY(barra->isVisible());
        QCOMPARE(esito->text(), QString(detto));
    }
    QCOMPARE(Scelto(f), QString("000020           End Sub"));
    Premi(f, Qt::Key_F, Qt::ControlModifier); // one bar at a time
    QVERIFY(!barra->isVisible());

    FinestraLettore* testo = b.Apri(cartella_.Scrivi("testo.txt", "ciao\r\n"));
    QVERIFY(testo);
    Premi(testo, Qt::Key_G, Qt::ControlModifier);
    Scrivi(testo, "1");
    Premi(testo, Qt::Key_Return);
    QCOMPARE(Figlio<QLabel>(testo, "esitoNumero")->text(), QString("Questo file non ha righe numerate."));
    Premi(testo, Qt::Key_Escape);
    QVERIFY(testo->LaVista()->hasFocus());
}

void ProvaRicerca::Errori() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    Premi(f, Qt::Key_F8);
    AL_POSTO(v, 21, 0);
    QCOMPARE(Detto(f), QString("Errore 1 di 2."));
    Premi(f, Qt::Key_F8);
    AL_POSTO(v, 26, 0);
    QCOMPARE(Detto(f), QString("Errore 2 di 2."));
    Premi(f, Qt::Key_F8);
    AL_POSTO(v, 21, 0);
    QCOMPARE(Detto(f), QString("Ricominciato dall'inizio. Errore 1 di 2."));
    Premi(f, Qt::Key_F8, Qt::ShiftModifier);
    AL_POSTO(v, 26, 0);
    QCOMPARE(Detto(f), QString("Ricominciato dalla fine. Errore 2 di 2."));
    Premi(f, Qt::Key_F8, Qt::ShiftModifier);
    AL_POSTO(v, 21, 0);
    QCOMPARE(Detto(f), QString("Errore 1 di 2."));
}

void ProvaRicerca::SenzaErrori() {
    Banco b;
    FinestraLettore* f = b.Apri(cartella_.Scrivi("sana.log", "000001        x\r\n"));
    QVERIFY(f);
    for (const auto con : {Qt::NoModifier, Qt::ShiftModifier}) {
        Premi(f, Qt::Key_F8, con);
        QCOMPARE(Detto(f), QString("Nessun errore in questa struttura."));
    }
    QCOMPARE(Stato(f), QString("numero 1  ·  riga 1 di 1  ·  0 errori  ·  0 procedure  ·  100 %"));
}

void ProvaRicerca::Procedure() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    auto* elenco = Figlio<QTreeView>(f, "elenco");
    QVERIFY(elenco->isVisible());
    const QAbstractItemModel* m = elenco->model();
    QCOMPARE(m->rowCount(), 3);
    const auto testo = [&](int riga, int colonna, int ruolo = Qt::DisplayRole) {
        return m->index(riga, colonna).data(ruolo).toString();
    };
    QCOMPARE(testo(0, 0), QString("Prova"));
    QCOMPARE(testo(0, 1), QString());
    QCOMPARE(testo(1, 0), QString("Somma"));
    QCOMPARE(testo(1, 1), QString("aperta")); // in words, not only by colour
    QCOMPARE(testo(2, 0), QString("End Sub (testa senza riquadro)"));
    QCOMPARE(testo(1, 0, Qt::AccessibleTextRole), QString("Somma, lasciata aperta"));
    QCOMPARE(testo(0, 0, Qt::AccessibleTextRole), QString("Prova"));
    QCOMPARE(testo(1, 0, Qt::ToolTipRole),
             QString("Public Function Somma() As Long\nriga 14\nfinisce con blocchi aperti"));
    QVERIFY(!m->index(0, 0).data(Qt::ForegroundRole).isValid());
    const auto colore = m->index(1, 0).data(Qt::ForegroundRole).value<QColor>();
    QVERIFY(Contrasto(colore, elenco->palette().color(QPalette::Base)) >= 4.5);
    QVERIFY(Contrasto(elenco->palette().color(QPalette::HighlightedText),
                      elenco->palette().color(QPalette::Highlight)) >= 4.5);

    // The list follows the caret, and the caret follows a click.
    QVERIFY(!elenco->currentIndex().isValid());
    f->LaVista()->Vai({20, 0});
    QCOMPARE(elenco->currentIndex().row(), 1);
    QTest::mouseClick(elenco->viewport(), Qt::LeftButton, {}, elenco->visualRect(m->index(0, 0)).center());
    AL_POSTO(f->LaVista(), 2, 0);
    Premi(f, Qt::Key_F6);
    Premi(f, Qt::Key_F6);
    Premi(f, Qt::Key_F9);
    QVERIFY(!elenco->isVisible());
    Premi(f, Qt::Key_F9);
    QVERIFY(elenco->isVisible());
}

void ProvaRicerca::ProcedureConITasti() {
    Banco b;
    FinestraLettore* f = b.Apri(Esempio());
    QVERIFY(f);
    VistaStruttura* v = f->LaVista();
    auto* elenco = Figlio<QTreeView>(f, "elenco");
    Premi(f, Qt::Key_F6);
    QVERIFY(elenco->hasFocus());
    Premi(f, Qt::Key_End);
    AL_POSTO(v, 26, 0);
    Scrivi(f, "so"); // type-ahead
    AL_POSTO(v, 17, 0);
    Premi(f, Qt::Key_Return);
    QVERIFY(v->hasFocus());
    AL_POSTO(v, 17, 0);
    Premi(f, Qt::Key_F6);
    Premi(f, Qt::Key_Escape);
    QVERIFY(v->hasFocus());

    Premi(f, Qt::Key_PageDown, Qt::ControlModifier);
    AL_POSTO(v, 26, 0);
    Premi(f, Qt::Key_PageDown, Qt::ControlModifier);
    AL_POSTO(v, 26, 0);
    QCOMPARE(Detto(f), QString("Nessuna procedura più avanti."));
    v->Vai({20, 0});
    Premi(f, Qt::Key_PageUp, Qt::ControlModifier); // first to this one's head
    AL_POSTO(v, 17, 0);
    Premi(f, Qt::Key_PageUp, Qt::ControlModifier);
    AL_POSTO(v, 2, 0);
    Premi(f, Qt::Key_PageUp, Qt::ControlModifier);
    AL_POSTO(v, 2, 0);
    QCOMPARE(Detto(f), QString("Nessuna procedura più indietro."));
}

} // namespace morvella::lettore

QTEST_MAIN(morvella::lettore::ProvaRicerca)
#include "ricerca_test.moc"
