// SPDX-License-Identifier: MIT
#include "lettore/procedura.h"

#include <algorithm>
#include <utility>

#include "lettore/struttura.h"
#include "scan/classifica.h"

namespace morvella::lettore {

namespace {

constexpr std::size_t TestaTenuta = 256; // bytes kept of a head

bool Toglie(Vista& testo, Vista parola) {
    if (!IniziaPer(testo, parola)) return false;
    testo = Trim(testo.substr(parola.size()));
    return true;
}

} // namespace

Lungo Raccolta::Guarda(Vista riga, Lungo i) {
    const std::size_t blanks = BlanksDavanti(riga);
    const char primo = blanks < riga.size() ? riga[blanks] : ' ';
    if (primo == '*' && Guarda(BordoDiRiquadro(riga), blanks)) return 0;
    if (primo == '#' && RigaErrore(riga)) {
        bordi_ = 0;
        ErroreIn(i);
        return 0;
    }
    const int bordi = std::exchange(bordi_, 0);
    if (blanks != 0 && blanks < 5) return 0; // no field begins there: saves the full test
    const std::size_t campo = CampoDiRiga(riga);
    if (campo == 0) return 0;
    const Lungo numero = campo == 11 ? Struttura::NumeroDi(riga) : 0;
    const Vista dopo = riga.substr(campo);
    const std::size_t rientro = BlanksDavanti(dopo);
    const Vista testo = dopo.substr(rientro);
    if (senzaTesta_) { // the line after an error line is the procedure's end
        procedure_.back().Testa = testo.substr(0, TestaTenuta);
        procedure_.back().Numero = numero;
        senzaTesta_ = false;
    }
    if (bordi == 2 && rientro == rientroBordi_ + 2) {
        const Classe classe = ClassificaRiga(testo);
        if (classe == RigaSub || classe == RigaFunction || classe == RigaProperty) {
            procedure_.push_back({i, numero, Testo(testo.substr(0, TestaTenuta))});
            dentro_ = true;
        }
    } else if (!testo.empty() && (testo[0] == 'E' || testo[0] == 'e')) {
        const Classe classe = ClassificaRiga(testo);
        if (classe == RigaEndSub || classe == RigaEndFunction || classe == RigaEndProperty) dentro_ = false;
    }
    return numero;
}

// A box begins with a line of asterisks and an empty line, both at the same margin.
bool Raccolta::Guarda(Bordo bordo, std::size_t blanks) {
    if (bordo == Bordo::Nessuno) return false;
    if (bordo == Bordo::Asterischi) {
        bordi_ = 1;
        rientroBordi_ = blanks;
    } else {
        bordi_ = bordi_ == 1 && blanks == rientroBordi_ ? 2 : 0;
    }
    return true;
}

void Raccolta::ErroreIn(Lungo i) {
    errori_.push_back(i);
    if (dentro_) {
        procedure_.back().Aperta = true;
        return;
    }
    // Some heads get no box, but the balance test covers their procedures all the same.
    procedure_.push_back({i, 0, {}, false, true});
    senzaTesta_ = true;
}

Testo NomeBreve(const Procedura& procedura) {
    const Testo& testa = procedura.Testa;
    if (!procedura.Riquadro) return testa + " (testa senza riquadro)";
    Vista resto = Trim(testa);
    Toglie(resto, "private ") || Toglie(resto, "public ") || Toglie(resto, "friend ");
    Toglie(resto, "static ");
    Testo genere;
    if (Toglie(resto, "property ")) {
        const std::size_t parola = std::min(resto.find(' '), resto.size());
        genere = " (Property " + Testo(resto.substr(0, parola)) + ")";
        resto = Trim(resto.substr(parola));
    } else if (!Toglie(resto, "sub ") && !Toglie(resto, "function ")) {
        return testa; // "subtotal = 1" gets a box too
    }
    const Vista nome = Trim(resto.substr(0, resto.find('(')));
    return nome.empty() ? testa : Testo(nome) + genere;
}

} // namespace morvella::lettore
