// SPDX-License-Identifier: MIT
// shell/gestore.h
//
// The error handler that the line engines share, and the helper that runs one statement
// under it. Every statement of an engine that can fail goes through Istruzione, so that 55
// goes on behind the failed statement and 76 runs that same statement again.
#pragma once

#include <new>
#include <type_traits>
#include <utility>

#include "shell/state.h"

namespace morvella {

/// What follows a failed statement.
enum class Seguito { Prosegui, Riprova };

/// Leaves an engine by the handler's third rule; EseguiMotore takes it.
struct FineMotore {
    Errore Causa;
};

/// The handler. 55: closes both channels, on behind the statement. 76: makes FileUscita flat,
/// the statement again. Any other number: closes both channels, the engine ends (FineMotore).
/// `invano` is the failed statement's own: whether a 76 has already come to nothing, since the
/// retry ends when the repair leaves FileUscita as it was and the statement fails again.
Seguito Gestisci(Stato& s, const Errore& e, bool& invano);

/// The repair of 76: FileUscita becomes its last name, directly in the work directory.
void AppiattisciUscita(Stato& s);

/// Runs one statement. One that is given up gives the value of an empty variable.
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

/// An engine's end at the place where the state stands.
Arresto FaiArresto(const Stato& s, Vista motore, const Errore& causa);

/// Tells every row's source, its companion and the project file to the file layer as files
/// that are only to be read.
void ProteggiSorgenti(Stato& s);

} // namespace morvella
