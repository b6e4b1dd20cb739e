// SPDX-License-Identifier: MIT
//
// The form over its real widgets: mouse, keys and boxes as a user has them. The disk is the
// tests' own, but for the whole run.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <deque>

#include "sostegno/disco_finto.h"
#include "window/controlli.h"
#include "window/elenchi.h"
#include "window/pannello_qt.h"
#include "window/testo_qt.h"
#include "window/vornok.h"

using namespace morvella;
using morvella::prove::DiscoFinto;

namespace {

// A box that came up, and what it said.
struct Box {
    QString Titolo, Testo;
    QMessageBox::Icon Icona;
    QStringList Bottoni;
};

// Answers boxes as they come: with the button of this text, in turn.
class Risponditore : public QObject {
  public:
    explicit Risponditore(std::deque<QString> risposte) : risposte_(std::move(risposte)) {
        connect(&timer_, &QTimer::timeout, this, &Risponditore::Guarda);
        timer_.start(1);
    }
    std::vector<Box> Viste;
    std::function<void()> Davanti; // looks at the window while a box is up

  private:
    void Guarda() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || box == ultimo_) return;
        Box vista{box->windowTitle(), box->text(), box->icon(), {}};
        const QString risposta = risposte_.empty() ? QString("OK") : risposte_.front();
        if (!risposte_.empty()) risposte_.pop_front();
        QAbstractButton* premi = nullptr;
        for (QAbstractButton* bottone : box->buttons()) {
            const QString nome = bottone->text().remove('&');
            vista.Bottoni << nome;
            if (nome == risposta) premi = bottone;
        }
        Viste.push_back(vista);
        if (Davanti) Davanti();
        if (premi)
            premi->click();
        else
            box->reject();
    }
    std::deque<QString> risposte_;
    QTimer timer_;
    QMessageBox* ultimo_ = nullptr;
};

QString SenzaMnemonico(QString testo) { return testo.remove('&'); }

} // namespace

class FinestraTest : public QObject {
    Q_OBJECT

    // A window on a project of a form and a module, at the program's start.
    struct Banco {
        DiscoFinto Disco{"/p"};
        std::unique_ptr<VornOK> W;
        Banco() {
            Disco.Metti("/p/Uno.vbp", "Form=Form1.frm\r\nModule=M; m.bas\r\n");
            Disco.Metti("/p/Form1.frm", "VERSION 5.00\r\nSub a()\r\nEnd Sub\r\n");
            Disco.Metti("/p/m.bas",
                        "Attribute VB_Name = \"M\"\r\nSub b()\r\nIf x Then\r\ny\r\nEnd If\r\nEnd Sub\r\n");
            Disco.FaiDirectory("/prog");
        }
        VornOK& Apri() {
            W = std::make_unique<VornOK>(Disco, "/prog", "/p");
            W->show();
            QApplication::setActiveWindow(W.get());
            return *W;
        }
        template <class T>
        T* C(const char* nome) {
            T* trovato = W->findChild<T*>(nome);
            if (!trovato) qFatal("no control %s", nome);
            return trovato;
        }
        QAction* Voce(const char* nome) { return C<QAction>(nome); }
        QListWidget* Progetti() { return C<QListWidget>("File1Leggi"); }
        void Clicca(int riga) {
            auto* lista = Progetti();
            QTest::mouseClick(lista->viewport(), Qt::LeftButton, {},
                              lista->visualItemRect(lista->item(riga)).center());
        }
    };

  private slots:
    void inizio();
    void clicSulProgettoConSi();
    void clicSulProgettoConNo();
};

void FinestraTest::inizio() {
    Banco b;
    VornOK& w = b.Apri();
    QCOMPARE(w.windowTitle(), QString("Vorn!  Morvella il codice di Visual Basic  - vorn@morvella.example"));
    QVERIFY(b.Voce("mnuRiordina")->isEnabled());
    QVERIFY(!b.Voce("mnuvorn")->isEnabled());
    QVERIFY(b.Voce("mnuLettura")->isEnabled());
    QVERIFY(b.Voce("mnuHTML")->isEnabled());
    QCOMPARE(SenzaMnemonico(b.Voce("mnuSeleziona")->text()), QString("Seleziona tutto"));
    QCOMPARE(b.Progetti()->count(), 1);
    QCOMPARE(b.Disco.Leggi("/prog/Default.ini"), std::string("KO\r\nKO\r\n\r\nKO\r\n"));
}

void FinestraTest::clicSulProgettoConSi() {
    Banco b;
    b.Apri();
    Risponditore r({"Sì"});
    b.Clicca(0);
    QCOMPARE(r.Viste.size(), std::size_t(1));
    QCOMPARE(r.Viste[0].Titolo, QString("Identazione"));
    QCOMPARE(r.Viste[0].Testo,
             QString("Vuoi riordinare il Codice di tutti i form, moduli e classi presenti nel "
                     "progetto\nUno.vbp"));
    QCOMPARE(r.Viste[0].Bottoni, QStringList({"Sì", "No"}));
    QCOMPARE(r.Viste[0].Icona, QMessageBox::Information);
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.txt"));
    QVERIFY(b.Disco.Esiste("/p/Appoggio/m.log"));
    QCOMPARE(b.C<QListView>("File1")->selectionModel()->selectedRows().size(), 0); // the listing deselects
    QCOMPARE(SenzaMnemonico(b.Voce("mnuSeleziona")->text()), QString("DeSeleziona tutto"));
}

void FinestraTest::clicSulProgettoConNo() {
    Banco b;
    b.Apri();
    Risponditore r({"No"});
    b.Clicca(0);
    QCOMPARE(r.Viste.size(), std::size_t(1));
    QVERIFY(!b.Disco.Esiste("/p/Appoggio"));
    QCOMPARE(b.C<QListView>("File1")->selectionModel()->selectedRows().size(), 2);
    QVERIFY(b.Voce("mnuvorn")->isEnabled());
}

QTEST_MAIN(FinestraTest)
#include "finestra_test.moc"
