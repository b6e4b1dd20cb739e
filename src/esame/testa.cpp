// SPDX-License-Identifier: MIT
#include "esame/testa.h"

#include <algorithm>

#include "esame/caratteri.h"

namespace morvella::esame {

namespace {

// `riga` begins with `parola`, which is in lower case, and with a blank or nothing after it?
bool Comincia(std::string_view riga, std::string_view parola) noexcept {
    if (riga.size() < parola.size()) return false;
    for (std::size_t i = 0; i < parola.size(); ++i) {
        const char c = riga[i];
        if ((c >= 'A' && c <= 'Z' ? c | 32 : c) != parola[i]) return false;
    }
    return riga.size() == parola.size() || Bianco(riga[parola.size()]);
}

std::string_view Senza(std::string_view s) noexcept {
    while (!s.empty() && Bianco(s.front())) s.remove_prefix(1);
    while (!s.empty() && Bianco(s.back())) s.remove_suffix(1);
    return s;
}

char Dopo(std::string_view riga, std::size_t quanti) noexcept {
    const std::string_view resto = Senza(riga.substr(quanti));
    return resto.empty() ? '\0' : resto.front();
}

bool Versione(std::string_view riga) noexcept { return Comincia(riga, "version") && Cifra(Dopo(riga, 7)); }

// "Attribute VB_Name = ...": a line of code, wherever it stands.
bool Attributo(std::string_view riga) noexcept {
    if (!Comincia(riga, "attribute")) return false;
    const std::string_view nome = Senza(riga.substr(9));
    return nome.size() > 3 && (nome[0] | 32) == 'v' && (nome[1] | 32) == 'b' && nome[2] == '_' &&
           nome.find('=') != nome.npos;
}

bool Oggetto(std::string_view riga) noexcept {
    if (riga.size() > 6 && riga[6] == '=') return Comincia(riga.substr(0, 6), "object");
    return Comincia(riga, "object") && Dopo(riga, 6) == '=';
}

Blocco Apre(std::string_view riga) noexcept {
    if (Comincia(riga, "begin")) return Dopo(riga, 5) == '=' ? Blocco::Nessuno : Blocco::Begin;
    if (Comincia(riga, "beginproperty"))
        return Dopo(riga, 13) == '=' ? Blocco::Nessuno : Blocco::BeginProperty;
    return Blocco::Nessuno;
}

Blocco Chiude(std::string_view riga) noexcept {
    if (riga.size() == 3 && Comincia(riga, "end")) return Blocco::Begin;
    if (riga.size() == 11 && Comincia(riga, "endproperty")) return Blocco::BeginProperty;
    return Blocco::Nessuno;
}

struct Livello {
    Blocco Cosa;
    std::uint32_t Riga, Colonna;
};

class Lettore {
  public:
    explicit Lettore(std::vector<Reperto>& reperti) : reperti_(reperti) {}

    // False for the line that is code.
    bool Passa(std::string_view riga, std::uint32_t numero, std::uint32_t colonna) {
        if (const Blocco cosa = Apre(riga); cosa != Blocco::Nessuno) {
            livelli_.push_back({cosa, numero, colonna});
            return true;
        }
        if (const Blocco cosa = Chiude(riga); cosa != Blocco::Nessuno) {
            Togli(cosa, numero, colonna);
            return true;
        }
        if (livelli_.empty()) return riga.empty() || Oggetto(riga);
        return !Attributo(riga);
    }

    void Finisci(std::uint32_t riga, std::string_view trovato) {
        if (!livelli_.empty()) Aperto(livelli_.back(), riga, trovato);
    }

  private:
    void Togli(Blocco cosa, std::uint32_t riga, std::uint32_t colonna) {
        std::size_t i = livelli_.size();
        if (cosa == Blocco::Begin)
            while (i > 0 && livelli_[i - 1].Cosa != cosa) --i;
        if (i == 0 || livelli_[i - 1].Cosa != cosa) {
            reperti_.push_back({.Quale = Tipo::SenzaApertura,
                                .Cosa = cosa,
                                .Riga = riga,
                                .Colonna = colonna,
                                .Nota = riga,
                                .Atteso = {},
                                .Trovato = Chiusura(cosa)});
            return;
        }
        for (; livelli_.size() > i; livelli_.pop_back()) Aperto(livelli_.back(), riga, Chiusura(cosa));
        livelli_.pop_back();
    }

    void Aperto(const Livello& livello, std::uint32_t nota, std::string_view trovato) {
        reperti_.push_back({.Quale = Tipo::Aperto,
                            .Cosa = livello.Cosa,
                            .Riga = livello.Riga,
                            .Colonna = livello.Colonna,
                            .Nota = nota,
                            .Atteso = Chiusura(livello.Cosa),
                            .Trovato = trovato});
    }

    std::vector<Reperto>& reperti_;
    std::vector<Livello> livelli_;
};

} // namespace

Testa LeggiTesta(std::string_view bytes, std::vector<Reperto>& reperti) {
    Lettore lettore(reperti);
    bool dentro = false;
    std::uint32_t numero = 0;
    for (std::size_t da = 0; da < bytes.size();) {
        const std::size_t eol = std::min(bytes.find('\n', da), bytes.size());
        std::string_view riga = bytes.substr(da, eol - da);
        if (da == 0 && riga.starts_with("\xEF\xBB\xBF")) riga.remove_prefix(3);
        riga = Senza(riga);
        ++numero;
        if (!dentro) {
            if (!riga.empty() && !Versione(riga)) return {};
            dentro = !riga.empty();
        } else if (!lettore.Passa(riga, numero,
                                  static_cast<std::uint32_t>(riga.data() - bytes.data() - da) + 1)) {
            lettore.Finisci(numero, "Attribute");
            return {da, numero};
        }
        da = eol + 1;
    }
    if (!dentro) return {};
    lettore.Finisci(numero, "fine file");
    return {bytes.size(), numero + 1};
}

} // namespace morvella::esame
