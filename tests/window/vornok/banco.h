// SPDX-License-Identifier: MIT
// tests/window/vornok/banco.h
//
// The form with its real widgets, on the tests' own disk and clock: mouse, keys and boxes as a
// user has them. The texts of project files have "\n" for CR LF here.
#pragma once

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>

#include "sostegno/disco_finto.h"
#include "window/testo_qt.h"
#include "window/vornok/elenchi.h"
#include "window/vornok/vornok.h"

namespace morvella::prove {

/// Milliseconds after which a test that waits for something gives up. Only a test that hangs
/// reaches it, however busy the machine is.
inline constexpr int Attesa = 60'000;

/// Every "\n" becomes CR LF.
inline std::string CrLf(const std::string& s) {
    std::string testo;
    for (const char c : s) testo += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return testo;
}

/// A caption without its mnemonic.
inline QString Nudo(QString testo) { return testo.remove('&'); }

/// Types a text, whatever characters it has; QTest's own keys are ASCII.
inline void Digita(QWidget* dove, const QString& testo) {
    for (const char32_t c : testo.toUcs4()) {
        QKeyEvent giu(QEvent::KeyPress, 0, Qt::NoModifier, QString::fromUcs4(&c, 1));
        QApplication::sendEvent(dove, &giu);
    }
}

/// A box that came up, and what it said.
struct Box {
    QString Titolo, Testo;
    QMessageBox::Icon Icona;
    QStringList Bottoni;
};

/// Answers the boxes that come up while it lives, in turn: with the button that has this text, or
/// with a key for "Esc" and "Invio". An unexpected box is answered with Esc and counted.
class Risponditore : public QObject {
  public:
    explicit Risponditore(std::deque<QString> risposte = {}) : risposte_(std::move(risposte)) {
        connect(&timer_, &QTimer::timeout, this, &Risponditore::Guarda);
        timer_.start(1);
    }
    std::vector<Box> Viste;
    /// Called while a box is up, with its number from 0.
    std::function<void(std::size_t)> Davanti;
    /// Whether each answer was used and no other box came.
    bool Esaurito() const { return risposte_.empty() && impreviste_ == 0; }

  private:
    void Guarda() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || box->property("vista").toBool()) return;
        box->setProperty("vista", true);
        QString risposta = "Esc";
        if (risposte_.empty()) {
            ++impreviste_;
        } else {
            risposta = risposte_.front();
            risposte_.pop_front();
        }
        Box vista{box->windowTitle(), box->text(), box->icon(), {}};
        QAbstractButton* premi = nullptr;
        for (QAbstractButton* bottone : box->buttons()) {
            vista.Bottoni << Nudo(bottone->text());
            if (Nudo(bottone->text()) == risposta) premi = bottone;
        }
        Viste.push_back(vista);
        if (Davanti) Davanti(Viste.size() - 1);
        if (premi) {
            QTest::mouseClick(premi, Qt::LeftButton);
            return;
        }
        if (risposta != "Esc" && risposta != "Invio") ++impreviste_;
        QTest::keyClick(box, risposta == "Invio" ? Qt::Key_Return : Qt::Key_Escape);
    }
    std::deque<QString> risposte_;
    int impreviste_ = 0;
    QTimer timer_;
};

/// Starts as a new program does. The last one's exit came outside of an event loop, so it would
/// end the loop of every box from then on.
inline void Ricomincia() {
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
}

/// The form, with a bell that can be counted.
class Forma : public VornOK {
  public:
    using VornOK::VornOK;
    void Beep() override { ++Beeps; }
    int Beeps = 0;
};

/// A window on /p, which holds a project of a form and a module; the program lies in /prog.
struct Banco {
    DiscoFinto Disco{"/p"};
    /// The form's clock, and what it moves on by each time the form looks at it.
    std::chrono::steady_clock::time_point Ora{std::chrono::hours(1)};
    std::chrono::milliseconds Passo{0};
    std::unique_ptr<Forma> W;

