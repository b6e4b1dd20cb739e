// SPDX-License-Identifier: MIT
#include "cli/rapporto.h"

#include "cli/formati.h"
#include "cli/json.h"

namespace morvella::cli {

namespace {

std::string Logico(bool b) { return b ? "true" : "false"; }

std::string Numero(Lungo n) { return std::to_string(n); }

std::string DiBarra(const Barra& barra) {
    return "{\"Max\": " + Numero(barra.Max) + ", \"Value\": " + Numero(barra.Value) +
           ", \"Visible\": " + Logico(barra.Visible) + "}";
}

std::string DiLetture(const std::optional<DueLetture>& due) {
    if (!due) return "null";
    return "{\"struttura\": " +
           Schiera(due->Struttura,
                   [](const RilievoDiStruttura& r) {
                       return "{\"file\": " + StringaUtf8(r.File) + ", \"riga\": " + Numero(r.Riga) +
                              ", \"testo\": " + Stringa(r.Linea) +
                              ", \"messaggio\": " + StringaUtf8(r.Frase) +
                              ", \"condiviso\": " + Logico(r.Condiviso) + "}";
                   }) +
           ", \"esamina\": " + Schiera(due->Esame, JsonDi) + "}";
}

} // namespace

std::string Json(const Stato& s, const Cronaca& cronaca) {
    std::vector<Lungo> voci(static_cast<std::size_t>(s.File1.ListCount()));
    for (std::size_t i = 0; i < voci.size(); ++i) voci[i] = static_cast<Lungo>(i);

    std::string json = "{\n  \"righe\": ";
    json += Schiera(voci, [&](Lungo i) {
        return "{\"testo\": " + Stringa(s.File1.List(i)) +
               ", \"selezionata\": " + Logico(s.File1.Selected(i)) + "}";
    });
    json += ",\n  \"menu\": {\"mnuRiordina\": " + Logico(s.mnuRiordina) +
            ", \"mnuvorn\": " + Logico(s.mnuvorn) + ", \"mnuLettura\": " + Logico(s.mnuLettura) +
            ", \"mnuHTML\": " + Logico(s.mnuHTML) + ", \"mnuSeleziona\": " + Stringa(s.mnuSeleziona) + "}";
    json += ",\n  \"Label2\": " + Stringa(s.Label2);
    json += ",\n  \"ProgressBar1\": " + DiBarra(s.ProgressBar1);
    json += ",\n  \"Progress\": " + DiBarra(s.Progress);
    json += ",\n  \"messaggi\": " + Schiera(cronaca.Messaggi, [](const Messaggio& m) {
                return "{\"testo\": " + Stringa(m.Scritto) + ", \"flag\": " + Numero(m.Flag) +
                       ", \"titolo\": " + Stringa(m.Titolo) + ", \"risposta\": " + Numero(m.Risposta) + "}";
            });
    json += ",\n  \"processi\": " + Schiera(cronaca.Processi, [](const Testo& p) { return Stringa(p); });
    json += ",\n  \"errori\": " + Schiera(cronaca.Errori, [](const ErroreAvvenuto& e) {
                return "{\"motore\": " + Stringa(e.Motore) + ", \"numero\": " + Numero(e.Causa.Numero) +
                       ", \"descrizione\": " + Stringa(Descrizione(e.Causa.Numero)) +
                       ", \"file\": " + Stringa(e.Causa.File) + ", \"riga\": " + Stringa(e.Voce) +
                       ", \"linea\": " + Numero(e.Riga) + ", \"finale\": " + Logico(e.Finale) + "}";
            });
    json += ",\n  \"rilievi\": " + DiLetture(cronaca.Rilievi);
    json += ",\n  \"avvisi\": " + Schiera(cronaca.Avvisi, StringaUtf8);
    return json + "\n}\n";
}

} // namespace morvella::cli
