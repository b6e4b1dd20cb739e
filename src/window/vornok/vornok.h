// SPDX-License-Identifier: MIT
// window/vornok/vornok.h
//
// The form, the program's front end with a window. Every event is one named operation on the
// state, after which the controls are brought to what the state says. While it runs, an operation
// reaches the window (boxes, bars, the status line) through Finestra.
//
// A run is one event: nothing yields in it, and the window takes no input. What changes meanwhile
// is painted at once, but no more often than an eye can follow: painting each step would cost more
// than the run.
//
// The class is written in three files: costruzione.cpp builds the form, vornok.cpp has the events,
// mostra.cpp shows the state.
#pragma once

#include <QMainWindow>
#include <chrono>
#include <functional>

#include "shell/state.h"
#include "text/disco/unita.h"
#include "window/vornok/pannello.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QTabBar;
class QTimer;

namespace morvella {

class CasellaTesto;
class ElencoDirectory;
class ElencoFile1;
class ElencoProgetti;
class PannelloHelp;

class VornOK : public QMainWindow, public Finestra {
    Q_OBJECT
  public:
    /// Tells the time that the limit on repainting goes by.
    using Orologio = std::function<std::chrono::steady_clock::time_point()>;

    /// `programma` and `directory` are platform paths: App.Path and the directory to start in. The
    /// controls have their design-time states; no event has happened yet.
    VornOK(Disco& disco, const std::string& programma, const std::string& directory,
           Orologio orologio = std::chrono::steady_clock::now);
    ~VornOK() override;

    /// Moves to a directory; or to that of a project file, which is then chosen as by a click. For
    /// any other path a box says so. `percorso` is a platform path.
    void Apri(const std::string& percorso);

    /// Whether the program is to end.
    bool Finita() const { return finita_; }
    /// The exit status, once Finita.
    int Codice() const { return codice_; }

    Stato& S() { return s_; }
    Pannello& Help() { return help_; }
    /// How often the controls have been painted in the middle of an operation.
    int Ridisegni() const { return ridisegni_; }

    // Finestra
    int MsgBox(Vista testo, int flag, Vista titolo) override;
    void Beep() override;
    void Avvia(Vista comando, int finestra) override;
    void RidisegnaLabel2() override { Ridisegna(true); }
    void RidisegnaBarra(const Barra&) override { Ridisegna(false); }
    void AggiornaDir1() override;
    void PortaFuocoSuText1() override;
    void MotoreFermato(const Arresto&) override {} // the window says nothing
    void ErroreSaltato(const Errore&) override {}
    void FileScritto(Lungo, Vista, Lungo) override {}
    bool SegueMargine() const override { return false; }
    void MargineMosso(const PassoMargine&) override {}

  protected:
    bool event(QEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;
    void closeEvent(QCloseEvent* evento) override;
    void showEvent(QShowEvent* evento) override;
    void dragEnterEvent(QDragEnterEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;

  private:
    void FaiForma();
    void FaiMenu();
    void FaiControlli();
    void FaiLinguette(QWidget* superficie);
    void FaiNascosti(QWidget* superficie);
    void FaiSchedaProgetto(QWidget* scheda);
    void FaiSchedaDefault(QWidget* scheda);
    void Collega();
    void MettiOrdine();

    void Evento(const std::function<void()>& operazione);
    void EventoHelp(const std::function<void()>& operazione);
    void ErroreFinale(const Errore& causa);
    void Termina(int codice);
    void Aggiorna();
    void AggiornaMenu();
    void AggiornaBarre();
    void AggiornaUnita();
    void Ridisegna(bool nome);
    void RileggiDisco();
    bool MuoviDir1(const std::string& percorso);

    Disco& disco_;
    Stato s_;
    Pannello help_;

    QAction* mnuSeleziona_;
    QAction* mnuRiordina_;
    QAction* mnuvorn_;
    QAction* mnuLettura_;
    QAction* mnuHTML_;
    QAction* MnuHelp_;
    QAction* mnuend_;
    QAction* MnuHelpHtml_;

    QTabBar* linguette_;
    QComboBox* Drive1_;
    ElencoDirectory* Dir1_;
    ElencoProgetti* File1Leggi_;
    ElencoFile1* File1_;
    QProgressBar* ProgressBar1_;
    QLabel* Label2_;
    QCheckBox* TogliCommenti_;
    QCheckBox* Check1_;
    CasellaTesto* Text1_;
    QCheckBox* Check2_;
    QPushButton* Command2_;
    QProgressBar* Progress_;
    QPushButton* Command1_;
    PannelloHelp* Frame1_;
    QTimer* Timer1_;

    std::vector<Unita> unita_;
    Orologio orologio_;
    std::chrono::steady_clock::time_point dipinto_{};  // when the controls were last painted
    std::chrono::steady_clock::time_point iniziato_{}; // when the operation began
    std::chrono::steady_clock::duration speso_{};      // on painting since then
    int ridisegni_ = 0;
    int annidati_ = 0;
    bool mostrata_ = false;
    bool finita_ = false;
    int codice_ = 0;
};

} // namespace morvella
