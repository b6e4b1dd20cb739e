// SPDX-License-Identifier: MIT
#include <cstdio>

#include <QApplication>

#include "window/lettore/argomenti.h"
#include "window/lettore/finestra.h"
#include "window/lettore/italiano.h"
#include "window/lettore/lettore.h"

int main(int argc, char** argv) {
    using namespace morvella::lettore;
    // Before Qt starts: help and version need no screen.
    QStringList prima;
    for (int i = 1; i < argc; ++i) prima << QString::fromLocal8Bit(argv[i]);
    switch (LeggiArgomenti(prima).Che) {
    case Richiesta::Aiuto: return std::fputs(qUtf8Printable(TestoAiuto()), stdout), Fatto;
    case Richiesta::Versione: return std::puts("morvella-lettore " MORVELLA_VERSIONE), Fatto;
    default: break; // still includes Qt's own options
    }

    QApplication programma(argc, argv);
    QCoreApplication::setApplicationName("morvella-lettore");
    QCoreApplication::setApplicationVersion(MORVELLA_VERSIONE);
    QGuiApplication::setDesktopFileName("morvella-lettore");
    ParlaItaliano(programma);
    const Richiesta richiesta = LeggiArgomenti(QCoreApplication::arguments().mid(1));
    if (richiesta.Che == Richiesta::Errata) {
        std::fprintf(stderr, "morvella-lettore: opzione sconosciuta: %s\n",
                     qUtf8Printable(richiesta.Opzione));
        return UsoSbagliato;
    }

    Lettore lettore(DialoghiVeri(), richiesta.Lf);
    const auto mancati = lettore.Apri(richiesta.File);
    if (richiesta.File.isEmpty()) lettore.Nuova();
    if (lettore.Finestre().isEmpty()) return NonAperto; // the boxes have said why
    const int stato = QApplication::exec();
    return stato == Fatto && mancati > 0 ? NonAperto : stato;
}
