// SPDX-License-Identifier: MIT
#include "cli/prosegui.h"

#include <optional>
#include <utility>

#include "cli/voci.h"
#include "listing/listing.h"
#include "rewriter/rewriter.h"

namespace morvella::cli {

namespace {

// What ended the engine's last run, taken away so that it is looked at once.
std::optional<Arresto> PrendiFermo(Corsa& c, Vista motore) {
    auto fermo = c.Fronte.Fermi.extract(Testo(motore));
    return fermo ? std::optional(std::move(fermo.mapped())) : std::nullopt;
}

} // namespace

// The failed row is deselected together with the rows already done. A run that stopped in its first
// stage has rewritten the rows before but not yet given them their own names: these are not done, and
// come last, all in one run.
void ProseguiRiordina(Corsa& c) {
    std::vector<Lungo> sospese;
    for (;;) {
        const std::optional<Arresto> fermo = PrendiFermo(c, "mnuRiordina_Click");
        if (fermo && fermo->Voce < 0) return; // an error before the first row: no use
        if (fermo) {
            std::vector<Lungo> restano;
            for (const Lungo i : Selezionate(c.S)) {
                if (i > fermo->Voce) restano.push_back(i);
                if (i < fermo->Voce && !fermo->SecondoGiro) sospese.push_back(i);
            }
            SelezionaEsattamente(c.S, restano);
            if (restano.empty() && sospese.empty()) return;
            if (!restano.empty()) {
                c.Fai("mnuRiordina_Click", mnuRiordina_Click);
                continue;
            }
        }
        if (sospese.empty()) return;
        SelezionaEsattamente(c.S, std::exchange(sospese, {}));
        c.Fai("mnuRiordina_Click", mnuRiordina_Click);
    }
}

// The listing deselects each row before it opens it: the command again goes on after that row.
void ProseguiStruttura(Corsa& c) {
    while (const std::optional<Arresto> fermo = PrendiFermo(c, "mnuvorn_Click")) {
        if (fermo->Voce < 0 || Selezionate(c.S).empty()) return;
        c.Fai("mnuvorn_Click", mnuvorn_Click);
    }
}

} // namespace morvella::cli
