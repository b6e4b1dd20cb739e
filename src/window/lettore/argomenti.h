// SPDX-License-Identifier: MIT
// window/lettore/argomenti.h
//
// The arguments of morvella-lettore.
#pragma once

#include <QStringList>

namespace morvella::lettore {

/// The exit statuses, with the same meanings as those of the command line.
enum Uscita : int { Fatto = 0, NonAperto = 1, UsoSbagliato = 2 };

struct Richiesta {
    enum Genere { Mostra, Aiuto, Versione, Errata } Che = Mostra;
    QStringList File;
    bool Lf = false;
    QString Opzione; // the unknown one, for Errata
};

/// Parses the arguments, without the program's name.
Richiesta LeggiArgomenti(const QStringList& argomenti);
/// The text that --aiuto prints.
QString TestoAiuto();

} // namespace morvella::lettore
