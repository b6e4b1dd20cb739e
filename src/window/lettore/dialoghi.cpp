// SPDX-License-Identifier: MIT
#include "window/lettore/dialoghi.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace morvella::lettore {

Dialoghi DialoghiVeri() {
    Dialoghi d;
    d.Avvisa = [](QWidget* sopra, bool guasto, const QString& titolo, const QString& testo) {
        QMessageBox box(guasto ? QMessageBox::Warning : QMessageBox::Information, titolo, testo,
                        QMessageBox::NoButton, sopra);
        box.addButton("&OK", QMessageBox::AcceptRole);
        if (guasto) box.setTextFormat(Qt::PlainText); // the file name in it may look like HTML
        box.exec();
    };
    d.Scegli = [](QWidget* sopra, const QString& directory) {
        QFileDialog dialogo(sopra, "Apri una struttura", directory);
        dialogo.setFileMode(QFileDialog::ExistingFiles);
        dialogo.setNameFilters({"Strutture (*.log *.Log *.LOG)", "Tutti i file (*)"});
        dialogo.setLabelText(QFileDialog::Accept, "&Apri");
        dialogo.setLabelText(QFileDialog::Reject, "Annulla");
        return dialogo.exec() == QDialog::Accepted ? dialogo.selectedFiles() : QStringList();
    };
    d.ScegliPdf = [](QWidget* sopra, const QString& proposto) {
        QFileDialog dialogo(sopra, "Salva come PDF", QFileInfo(proposto).path());
        dialogo.setAcceptMode(QFileDialog::AcceptSave);
        dialogo.setDefaultSuffix("pdf");
        dialogo.setNameFilters({"PDF (*.pdf)", "Tutti i file (*)"});
        dialogo.selectFile(QFileInfo(proposto).fileName());
        dialogo.setLabelText(QFileDialog::Accept, "&Salva");
        dialogo.setLabelText(QFileDialog::Reject, "Annulla");
        return dialogo.exec() == QDialog::Accepted ? dialogo.selectedFiles().value(0) : QString();
    };
    return d;
}

} // namespace morvella::lettore
