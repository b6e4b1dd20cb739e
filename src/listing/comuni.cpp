// SPDX-License-Identifier: MIT
#include "listing/comuni.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "listing/connettori.h"
#include "listing/listing.h"
#include "scan/testa.h"

namespace morvella {

namespace {

// The widest margin drawn here: one copy of fixed size, whatever the width.
constexpr std::size_t Largo = TestoLargo::Passo;
// What a line needs besides its text: number, margin, line end.
constexpr std::size_t Intorno = 11 + Largo + 2;

// The next number: `campo` is the field's first eight bytes, its sixth digit in bits 40 to 47.
void Avanza(std::uint64_t& campo) {
    campo += std::uint64_t{1} << 40;
    for (int posto = 40; (campo >> posto & 0xFF) > '9'; posto -= 8)
        campo += (std::uint64_t{1} << (posto - 8)) - (std::uint64_t{10} << posto);
}

} // namespace

std::size_t ElencaComuni(Stato& s, std::span<const RigaSorgente> righe) {
    if constexpr (std::endian::native != std::endian::little) return 0;
    if (s.Punto.MargineSeguito || s.Margine.size() > Largo) return 0;
    const Canali::Spazio spazio = s.Canale.DaStampare(2);
    if (spazio.Dove == nullptr) return 0;

    const char* const fondo = spazio.Dove + spazio.Posto;
    char* dove = spazio.Dove;
    char* storia = s.StoriaBlocchi.Coda(2 * righe.size());
    s.Margine.Coda(Largo); // room for what follows
    char* const margine = s.Margine.data();
    std::size_t larga = s.Margine.size();
    Numera(s.Numero, s.ContaRighe);
    std::uint64_t campo = 0;
    std::memcpy(&campo, s.Numero.data(), sizeof campo);
    // The reasons to stop are joined as bits, so that they make one branch.
    const auto se = [](bool questo) { return static_cast<unsigned>(questo); };
    const unsigned senzaCommenti = se(s.TogliCommenti == 1);
    std::size_t fatte = 0;
    for (const RigaSorgente& riga : righe) {
        const Disegno& disegno = Disegni[riga.Quale];
        const char* const testo = riga.Letta.Testo;
        const std::size_t lunga = riga.Letta.Lunga;
        const unsigned commento = se(testo[0] == '\'') & (senzaCommenti | se(testo[1] == '*'));
        // Length and first byte are enough: a false hit only leaves the line to ElencaRiga.
        const unsigned riparte = se(lunga == FineControlli.size()) & se(testo[0] == FineControlli[0]);
        // Also every class without a row: its Taglia, Nessuno, is wider than any margin here.
        const unsigned stretta = se(larga < disegno.Taglia) | se(larga > Largo - 3);
        const unsigned pieno = se(static_cast<std::size_t>(fondo - dove) < lunga + Intorno);
        if ((commento | riparte | stretta | pieno) != 0) break;

        Avanza(campo);
        larga -= disegno.Taglia;
        std::memcpy(dove, &campo, 8);
        std::memcpy(dove + 8, "   ", 4);
        std::memcpy(dove + 11, margine, Largo);
        dove = Posa(dove + 11 + larga, disegno.Qui);
        std::memcpy(dove, testo, Fetta);
        if (lunga > Fetta) [[unlikely]]
            std::memcpy(dove + Fetta, testo + Fetta, lunga - Fetta);
        std::memcpy(dove + lunga, "\r\n", 2);
        dove += lunga + 2;
        Posa(margine + larga, disegno.Dopo);
        larga += disegno.Dopo.Quanti;
        if (larga < disegno.Minimo) [[unlikely]] {
            std::memset(margine + larga, ' ', disegno.Minimo - larga);
            larga = disegno.Minimo;
        }
        const CodiceBlocco& codice = CodiciBlocco[riga.Quale];
        std::memcpy(storia, codice.Cifre, 2);
        storia += codice.Quante;
        ++fatte;
    }
    if (fatte == 0) return 0;
    s.Canale.Stampato(2, static_cast<std::size_t>(dove - spazio.Dove));
    s.StoriaBlocchi.Fino(storia);
    s.Margine.Fino(margine + larga);
    std::memcpy(s.Numero.data(), &campo, sizeof campo);
    s.ContaRighe += static_cast<Lungo>(fatte);
    return fatte;
}

} // namespace morvella
