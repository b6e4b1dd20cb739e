// SPDX-License-Identifier: MIT
// window/lettore/finestra.h
//
// A window of the reader: a listing, the list of its procedures, a bar to find a text and one to
// go to a number. When the file changes on the disk it is read again, and the place is kept where
// it can be.
//
// The class is written in five files: finestra.cpp opens the file and watches it, menu.cpp makes
// the menu, ricerca.cpp the two bars, elenco.cpp the list of procedures, carta.cpp prints.
#pragma once

#include <functional>
#include <memory>

#include <QBasicTimer>
#include <QFileSystemWatcher>
#include <QMainWindow>

#include "window/lettore/procedure.h"
#include "window/lettore/vista.h"

class QLabel;
class QLineEdit;
class QTreeView;

namespace morvella::lettore {

class Lettore;

class FinestraLettore : public QMainWindow {
    Q_OBJECT

  public:
    explicit FinestraLettore(Lettore& lettore);
    ~FinestraLettore() override;

    /// Shows a file. On failure returns false with the reason, in Italian, in `perche`; the window
    /// stays as it was.
    bool Apri(const QString& file, QString& perche);
    QString File() const { return file_; }
    Struttura* LaStruttura() { return struttura_.get(); }
    VistaStruttura* LaVista() { return vista_; }

    /// Reads the file again.
    void Rileggi();
    /// Writes a PDF. On failure returns false with the reason in `perche`, "" when the user stopped
    /// it.
    bool ScriviPdf(const QString& dove, QString& perche);

  protected:
    void dragEnterEvent(QDragEnterEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void timerEvent(QTimerEvent* evento) override;
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

  private:
    QAction* Azione(QMenu* menu, const char* nome, const QString& testo, const QList<QKeySequence>& tasti,
                    std::function<void()> fai);
    QAction* SuStruttura(QMenu* menu, const char* nome, const QString& testo,
                         const QList<QKeySequence>& tasti, std::function<void()> fai);
    void FaiMenu();
    void FaiMenuFile(QMenu* menu);
    void FaiMenuModifica(QMenu* menu);
    void FaiMenuVai(QMenu* menu);
    void FaiMenuVisualizza(QMenu* menu);
    QWidget* FaiBarraTrova();
    QWidget* FaiBarraNumero();
    void FaiElenco();

    void Aggiorna();
    void AggiornaStato();
    void AggiornaColori();
    void Sorveglia();
    void Dici(const QString& testo);
    void ApriTrova();
    void Cerca(bool avanti, bool mentreScrive = false);
    void ApriNumero();
    void VaiAlNumero();
    void VaiAErrore(bool avanti);
    void VaiAProcedura(int riga);
    void ProceduraVicina(bool avanti);
    void ChiudiBarra(QWidget* barra);
    void ApriAltri();
    void SalvaPdf();
    void StampaSuCarta();
    void Tasti();
    void Informazioni();

    Lettore& lettore_;
    QString file_;
    std::unique_ptr<Struttura> struttura_;
    bool sparita_ = false;    // the file can no longer be read
    bool tienePosto_ = false; // the listing is empty for now; cima_ and posto_ stay
    Appiglio cima_, posto_;   // the top line and the caret at the last reading

    VistaStruttura* vista_;
    QWidget* barraTrova_ = nullptr;
    QLineEdit* daTrovare_ = nullptr;
    QLabel* esito_ = nullptr;
    QWidget* barraNumero_ = nullptr;
    QLineEdit* numero_ = nullptr;
    QLabel* esitoNumero_ = nullptr;
    QLabel* stato_ = nullptr;
    QDockWidget* riquadro_ = nullptr;
    QTreeView* elenco_ = nullptr;
    ModelloProcedure* procedure_ = nullptr;
    Posizione inizioRicerca_;
    bool segueElenco_ = false;
    QList<QAction*> perStruttura_; // the commands that need a listing

    QFileSystemWatcher sorveglia_;
    QBasicTimer quiete_, giro_;
    std::pair<qint64, qint64> vistoSulDisco_{-1, -1};
};

} // namespace morvella::lettore
