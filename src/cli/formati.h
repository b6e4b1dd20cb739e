// SPDX-License-Identifier: MIT
// cli/formati.h
//
// The formats of what "esamina" found. All are UTF-8 with LF line ends.
#pragma once

#include <string>

#include "cli/riscontri.h"

namespace morvella::cli {

enum class Formato { Testo, Json, Sarif, Github };

/// The format of this name; raises UsoErrato for another.
Formato FormatoDi(const std::string& nome);

/// "N rilievi in M moduli, K righe", and how they compare with the base.
std::string Totali(const Referto& referto);

/// As compilers write it, path:line:column, with the totals at the end.
std::string ComeTesto(const Referto& referto, bool colori);
/// A finding as the JSON object that it is in every report.
std::string JsonDi(const Riscontro& riscontro);
/// One object. Names and values do not change; what is not known is null.
std::string ComeJson(const Referto& referto);
/// SARIF 2.1.0, one run.
std::string ComeSarif(const Referto& referto);
/// The commands that make annotations in a workflow of GitHub.
std::string ComeGithub(const Referto& referto);

} // namespace morvella::cli
