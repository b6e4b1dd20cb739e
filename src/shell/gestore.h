// SPDX-License-Identifier: MIT
// shell/gestore.h
//
// The error handler of the line engines. Every statement of theirs that can fail goes through
// Istruzione, so that 55 resumes after the failed statement and 76 runs that statement again. The
// usual ones have names in shell/motore.h.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "shell/state.h"

namespace morvella {

/// What follows a failed statement.
enum class Seguito { Prosegui, Riprova };

/// Thrown by the handler to end the engine; caught by EseguiMotore.
struct FineMotore {
    Errore Causa;
};

/// The handler. 55: closes both channels, resumes after the statement. 76: flattens FileUscita,
/// retries the statement. Any other number: closes both channels, ends the engine (FineMotore).
/// `invano`: in/out, false for a new statement. True: an earlier 76 left FileUscita as it was, and
/// a second one ends the engine instead of retrying forever.
Seguito Gestisci(Stato& s, const Errore& e, bool& invano);

/// The repair after 76: moves FileUscita directly into the work directory, under its last name.
void AppiattisciUscita(Stato& s);

/// Runs one statement under the handler and returns its value; an empty one (0, "", false) when
/// the handler resumes after it. Throws FineMotore when the handler ends the engine.
template <class F>
[[gnu::always_inline]] inline auto Istruzione(Stato& s, F&& statement) {
    using Valore = std::invoke_result_t<F&>;
    bool invano = false;
    for (;;) {
        Seguito seguito;
        try {
            return statement();
        } catch (const Errore& e) {
            seguito = Gestisci(s, e, invano);
        } catch (const std::bad_alloc&) {
            seguito = Gestisci(s, Errore(ErrMemoria), invano);
        }
        if (seguito == Seguito::Prosegui) return Valore();
    }
}

/// The report of engine `motore` ended by `causa`, with row and line as the state has them.
Arresto FaiArresto(const Stato& s, Vista motore, const Errore& causa);

} // namespace morvella
