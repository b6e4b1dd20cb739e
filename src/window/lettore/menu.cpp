// SPDX-License-Identifier: MIT
//
// The menu of a window, and the texts of its help.
#include "window/lettore/finestra.h"

#include <QAction>
#include <QDockWidget>
#include <QMenuBar>
#include <QTreeView>

#include "window/lettore/lettore.h"

namespace morvella::lettore {

QAction* FinestraLettore::Azione(QMenu* menu, const char* nome, const QString& testo,
                                 const QList<QKeySequence>& tasti, std::function<void()> fai) {
    QAction* azione = menu->addAction(testo);
    azione->setObjectName(nome);
    azione->setShortcuts(tasti);
    connect(azione, &QAction::triggered, this, std::move(fai));
    return azione;
}

// As Azione, for a command that needs a listing.
QAction* FinestraLettore::SuStruttura(QMenu* menu, const char* nome, const QString& testo,
                                      const QList<QKeySequence>& tasti, std::function<void()> fai) {
    perStruttura_.append(Azione(menu, nome, testo, tasti, std::move(fai)));
    return perStruttura_.back();
}

void FinestraLettore::FaiMenu() {
    FaiMenuFile(menuBar()->addMenu("&File"));
    FaiMenuModifica(menuBar()->addMenu("&Modifica"));
    FaiMenuVai(menuBar()->addMenu("&Vai"));
    FaiMenuVisualizza(menuBar()->addMenu("V&isualizza"));
    QMenu* aiuto = menuBar()->addMenu("&Aiuto");
    Azione(aiuto, "tasti", "&Tasti", {QKeySequence("F1")}, [this] { Tasti(); });
    Azione(aiuto, "informazioni", "&Informazioni", {}, [this] { Informazioni(); });
}

void FinestraLettore::FaiMenuFile(QMenu* menu) {
    Azione(menu, "apri", "&Apri...", {QKeySequence("Ctrl+O")}, [this] { ApriAltri(); });
    SuStruttura(menu, "rileggi", "&Rileggi", {QKeySequence("F5")}, [this] {
        Rileggi();
        if (!sparita_) Dici("Riletto.");
    });
    menu->addSeparator();
    // Some builds of Qt come without PDF, without printing or without either.
#if QT_CONFIG(pdf)
    SuStruttura(menu, "pdf", "Salva come &PDF...", {}, [this] { SalvaPdf(); });
#endif
#ifdef MORVELLA_STAMPA
    SuStruttura(menu, "stampa", "&Stampa...", {QKeySequence("Ctrl+P")}, [this] { StampaSuCarta(); });
#endif
    menu->addSeparator();
    Azione(menu, "chiudi", "&Chiudi", {QKeySequence("Ctrl+W")}, [this] { close(); });
    Azione(menu, "esci", "&Esci", {QKeySequence("Ctrl+Q")}, [this] { lettore_.ChiudiTutte(); });
}

void FinestraLettore::FaiMenuModifica(QMenu* menu) {
    QAction* copia = SuStruttura(menu, "copia", "&Copia", {QKeySequence("Ctrl+C"), QKeySequence("Ctrl+Ins")},
                                 [this] { vista_->Copia(); });
    QAction* tutto = SuStruttura(menu, "tutto", "&Seleziona tutto", {QKeySequence("Ctrl+A")},
                                 [this] { vista_->ScegliTutto(); });
    menu->addSeparator();
    QAction* trova =
        SuStruttura(menu, "trova", "&Trova...", {QKeySequence("Ctrl+F")}, [this] { ApriTrova(); });
    SuStruttura(menu, "successivo", "Trova s&uccessivo", {QKeySequence("F3")}, [this] { Cerca(true); });
    SuStruttura(menu, "precedente", "Trova &precedente", {QKeySequence("Shift+F3")},
                [this] { Cerca(false); });
    vista_->setContextMenuPolicy(Qt::ActionsContextMenu);
    vista_->addActions({copia, tutto, trova});
}

void FinestraLettore::FaiMenuVai(QMenu* menu) {
    QAction* numero =
        SuStruttura(menu, "numero", "Al &numero...", {QKeySequence("Ctrl+G")}, [this] { ApriNumero(); });
    vista_->addAction(numero);
    menu->addSeparator();
    SuStruttura(menu, "errore", "All'errore &successivo", {QKeySequence("F8")}, [this] { VaiAErrore(true); });
    SuStruttura(menu, "errorePrima", "All'errore &precedente", {QKeySequence("Shift+F8")},
                [this] { VaiAErrore(false); });
    menu->addSeparator();
    SuStruttura(menu, "procedura", "Alla procedura s&eguente", {QKeySequence("Ctrl+PgDown")},
                [this] { ProceduraVicina(true); });
    SuStruttura(menu, "proceduraPrima", "Alla procedura prece&dente", {QKeySequence("Ctrl+PgUp")},
                [this] { ProceduraVicina(false); });
}

void FinestraLettore::FaiMenuVisualizza(QMenu* menu) {
    const auto zoom = [this](int passi) {
        vista_->MettiZoom(vista_->Zoom() + passi * VistaStruttura::ZoomPasso);
    };
    Azione(menu, "ingrandisci", "&Ingrandisci", {QKeySequence("Ctrl++"), QKeySequence("Ctrl+=")},
           [zoom] { zoom(1); });
    Azione(menu, "riduci", "&Riduci", {QKeySequence("Ctrl+-")}, [zoom] { zoom(-1); });
    Azione(menu, "normale", "&Dimensione normale", {QKeySequence("Ctrl+0")},
           [this] { vista_->MettiZoom(100); });
    menu->addSeparator();
    QAction* lista = riquadro_->toggleViewAction();
    lista->setText("&Procedure");
    lista->setShortcut(QKeySequence("F9"));
    menu->addAction(lista);
    Azione(menu, "allaLista", "&Vai alla lista delle procedure", {QKeySequence("F6")}, [this] {
        if (elenco_->hasFocus()) return vista_->setFocus();
        riquadro_->show();
        elenco_->setFocus();
    });
}

void FinestraLettore::Tasti() {
    static constexpr const char* tasti[][2] = {
        {"Ctrl+O", "apri una struttura"},
        {"F5", "rileggi il file"},
        {"Ctrl+F", "trova un testo"},
        {"F3, Shift+F3", "successivo, precedente"},
        {"Ctrl+G", "vai a un numero di riga"},
        {"F8, Shift+F8", "errore successivo, precedente"},
        {"Ctrl+Pag giù, Ctrl+Pag su", "procedura seguente, precedente"},
        {"F6", "alla lista delle procedure e ritorno"},
        {"F9", "mostra o nascondi la lista"},
        {"Ctrl++, Ctrl+-, Ctrl+0", "più grande, più piccolo, normale"},
        {"Shift+frecce, Ctrl+A", "seleziona"},
        {"Ctrl+C", "copia"},
        {"Ctrl+W", "chiudi questa finestra"},
        {"Ctrl+Q", "chiudi tutto"},
    };
    QString tabella = "<table>";
    for (const auto& [tasto, effetto] : tasti)
        tabella +=
            QStringLiteral("<tr><td style='padding-right: 24px'>%1</td><td>%2</td></tr>").arg(tasto, effetto);
    lettore_.Chiedi().Avvisa(this, false, "Tasti",
                             tabella + "</table><p>Un clic sul numero seleziona la riga, "
                                       "Ctrl e la rotella cambiano la grandezza.</p>");
}

void FinestraLettore::Informazioni() {
    lettore_.Chiedi().Avvisa(
        this, false, "Informazioni",
        "Morvella Lettore " MORVELLA_VERSIONE "\n\n"
        "Mostra le strutture scritte da Morvella: linee semplici per le condizioni, "
        "doppie per i cicli, una riga rossa dove una procedura finisce con blocchi aperti.\n\n"
        "I file vengono soltanto letti.");
}

} // namespace morvella::lettore
