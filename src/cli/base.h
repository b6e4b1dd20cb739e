// SPDX-License-Identifier: MIT
// cli/base.h
//
// A base: the findings known at some time, so that later only new ones are told. A finding is known
// again by its rule, its file, the text of its line and how manyth it is of that kind, and never by
// its line number.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <unordered_set>

#include "cli/riscontri.h"

namespace morvella::cli {

/// The line of a base that stands for a finding: rule, file, count and text between TABs.
std::string ChiaveDiBase(const Riscontro& riscontro);

class Base {
  public:
    /// Reads a base's bytes; raises UsoErrato when they are none.
    static Base Leggi(const std::string& bytes, const std::string& file);

    /// Takes the findings that the base has out of `riscontri` and counts. `esaminati` are the files, in
    /// UTF-8. What the base has of a file
    /// that was not examined is gone only if the file is (`cE` says whether it is there).
    Confronto Confronta(std::vector<Riscontro>& riscontri, const std::unordered_set<std::string>& esaminati,
                        const std::function<bool(const std::string&)>& cE);

    /// A base of these findings and of what `vecchia`, compared before, has of files not examined.
    static std::string Scritta(const std::vector<Riscontro>& riscontri, const Base& vecchia);

  private:
    enum class Sorte { Ignota, Ritrovata, NonEsaminata };
    std::map<std::string, Sorte> voci_; // by their lines
};

} // namespace morvella::cli
