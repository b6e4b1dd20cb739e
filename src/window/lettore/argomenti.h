// SPDX-License-Identifier: MIT
// window/lettore/argomenti.h
//
// What the reader was started with.
#pragma once

#include <QStringList>

namespace morvella::lettore {

/// The exit statuses, as those of the command line: a file that cannot be shown is told in a box.
enum Uscita : int { Fatto = 0, NonAperto = 1, UsoSbagliato = 2 };

struct Richiesta {
    enum Genere { Mostra, Aiuto, Versione, Errata } Che = Mostra;
    QStringList File;
    bool Lf = false;
    QString Opzione; // the one that there is not
};

/// Takes the arguments behind the program's name.
Richiesta LeggiArgomenti(const QStringList& argomenti);
/// What --aiuto prints.
QString TestoAiuto();

} // namespace morvella::lettore
