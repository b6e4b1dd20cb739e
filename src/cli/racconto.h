// SPDX-License-Identifier: MIT
// cli/racconto.h
//
// What a command reports when it has run: what was written, warnings, totals, findings, errors, and
// the report.
#pragma once

#include "cli/corsa.h"

namespace morvella::cli {

/// Reports all but the JSON report. `stato` is the exit status so far.
void Racconta(Corsa& c, int stato);
/// The errors alone, each with what to do about it.
void RaccontaErrori(Corsa& c);

/// Raises UsoErrato for a report that would overwrite a file of a project.
void RifiutaRapporto(const Corsa& c);
/// Writes the report where one was asked for. False, with the reason reported, when it could not be
/// written: the run itself is done.
bool ScriviRapporto(Corsa& c);
/// Before anything is done: raises 70 where the report would replace a source of the project, by
/// whatever name or link.
void RifiutaRapportoSuSorgente(Corsa& c);

} // namespace morvella::cli
