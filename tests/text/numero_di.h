// SPDX-License-Identifier: MIT
// tests/text/numero_di.h
//
// The number of the run-time error that a statement raises, 0 when it raises none, so that a
// table can hold the number beside the statement.
#pragma once

#include "text/errore.h"

namespace morvella::prove {

template <class F>
int NumeroDi(F&& statement) {
    try {
        (void)statement();
    } catch (const Errore& e) {
        return e.Numero;
    }
    return 0;
}

/// The whole error, with number 0 when none was raised.
template <class F>
Errore ErroreDi(F&& statement) {
    try {
        (void)statement();
    } catch (const Errore& e) {
        return e;
    }
    return Errore(0);
}

} // namespace morvella::prove
