// SPDX-License-Identifier: MIT
// window/vornok/vornok.h
//
// The form: the window's home of the program. Every event is one named operation over the
// state; behind it the controls are brought to what the state says. What an operation needs of
// the window while it runs (boxes, bars, the status line) it gets through Finestra.
//
// A run is one event: nothing yields in it, and the window takes no input. What changes
// meanwhile is painted at once, but no more often than an eye can follow: painting each step
// would cost more than the run.
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
    /// Platform paths: App.Path and the directory to start in. Controls have their states of the
    /// design; no event has happened yet.
    VornOK(Disco& disco, const std::string& programma, const std::string& directory);
    ~VornOK() override;

    /// Moves to a directory, or to that of a project file, which is then chosen, as by a click.
    /// A path that leads to neither is said in a box.
    void Apri(const std::string& percorso);

    /// Whether the program is to end, and with which status.
    bool Finita() const { return finita_; }
    int Codice() const { return codice_; }

    Stato& S() { return s_; }
    Pannello& Help() { return help_; }
    /// Times that the controls were painted in the middle of an operation.
    int Ridisegni() const { return ridisegni_; }

    // Finestra
    int MsgBox(Vista testo, int flag, Vista titolo) override;
    void Beep() override;
    void Avvia(Vista comando, int finestra) override;
    void RidisegnaLabel2() override { Ridisegna(true); }
    void RidisegnaBarra(const Barra&) override { Ridisegna(false); }
    void AggiornaDir1() override;
    void PortaFuocoSuText1() override;
    void MotoreFermato(const Arresto&) override {} // the window is silent
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
    void FaiMenu();
    void FaiControlli();
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
    std::chrono::steady_clock::time_point dipinto_{};
    std::chrono::steady_clock::time_point iniziato_{}; // the operation
    std::chrono::steady_clock::duration speso_{};      // on painting in it
    int ridisegni_ = 0;
    int annidati_ = 0;
    bool mostrata_ = false;
    bool finita_ = false;
    int codice_ = 0;
};

} // namespace morvella