    Banco() {
        Disco.Metti("/p/Uno.vbp", "Form=Form1.frm\r\nModule=M; m.bas\r\n");
        Disco.Metti("/p/Form1.frm",
                    CrLf("VERSION 5.00\nBegin VB.Form Form1\nEnd\nAttribute VB_Name = \"Form1\"\n"
                         "Attribute VB_GlobalNameSpace = False\nAttribute VB_Creatable = False\n"
                         "Attribute VB_PredeclaredId = True\nAttribute VB_Exposed = False\n"
                         "Sub a()\nEnd Sub\n"));
        Disco.Metti("/p/m.bas", CrLf("Attribute VB_Name = \"M\"\nSub b()\nIf x Then\ny\nEnd If\nEnd Sub\n"));
        Disco.FaiDirectory("/prog");
    }
    Forma& Apri(const std::string& directory = "/p") {
        Ricomincia();
        W = std::make_unique<Forma>(Disco, "/prog", directory, [this] { return Ora += Passo; });
        W->show();
        Attiva();
        return *W;
    }
    /// Brings the form to the front, as a window manager does when a box has closed. Late events of
    /// other windows take it away again, so it is tried until it lasts.
    void Attiva() {
        for (QDeadlineTimer fine(Attesa); !W->Finita() && !fine.hasExpired();) {
            QCoreApplication::processEvents();
            if (QApplication::activeWindow() == W.get() && QApplication::focusWidget()) return;
            QApplication::setActiveWindow(W.get());
        }
    }

    template <class T = QWidget>
    T* C(const char* nome) {
        T* trovato = W->findChild<T*>(nome);
        if (!trovato) qFatal("no control %s", nome);
        return trovato;
    }
    QAction* Voce(const char* nome) { return C<QAction>(nome); }
    void Comando(const char* nome) { Voce(nome)->trigger(); }
    QListWidget* File1Leggi() { return C<QListWidget>("File1Leggi"); }
    QListWidget* Dir1() { return C<QListWidget>("Dir1"); }
    QListView* File1() { return C<QListView>("File1"); }
    QComboBox* Drive1() { return C<QComboBox>("Drive1"); }
    QTabBar* Linguette() { return C<QTabBar>("SSTab1.Linguette"); }
    QCheckBox* Casella(const char* nome) { return C<QCheckBox>(nome); }
    QPlainTextEdit* Text1() { return C<QPlainTextEdit>("Text1"); }
    QString Didascalia(const char* nome) { return Nudo(Voce(nome)->text()); }

    /// Enabled or not: mnuRiordina, mnuvorn, mnuLettura, mnuHTML.
    std::string Menu() {
        std::string stati;
        for (const char* voce : {"mnuRiordina", "mnuvorn", "mnuLettura", "mnuHTML"})
            stati += Voce(voce)->isEnabled() ? '1' : '0';
        return stati;
    }

    void Scheda(int quale) {
        QTest::mouseClick(Linguette(), Qt::LeftButton, {}, Linguette()->tabRect(quale).center());
    }
    void Clicca(QAbstractItemView* lista, int riga, Qt::KeyboardModifiers con = {}) {
        const QRect dove = lista->visualRect(lista->model()->index(riga, 0));
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, con, dove.center());
    }
    void CliccaProgetto(int riga) { Clicca(File1Leggi(), riga); }
    void DoppioClic(QAbstractItemView* lista, int riga) {
        const QPoint dove = lista->visualRect(lista->model()->index(riga, 0)).center();
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, dove);
        QTest::mouseDClick(lista->viewport(), Qt::LeftButton, {}, dove);
    }
    /// Chooses the first project and answers its question with No.
    void ScegliSenzaCorsa() {
        Risponditore r({"No"});
        CliccaProgetto(0);
        QVERIFY(r.Esaurito());
        Attiva();
    }

    QStringList Righe(QAbstractItemView* lista) {
        QStringList righe;
        for (int i = 0; i < lista->model()->rowCount(); ++i)
            righe << lista->model()->index(i, 0).data().toString();
        return righe;
    }
    /// The selected rows of File1, ascending. A -1 at the end says that the view and the state
    /// differ.
    std::vector<int> Selezionate() {
        std::vector<int> vista, stato;
        for (const QModelIndex& dove : File1()->selectionModel()->selectedIndexes())
            vista.push_back(dove.row());
        std::sort(vista.begin(), vista.end());
        for (Lungo i = 0; i < W->S().File1.ListCount(); ++i)
            if (W->S().File1.Selected(i)) stato.push_back(static_cast<int>(i));
        if (vista != stato) vista.push_back(-1);
        return vista;
    }
    std::string Ini() { return Disco.Leggi("/prog/Default.ini"); }
};

/// Puts the pictures of the pages beside the program.
inline void MettiFigure(Banco& b) {
    for (const char* figura : {"p2.gif", "dario.gif", "BLULETHR.GIF", "home.GIF"})
        b.Disco.Metti(std::string("/prog/") + figura, "figura");
}

/// A control's rectangle in another one's coordinates.
inline QRect In(const QWidget* controllo, const QWidget* altro) {
    return {controllo->mapTo(altro, QPoint()), controllo->size()};
}

} // namespace morvella::prove
