// SPDX-License-Identifier: MIT
#include "esame/esame.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "esame/condizionale.h"
#include "esame/eventi.h"
#include "esame/testa.h"

namespace morvella::esame {

namespace {

constexpr std::size_t Assaggio = 4096; // a NUL among the first bytes: not a text

Rilievo Finito(const Reperto& r, std::string_view bytes) {
    Rilievo esito{.Quale = r.Quale,
                  .Cosa = r.Cosa,
                  .Riga = r.Riga,
                  .Colonna = r.Colonna,
                  .Nota = r.Nota,
                  .Apertura = r.Apertura,
                  .Atteso = r.Atteso,
                  .Trovato = r.Trovato,
                  .Procedura = {}};
    if (r.LungoNome != 0) esito.Procedura.emplace(bytes.substr(r.InizioNome, r.LungoNome));
    return esito;
}

} // namespace

Esame Esamina(std::string_view bytes) {
    bytes = bytes.substr(0, std::numeric_limits<std::uint32_t>::max());
    if (bytes.substr(0, Assaggio).find('\0') != bytes.npos)
        return {{{.Quale = Tipo::NonTesto,
                  .Riga = 1,
                  .Colonna = 1,
                  .Nota = 1,
                  .Atteso = {},
                  .Trovato = {},
                  .Procedura = {}}},
                0};
    std::vector<Reperto> reperti;
    std::vector<Evento> eventi;
    const Testa testa = LeggiTesta(bytes, reperti);
    Esame esame;
    esame.Righe = RaccogliEventi(bytes, testa.Fine, testa.Riga, eventi);
    Condizionale(eventi, esame.Righe, reperti).Giudica(reperti);
    std::stable_sort(reperti.begin(), reperti.end(), [](const Reperto& a, const Reperto& b) {
        return std::tie(a.Riga, a.Colonna, a.Quale, a.Cosa) < std::tie(b.Riga, b.Colonna, b.Quale, b.Cosa);
    });
    for (const Reperto& r : reperti) esame.Rilievi.push_back(Finito(r, bytes));
    return esame;
}

} // namespace morvella::esame
