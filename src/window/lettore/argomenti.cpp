// SPDX-License-Identifier: MIT
#include "window/lettore/argomenti.h"

namespace morvella::lettore {

Richiesta LeggiArgomenti(const QStringList& argomenti) {
    Richiesta r;
    bool opzioni = true;
    for (const QString& argomento : argomenti) {
        if (!opzioni || !argomento.startsWith('-')) {
            r.File << argomento;
        } else if (argomento == "--") {
            opzioni = false; // the rest are files
        } else if (argomento == "--lf") {
            r.Lf = true;
        } else if (argomento == "-h" || argomento == "--aiuto" || argomento == "--help") {
            return {Richiesta::Aiuto, {}, false, {}};
        } else if (argomento == "-V" || argomento == "--versione" || argomento == "--version") {
            return {Richiesta::Versione, {}, false, {}};
        } else if (r.Che == Richiesta::Mostra) {
            r.Che = Richiesta::Errata;
            r.Opzione = argomento;
        }
    }
    return r;
}

QString TestoAiuto() {
    return "morvella-lettore: mostra le strutture scritte da Morvella.\n"
           "\n"
           "Uso: morvella-lettore [--lf] [FILE.log...]\n"
           "\n"
           "Una finestra per ogni file. Senza file si apre una finestra vuota.\n"
           "\n"
           "      --lf          anche il solo LF chiude una riga\n"
           "  -h, --aiuto       mostra questo testo\n"
           "  -V, --versione    mostra la versione\n"
           "\n"
           "Uscita: 0 fatto, 1 un file non si apre, 2 uso errato.\n";
}

} // namespace morvella::lettore
