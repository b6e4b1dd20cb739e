// SPDX-License-Identifier: MIT
//
// Printing a window's listing and saving it as a PDF.
#include "window/lettore/finestra.h"

#include <QFileInfo>
#include <QPdfWriter>
#include <QProgressDialog>
#include <QSaveFile>

#ifdef MORVELLA_STAMPA
#include <QPrintDialog>
#include <QPrinter>
#endif

#include "window/lettore/lettore.h"
#include "window/lettore/stampa.h"

namespace morvella::lettore {

namespace {

QString Nome(const QString& file) { return QFileInfo(file).fileName(); }

// Prints the pages, with a box to stop it. False when stopped or when the device fails.
[[maybe_unused]] bool Porta(QWidget* sopra, Stampa& stampa, Lungo da, Lungo a) {
    QProgressDialog avanzamento("Preparazione delle pagine...", "&Annulla", 0, static_cast<int>(a - da + 1),
                                sopra);
    avanzamento.setWindowTitle("Morvella Lettore");
    avanzamento.setWindowModality(Qt::WindowModal);
    avanzamento.setMinimumDuration(800);
    return stampa.Esegui(da, a, [&](Lungo pagina) {
        avanzamento.setValue(static_cast<int>(pagina - da));
        return !avanzamento.wasCanceled();
    });
}

} // namespace

bool FinestraLettore::ScriviPdf([[maybe_unused]] const QString& dove, QString& perche) {
#if QT_CONFIG(pdf)
    QSaveFile file(dove); // replaces an older PDF only when the new one is complete
    if (!file.open(QIODevice::WriteOnly)) {
        perche = "Il file non si può scrivere.";
        return false;
    }
    {
        QPdfWriter carta(&file);
        carta.setPageSize(QPageSize(QPageSize::A4));
        carta.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
        carta.setTitle(Nome(file_));
        carta.setCreator("Morvella Lettore");
        Stampa stampa(*struttura_, carta, file_);
        if (!Porta(this, stampa, 1, stampa.Pagine())) {
            file.cancelWriting();
            perche.clear(); // stopped by the user: nothing to report
            return false;
        }
    }
    if (file.commit()) return true;
    perche = "Il file non si può scrivere fino in fondo.";
#else
    perche = "Questa versione non scrive PDF.";
#endif
    return false;
}

void FinestraLettore::SalvaPdf() {
    if (!struttura_) return;
    const QFileInfo info(file_);
    const QString dove =
        lettore_.Chiedi().ScegliPdf(this, info.path() + '/' + info.completeBaseName() + ".pdf");
    if (dove.isEmpty()) return;
    QString perche;
    if (ScriviPdf(dove, perche))
        Dici(QStringLiteral("Salvato «%1».").arg(Nome(dove)));
    else if (!perche.isEmpty())
        lettore_.Chiedi().Avvisa(this, true, "Morvella Lettore",
                                 QStringLiteral("Non si può salvare «%1».\n\n%2").arg(dove, perche));
}

void FinestraLettore::StampaSuCarta() {
#ifdef MORVELLA_STAMPA
    if (!struttura_) return;
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setDocName(Nome(file_));
    QPrintDialog dialogo(&stampante, this);
    dialogo.setWindowTitle("Stampa");
    dialogo.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialogo.exec() != QDialog::Accepted) return;
    Stampa stampa(*struttura_, stampante, file_);
    const bool parte = stampante.printRange() == QPrinter::PageRange && stampante.fromPage() > 0;
    const Lungo da = parte ? stampante.fromPage() : 1;
    const Lungo a = parte ? stampante.toPage() : stampa.Pagine();
    if (!Porta(this, stampa, da, a)) Dici("La stampa non è stata completata.");
#endif
}

} // namespace morvella::lettore
