// SPDX-License-Identifier: MIT
#include <cstdio>

#include <QApplication>

#include "window/lettore_finestra.h"
#include "window/lettore_italiano.h"

namespace {

enum Uscita : int { Fatto = 0, NonAperto = 1, UsoSbagliato = 2 };

constexpr const char* Aiuto = R"(morvella-lettore: mostra le strutture scritte da Morvella.

Uso: morvella-lettore [--lf] [FILE.log...]

Una finestra per ogni file. Senza file si apre una finestra vuota.

  --lf              anche il solo LF chiude una riga
  -h, --aiuto       mostra questo testo
  -V, --versione    mostra la versione

Uscita: 0 fatto, 1 un file non si apre, 2 uso errato.
)";

} // namespace

int main(int argc, char** argv) {
    using namespace morvella::lettore;
    // Before Qt: help needs no screen.
    for (int i = 1; i < argc; ++i) {
        const std::string argomento = argv[i];
        if (argomento == "--") break;
        if (argomento == "-h" || argomento == "--aiuto") return std::fputs(Aiuto, stdout), Fatto;
        if (argomento == "-V" || argomento == "--versione")
            return std::puts("morvella-lettore " MORVELLA_VERSIONE), Fatto;
    }

    QApplication programma(argc, argv);
    QCoreApplication::setApplicationName("morvella-lettore");
    QCoreApplication::setApplicationVersion(MORVELLA_VERSIONE);
    QGuiApplication::setDesktopFileName("morvella-lettore");
    ParlaItaliano(programma);

    QStringList file;
    bool lf = false;
    bool opzioni = true;
    for (const QString& argomento : programma.arguments().mid(1)) {
        if (opzioni && argomento == QLatin1String("--"))
            opzioni = false;
        else if (opzioni && argomento == QLatin1String("--lf"))
            lf = true;
        else if (opzioni && argomento.size() > 1 && argomento.startsWith('-')) {
            std::fprintf(stderr, "morvella-lettore: opzione sconosciuta: %s\n", qUtf8Printable(argomento));
            return UsoSbagliato;
        } else
            file << argomento;
    }

    Lettore lettore(DialoghiVeri(), lf);
    const int mancati = lettore.Apri(file);
    if (file.isEmpty())
        lettore.Nuova();
    else if (mancati == file.size())
        return NonAperto; // the boxes have told why
    const int stato = QApplication::exec();
    return stato == 0 && mancati > 0 ? NonAperto : stato;
}
