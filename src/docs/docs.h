// SPDX-License-Identifier: MIT
// docs/docs.h
//
// The HTML documentation: a page for each selected row, an index of them, and the tool's help page.
// Their fixed text is kept in tables; unbalanced tags, mixed case and slips belong to it.
//
// What would surprise: nothing here runs under the handler. An error is final; finished pages stay,
// and so does the part of the current page that was written.
#pragma once

#include "shell/state.h"

namespace morvella {

/// The run over the selected rows of File1. Raises whatever one of its statements raises: 5 for a
/// row of fewer than 4 bytes, 53 for a missing source or picture, 62 for a menu that begins on the
/// last line, 75 for a work directory without plain files, 76 for a row in a directory that the
/// work directory lacks.
void mnuHTML_Click(Stato& s);

/// Makes the work directory with its marker and returns its path. One without a plain file counts
/// as missing, and making it again raises 75.
Testo PreparaDirectory(Stato& s);

/// The path of a row's page in `dirPagine`, with no second separator after the root of a drive.
/// Raises 5 for a row of fewer than 4 bytes.
Testo PercorsoPagina(const Testo& dirPagine, Vista voce);

/// Copies the pages' pictures into `dirPagine` unless they are there. Raises 53 for a picture that
/// is not in App.Path.
void CopiaFigure(Stato& s, const Testo& dirPagine);

/// Properties of a Data or ADO control, kept until their table row is written, possibly on the
/// next module's page.
struct ValoriPendenti {
    Testo NomeData, DatabaseData, RecordData;
    Testo NomeAdo, OledbAdo, RecordAdo;
};
/// Writes the page of row `voce` from FileSorgente to FileUscita. `pendenti`: in/out. Raises as
/// mnuHTML_Click.
void ScriviPagina(Stato& s, const Testo& voce, ValoriPendenti& pendenti);

/// Writes "Indice.Html" into `dirPagine`, announces success, and opens the index if the answer is
/// Yes. Raises 53 when the browser cannot be started.
void ScriviIndice(Stato& s, const Testo& dirPagine);

/// `testo` without any "../", removed in one pass from left to right. No operation calls it.
Testo TogliRisalita(Vista testo);

/// Opens the help page in App.Path; writes it first if it is missing.
void MnuHelpHtml_Click(Stato& s);

} // namespace morvella
