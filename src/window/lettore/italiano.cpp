// SPDX-License-Identifier: MIT
#include "window/lettore/italiano.h"

#include <cstring>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace morvella::lettore {

namespace {

struct Voce {
    const char* Qt;
    const char* Italiano;
};

// clang-format off
constexpr Voce Voci[] = {
    // line edits
    {"&Undo", "&Annulla"}, {"&Redo", "&Ripeti"}, {"Cu&t", "&Taglia"}, {"&Copy", "&Copia"},
    {"&Paste", "&Incolla"}, {"Delete", "Elimina"}, {"Select All", "Seleziona tutto"},
    // scroll bars
    {"Scroll here", "Scorri qui"}, {"Left edge", "Bordo sinistro"}, {"Top", "Inizio"},
    {"Right edge", "Bordo destro"}, {"Bottom", "Fine"}, {"Page left", "Pagina a sinistra"},
    {"Page up", "Pagina su"}, {"Page right", "Pagina a destra"}, {"Page down", "Pagina giù"},
    {"Scroll left", "Scorri a sinistra"}, {"Scroll up", "Scorri su"},
    {"Scroll right", "Scorri a destra"}, {"Scroll down", "Scorri giù"},
    // docks
    {"Float", "Stacca"}, {"Closes the dock widget", "Chiude il riquadro"},
    {"Undocks and re-attaches the dock widget", "Stacca e riattacca il riquadro"},
    {"Floats and re-docks the dock widget", "Stacca e riattacca il riquadro"},
    // buttons
    {"OK", "OK"}, {"&OK", "&OK"}, {"Cancel", "Annulla"}, {"&Cancel", "&Annulla"}, {"Close", "Chiudi"},
    {"&Close", "&Chiudi"}, {"&Yes", "&Sì"}, {"&No", "&No"}, {"Open", "Apri"}, {"&Open", "&Apri"},
    {"Save", "Salva"}, {"&Save", "&Salva"}, {"Help", "Aiuto"}, {"Apply", "Applica"},
    // file dialogs
    {"Look in:", "Cerca in:"}, {"File &name:", "&Nome del file:"}, {"Files of type:", "Tipo di file:"},
    {"Directory:", "Directory:"}, {"&Choose", "&Scegli"}, {"Back", "Indietro"}, {"Forward", "Avanti"},
    {"Parent Directory", "Directory superiore"}, {"Create New Folder", "Crea una directory"},
    {"List View", "Elenco"}, {"Detail View", "Dettagli"}, {"Go back", "Indietro"}, {"Go forward", "Avanti"},
    {"Go to the parent directory", "Alla directory superiore"}, {"Create a New Folder", "Crea una directory"},
    {"Change to list view mode", "Passa all'elenco"}, {"Change to detail view mode", "Passa ai dettagli"},
    {"Sidebar", "Barra laterale"}, {"List of places and bookmarks", "Luoghi e segnalibri"},
    {"Files", "File"}, {"Recent Places", "Luoghi recenti"}, {"&Rename", "&Rinomina"}, {"&Delete", "&Elimina"},
    {"Show &hidden files", "&Mostra i file nascosti"}, {"&New Folder", "&Nuova directory"},
    {"New Folder", "Nuova directory"}, {"Remove", "Togli"}, {"All Files (*)", "Tutti i file (*)"},
    {"%1 already exists.\nDo you want to replace it?", "%1 esiste già.\nSostituirlo?"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nIl file non esiste.\nControllare il nome."},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nLa directory non esiste.\nControllare il nome."},
    {"Name", "Nome"}, {"Size", "Dimensione"}, {"Type", "Tipo"}, {"Kind", "Tipo"},
    {"Date Modified", "Modificato"}, {"Computer", "Computer"}, {"Folder", "Directory"},
    {"File Folder", "Directory"}, {"%1 File", "File %1"}, {"My Computer", "Computer"},
    // printing
    {"Print", "Stampa"}, {"&Print", "&Stampa"}, {"Print...", "Stampa..."}, {"Printer", "Stampante"},
    {"&Name:", "&Nome:"}, {"P&roperties", "P&roprietà"}, {"Location:", "Posizione:"}, {"Preview", "Anteprima"},
    {"Type:", "Tipo:"}, {"Output &file:", "&File:"}, {"Print to File (PDF)", "Stampa su file (PDF)"},
    {"Local file", "File locale"}, {"&Options >>", "&Opzioni >>"}, {"&Options <<", "&Opzioni <<"},
    {"Copies", "Copie"}, {"Print range", "Pagine"}, {"Print all", "Tutte"}, {"Pages from", "Pagine da"},
    {"to", "a"}, {"Current Page", "Pagina corrente"}, {"Selection", "Selezione"}, {"Pages", "Pagine"},
    {"Output Settings", "Uscita"}, {"Copies:", "Copie:"}, {"Collate", "Fascicola"}, {"Reverse", "Inverti"},
    {"Options", "Opzioni"}, {"Color Mode", "Colori"}, {"Color", "A colori"}, {"Grayscale", "Grigi"},
    {"Duplex Printing", "Fronte e retro"}, {"None", "No"}, {"Long side", "Lato lungo"},
    {"Short side", "Lato corto"}, {"Page Set:", "Gruppo di pagine:"}, {"All Pages", "Tutte le pagine"},
    {"Odd Pages", "Pagine dispari"}, {"Even Pages", "Pagine pari"}, {"Paper", "Carta"},
    {"Page size:", "Formato:"}, {"Width:", "Larghezza:"}, {"Height:", "Altezza:"},
    {"Paper source:", "Alimentazione:"}, {"Orientation", "Orientamento"}, {"Portrait", "Verticale"},
    {"Landscape", "Orizzontale"}, {"Reverse portrait", "Verticale rovesciato"},
    {"Reverse landscape", "Orizzontale rovesciato"}, {"Margins", "Margini"}, {"Page", "Pagina"},
    {"Advanced", "Avanzate"}, {"Printer Properties", "Proprietà della stampante"},
    {"Job Options", "Opzioni della stampa"}, {"Page Layout", "Disposizione"}, {"Custom", "Personalizzato"},
};
// clang-format on

class Italiano : public QTranslator {
  public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* contesto, const char* testo, const char*, int) const override {
        // Only the contexts of Qt itself.
        if (!contesto || !testo || contesto[0] != 'Q') return {};
        for (const Voce& voce : Voci)
            if (std::strcmp(voce.Qt, testo) == 0) return QString::fromUtf8(voce.Italiano);
        return {};
    }
};

} // namespace

void ParlaItaliano(QCoreApplication& programma) {
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    QCoreApplication::installTranslator(new Italiano(&programma));
    auto* diQt = new QTranslator(&programma); // asked first
    if (diQt->load(QStringLiteral("qtbase_it"), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(diQt);
}

} // namespace morvella::lettore
