// SPDX-License-Identifier: MIT
#include "formato/formato.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "esame/scanner.h"
#include "esame/testa.h"
#include "formato/livelli.h"

namespace morvella::formato {

namespace {

bool Rientro(char c) noexcept { return c == ' ' || c == '\t'; }

// Where a string is not closed the blanks that end the line belong to it.
bool StringaAperta(std::string_view riga) noexcept {
    if (riga.find('"') == riga.npos) return false;
    esame::Scanner s(riga);
    s.ApriLogica();
    for (;;) {
        const esame::Gettone g = s.Leggi();
        if (g.Tipo == esame::TipoGettone::FineLogica || g.Tipo == esame::TipoGettone::Commento) return false;
        if (g.Tipo != esame::TipoGettone::Stringa) continue;
        const std::string_view testo = s.Testo(g);
        if (std::count(testo.begin(), testo.end(), '"') % 2 != 0) return true;
    }
}

bool ConSegno(std::string_view riga) noexcept {
    const std::size_t testo = riga.find_first_not_of(" \t");
    return testo != riga.npos && riga.substr(testo).starts_with("\xEF\xBB\xBF");
}

class Scrittura {
  public:
    Scrittura(std::string_view bytes, const Opzioni& opzioni)
        : bytes_(bytes), opzioni_(opzioni), tab_(opzioni.Tab ? opzioni.Passo : 4) {
        copia_.reserve(bytes.size() + bytes.size() / 8);
    }

    void Testa(std::size_t fine) { copia_.append(bytes_, 0, fine); }

    void Scrivi(const Linea& linea) {
        const char* p = bytes_.data() + linea.Inizio;
        std::int64_t spostata = 0; // of the first line, in columns
        for (std::uint32_t i = 0; i < linea.Righe; ++i) {
            const char* const fine = FineRiga(p);
            // A UTF-8 mark: nothing leads the line after it, and one must not come to stand first.
            const bool segno = p == bytes_.data() && ConSegno({p, fine});
            if (linea.Ferma || segno) {
                copia_.append(p, fine);
            } else {
                const char* testo = p;
                std::int64_t larga = 0;
                for (; testo != fine && Rientro(*testo); ++testo)
                    larga += *testo == '\t' ? tab_ - larga % tab_ : 1;
                if (i == 0) {
                    const std::int64_t nuova = std::int64_t{linea.Livello} * opzioni_.Passo;
                    spostata = nuova - larga;
                }
                ScriviRiga(testo, fine, Colonna(larga, spostata, i > 0 && testo != fine && *testo == '_'),
                           testo - p);
            }
            p = fine;
        }
    }

    std::string Copia() { return std::move(copia_); }

  private:
    const char* FineRiga(const char* p) const noexcept {
        const char* const termine = bytes_.data() + bytes_.size();
        const void* eol = std::memchr(p, '\n', static_cast<std::size_t>(termine - p));
        return eol ? static_cast<const char*>(eol) + 1 : termine;
    }

    // In a comment a blank before a lone "_" makes it a continuation, and none makes it text.
    static std::int64_t Colonna(std::int64_t larga, std::int64_t spostata, bool trattino) noexcept {
        const std::int64_t nuova = std::max<std::int64_t>(larga + spostata, 0);
        if (!trattino) return nuova;
        return larga == 0 ? 0 : std::max<std::int64_t>(nuova, 1);
    }

    void ScriviRiga(const char* testo, const char* fine, std::int64_t colonna, std::ptrdiff_t rientro) {
        const char* eol = fine;
        if (eol != testo && eol[-1] == '\n') {
            --eol;
            if (eol != testo && eol[-1] == '\r') --eol;
        }
        if (testo == fine) { // blanks at the end of the file: without them it had a line less
            copia_.append(testo - rientro, static_cast<std::size_t>(rientro));
            return;
        }
        if (testo != eol) { // an empty line stays empty
            const auto larga = static_cast<std::size_t>(colonna);
            const std::size_t tab = opzioni_.Tab ? larga / static_cast<std::size_t>(tab_) : 0;
            copia_.append(tab, '\t');
            copia_.append(larga - tab * static_cast<std::size_t>(tab_), ' ');
        }
        const char* coda = eol;
        if (opzioni_.SenzaCode) {
            while (coda != testo && Rientro(coda[-1])) --coda;
            const bool cr = coda != testo && coda[-1] == '\r'; // it must not become a part of the line end
            if (coda != eol && (cr || StringaAperta({testo, eol}))) coda = eol;
        }
        copia_.append(testo, coda);
        copia_.append(eol, fine);
    }

    std::string_view bytes_;
    const Opzioni& opzioni_;
    std::int64_t tab_; // columns that a tab leads to a multiple of
    std::string copia_;
};

} // namespace

std::string Formatta(std::string_view bytes, const Opzioni& opzioni) {
    if (bytes.size() >= std::numeric_limits<std::uint32_t>::max()) return std::string(bytes);
    std::vector<esame::Reperto> reperti;
    const esame::Testa testa = esame::LeggiTesta(bytes, reperti);
    const std::size_t inizio = std::min(testa.Fine, bytes.size());
    Scrittura scrittura(bytes, opzioni);
    scrittura.Testa(inizio);
    for (const Linea& linea : Livelli(bytes, opzioni).Trova(inizio, testa.Riga)) scrittura.Scrivi(linea);
    return scrittura.Copia();
}

} // namespace morvella::formato
