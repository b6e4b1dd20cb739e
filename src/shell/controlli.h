// SPDX-License-Identifier: MIT
// shell/controlli.h
//
// Controls with more than one value: two lists and the bars. They raise no events; the procedures
// of shell/state.h do.
#pragma once

#include <algorithm>
#include <vector>

#include "text/primitive.h"

namespace morvella {

/// A progress bar. A Max of 0 is accepted.
struct Barra {
    Lungo Min = 0;
    Lungo Max = 100;
    Lungo Value = 0;
    bool Visible = false;
    Lungo Prossimo = 0; // the value at which the change becomes visible
};

/// The list of the project's sources. Rows are numbered from 0, in ascending order of the bytes
/// of LCase(row); equal rows keep the order in which they were added.
class ListaFile1 {
  public:
    void Clear() {
        voci_.clear();
        ++versione_;
    }
    void AddItem(Vista testo);
    Lungo ListCount() const noexcept { return static_cast<Lungo>(voci_.size()); }
    /// The row's text; raises 5 for a row that is not there.
    const Testo& List(Lungo i) const { return In(i).Scritta; }
    /// Raises 5 for a row that is not there.
    bool Selected(Lungo i) const { return In(i).Selezionata; }
    Lungo ContaSelezionate() const noexcept {
        return std::count_if(voci_.begin(), voci_.end(), [](const Voce& voce) { return voce.Selezionata; });
    }
    /// Changes with every change of the rows, but not with the selection.
    Lungo Versione() const noexcept { return versione_; }
    /// Sets the selection without its event, which SelezionaFile1 (shell/state.h) raises; raises 5
    /// for a row that is not there.
    void Segna(Lungo i, bool selezionata) { In(i).Selezionata = selezionata; }

  private:
    struct Voce {
        Testo Scritta;
        Testo Chiave;
        bool Selezionata = false;
    };
    Voce& In(Lungo i) const;

    mutable std::vector<Voce> voci_; // sorted on the first lookup, so that adding n rows costs no n * n
    mutable bool ordinate_ = true;
    Lungo versione_ = 0;
};

/// The project files of Dir1.Path, of which one is chosen.
struct ListaFile1Leggi {
    std::vector<Testo> Nomi;
    Lungo ListIndex = -1;
    /// `File1Leggi.List(File1Leggi.ListIndex)`: "" when none is chosen.
    Vista Scelto() const noexcept {
        return ListIndex >= 0 && ListIndex < static_cast<Lungo>(Nomi.size())
                   ? Vista(Nomi[static_cast<std::size_t>(ListIndex)])
                   : Vista();
    }
};

} // namespace morvella
