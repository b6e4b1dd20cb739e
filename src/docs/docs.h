// SPDX-License-Identifier: MIT
// docs/docs.h
//
// The HTML documentation: a page for each selected row, an index of them, and the tool's own
// help page. Code that writes HTML; what it writes is fixed text, kept in tables as the pages
// hold it: unbalanced tags, mixed case and slips are part of it.
//
// Nothing here has a handler: an error is final, pages that were finished stay, and the page in
// work stays as far as it came.
#pragma once

#include "shell/state.h"

namespace morvella {

/// The run over the selected rows of File1. Raises what any of its statements raises: 5 for a
/// row of fewer than 4 bytes, 53 without a source or a picture, 62 where a menu begins on the
/// last line, 75 where the work directory holds no plain file, 76 for a row with a directory
/// that the work directory does not have.
void mnuHTML_Click(Stato& s);

/// The run's own way to the work directory, whose text it gives: makes it with its marker where
/// it is missing or holds no plain file; raises 75 in the second case.
Testo PreparaDirectory(Stato& s);

/// The path of a row's page in `dirPagine`, with no second separator after the root of a drive.
/// Raises 5 for a row of fewer than 4 bytes.
Testo PercorsoPagina(const Testo& dirPagine, Vista voce);

/// Lays the pictures of the pages into `dirPagine` where they are not there yet; raises 53 when
/// one is not beside the program.
void CopiaFigure(Stato& s, const Testo& dirPagine);

/// Writes the page of one row; FileSorgente and FileUscita name source and page.
/// What a control has said of itself stays pending until its row is written, also into the
/// next module.
struct ValoriPendenti {
    Testo NomeData, DatabaseData, RecordData;
    Testo NomeAdo, OledbAdo, RecordAdo;
};
void ScriviPagina(Stato& s, const Testo& voce, ValoriPendenti& pendenti);

/// Writes "Indice.Html" into `dirPagine`, says that the run succeeded, and opens the index where
/// the answer is Yes.
void ScriviIndice(Stato& s, const Testo& dirPagine);

/// `testo` without any "../", in one sweep from left to right. No operation calls it.
Testo TogliRisalita(Vista testo);

/// Opens the help page beside the program; writes it first where there is none.
void MnuHelpHtml_Click(Stato& s);

} // namespace morvella
