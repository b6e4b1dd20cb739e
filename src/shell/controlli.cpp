// SPDX-License-Identifier: MIT
#include "shell/controlli.h"

namespace morvella {

void ListaFile1::AddItem(Vista testo) {
    voci_.push_back({Testo(testo), LCase(testo), false});
    ordinate_ = false;
    ++versione_;
}

ListaFile1::Voce& ListaFile1::In(Lungo i) const {
    if (i < 0 || i >= ListCount()) throw Errore(ErrArgomento);
    if (!ordinate_) {
        // Stable: equal rows keep the order in which they were added.
        std::stable_sort(voci_.begin(), voci_.end(),
                         [](const Voce& a, const Voce& b) { return a.Chiave < b.Chiave; });
        ordinate_ = true;
    }
    return voci_[static_cast<std::size_t>(i)];
}

} // namespace morvella
