// SPDX-License-Identifier: MIT
// window/lettore/finestra.h
//
// The reader of listings: a window a listing, all in one program. Each window has the listing,
// the list of its procedures, a bar to look for a text and one for a number. A listing that is
// written anew while it is shown is read again, and the place is kept where it can be.
//
// Boxes and file dialogs are asked for through Dialoghi, so that tests answer them.
#pragma once

#include <functional>
#include <memory>

#include <QBasicTimer>
#include <QFileSystemWatcher>
#include <QMainWindow>
#include <QPointer>
#include <QStringList>

#include "window/lettore/procedure.h"
#include "window/lettore/vista.h"

class QLabel;
class QLineEdit;
class QTreeView;

namespace morvella::lettore {

struct Dialoghi {
    /// A box with an OK: what went wrong, or what the user asked to be told.
    std::function<void(QWidget* sopra, bool guasto, const QString& titolo, const QString& testo)> Avvisa;
    /// The files to open, none when the user thinks better of it.
    std::function<QStringList(QWidget* sopra, const QString& directory)> Scegli;
    /// Where to write a PDF, "" for nowhere.
    std::function<QString(QWidget* sopra, const QString& proposto)> ScegliPdf;
};
/// The real ones.
Dialoghi DialoghiVeri();

class FinestraLettore;

/// The windows of the program.
class Lettore : public QObject {
    Q_OBJECT

  public:
    explicit Lettore(Dialoghi dialoghi, bool lf = false);
    ~Lettore() override;

    /// Shows each file in a window: the one that shows it already, else `vuota` when that shows
    /// nothing, else a new one. Tells of each that cannot be opened; gives how many those were.
    int Apri(const QStringList& file, FinestraLettore* vuota = nullptr);
    /// A window without a listing.
    FinestraLettore* Nuova();
    QList<FinestraLettore*> Finestre() const;
    void ChiudiTutte();

    const Dialoghi& Chiedi() const noexcept { return dialoghi_; }
    bool Lf() const noexcept { return lf_; }

  private:
    Dialoghi dialoghi_;
    bool lf_;
    QList<QPointer<FinestraLettore>> finestre_;
};

class FinestraLettore : public QMainWindow {
    Q_OBJECT

  public:
    explicit FinestraLettore(Lettore& lettore);
    ~FinestraLettore() override;

    /// Shows a file; else says in Italian why not, and nothing changes.
    bool Apri(const QString& file, QString& perche);
    QString File() const { return file_; }
    Struttura* LaStruttura() { return struttura_.get(); }
    VistaStruttura* LaVista() { return vista_; }

    /// Reads the file again when the disk has another.
    void Rileggi();
    /// Writes a PDF; else says why not.
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
    void FaiMenu();
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
    bool sparita_ = false;    // the file cannot be read any more
    bool tienePosto_ = false; // there is nothing to see, and the place is kept from before
    Appiglio cima_, posto_;   // where the user was

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
    QList<QAction*> perStruttura_; // that need a listing

    QFileSystemWatcher sorveglia_;
    QBasicTimer quiete_, giro_;
    std::pair<qint64, qint64> vistoSulDisco_{-1, -1};
};

} // namespace morvella::lettore
