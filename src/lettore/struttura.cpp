// SPDX-License-Identifier: MIT
#include "lettore/struttura.h"

#include <algorithm>
#include <fstream>
#include <utility>

namespace morvella::lettore {

namespace {

// A block ends at whichever limit comes first, so that neither many short lines nor a few long
// ones make it large.
constexpr Lungo RighePerBlocco = 1024;
constexpr std::uint64_t BytesPerBlocco = std::uint64_t{256} * 1024;
constexpr std::size_t Boccone = std::size_t{1024} * 1024; // read at a time by Carica
constexpr std::size_t Limite = Struttura::LimiteRiga;

struct FineRiga {
    std::size_t Quanti; // bytes of the line
    std::size_t Passo;  // bytes of the line and its end
    bool Spezzata;
};

// Finds the end of the first line of `resto`. Nothing if more bytes are needed; with `tutto` there
// are no more.
std::optional<FineRiga> TrovaFine(Vista resto, bool lf, bool tutto) {
    const Vista davanti = resto.substr(0, Limite + 2);
    for (std::size_t da = 0;;) {
        const std::size_t n = davanti.find('\n', da);
        if (n == Vista::npos) break;
        if (n > 0 && davanti[n - 1] == '\r') return FineRiga{n - 1, n + 1, false};
        if (lf && n <= Limite) return FineRiga{n, n + 1, false};
        da = n + 1;
    }
    if (davanti.size() == Limite + 2) return FineRiga{Limite, Limite, true};
    if (tutto) return FineRiga{davanti.size(), davanti.size(), false};
    return std::nullopt;
}

} // namespace

// The file, open for reading.
class Struttura::Lettura {
  public:
    Lettura(const std::filesystem::path& percorso, std::uint64_t& contati) : contati_(contati) {
        std::error_code guasto;
        const auto stato = std::filesystem::status(percorso, guasto);
        if (stato.type() == std::filesystem::file_type::not_found) throw Errore(ErrFileAssente);
        // A pipe, for one, would block forever.
        if (guasto || stato.type() != std::filesystem::file_type::regular) throw Errore(ErrAccesso);
        file_.open(percorso, std::ios::binary);
        if (!file_) throw Errore(ErrAccesso);
    }
    void Vai(std::uint64_t dove) {
        file_.clear();
        file_.seekg(static_cast<std::streamoff>(dove));
    }
    std::size_t Leggi(char* dove, std::size_t quanti) {
        file_.read(dove, static_cast<std::streamsize>(quanti));
        const auto letti = static_cast<std::size_t>(file_.gcount());
        contati_ += letti;
        if (file_.bad()) throw Errore(ErrDispositivo);
        return letti;
    }

  private:
    std::ifstream file_;
    std::uint64_t& contati_;
};

void Struttura::Carica() {
    Lettura lettura(percorso_, bytesLetti_);
    Indice nuovo;
    nuovo.Lf = chiestoLf_;
    std::error_code guasto;
    nuovo.Quando = std::filesystem::last_write_time(
        percorso_, guasto); // before reading, so that a later write is noticed
    Raccolta raccolta(nuovo.Errori, nuovo.Procedure);

    Testo tampone(Boccone + Limite + 2, '\0');
    std::size_t pieno = 0;
    for (bool primo = true, tutto = false; !tutto; primo = false) {
        const std::size_t letti = lettura.Leggi(tampone.data() + pieno, Boccone);
        tutto = letti < Boccone;
        pieno += letti;
        const Vista qui(tampone.data(), pieno);
        if (primo && !nuovo.Lf) nuovo.Lf = qui.find("\r\n") == Vista::npos && qui.find('\n') != Vista::npos;
        const bool conTab = qui.find('\t') != Vista::npos;

        std::size_t da = 0;
        while (da < pieno) {
            const auto fine = TrovaFine(qui.substr(da), nuovo.Lf, tutto);
            if (!fine) break;
            const std::uint64_t dove = nuovo.Bytes + da;
            if (nuovo.Passi.empty() || nuovo.Righe - nuovo.Passi.back().Riga >= RighePerBlocco ||
                dove - nuovo.Passi.back().Da >= BytesPerBlocco)
                nuovo.Passi.push_back({nuovo.Righe, dove, nuovo.UltimoNumero});
            const Vista riga = qui.substr(da, fine->Quanti);
            nuovo.Colonne = std::max(nuovo.Colonne, conTab ? ColonnaDiByte(riga, Len(riga)) : Len(riga));
            nuovo.UltimoNumero = std::max(nuovo.UltimoNumero, raccolta.Guarda(riga, nuovo.Righe));
            ++nuovo.Righe;
            da += fine->Passo;
        }
        tampone.erase(0, da);
        tampone.resize(Boccone + Limite + 2);
        pieno -= da;
        nuovo.Bytes += da;
    }
    nuovo.Passi.shrink_to_fit();
    indice_ = std::move(nuovo);
    for (Blocco& blocco : blocchi_) blocco.Riga = -1;
}

void Struttura::Svuota() {
    indice_ = {};
    for (Blocco& blocco : blocchi_) blocco.Riga = -1;
}

bool Struttura::Cambiata() const {
    std::error_code guasto;
    const auto bytes = std::filesystem::file_size(percorso_, guasto);
    if (guasto || bytes != indice_.Bytes) return true;
    const auto quando = std::filesystem::last_write_time(percorso_, guasto);
    return guasto || quando != indice_.Quando;
}

std::size_t Struttura::PassoDi(Lungo riga) const {
    const auto dopo = std::upper_bound(indice_.Passi.begin(), indice_.Passi.end(), riga,
                                       [](Lungo r, const Passo& passo) { return r < passo.Riga; });
    return static_cast<std::size_t>(std::max<Lungo>(dopo - indice_.Passi.begin() - 1, 0));
}

void Struttura::Taglia(Blocco& blocco) const {
    blocco.Righe.clear();
    const Vista bytes = blocco.Bytes;
    for (std::size_t da = 0; da < bytes.size();) {
        const FineRiga fine = *TrovaFine(bytes.substr(da), indice_.Lf, true);
        blocco.Righe.push_back(
            {static_cast<std::uint32_t>(da), static_cast<std::uint32_t>(fine.Quanti), fine.Spezzata});
        da += fine.Passo;
        // Blocks end between lines, so a line without an end was split here.
        if (da == bytes.size() && fine.Passo == fine.Quanti && !blocco.Ultimo)
            blocco.Righe.back().Spezzata = true;
    }
}

void Struttura::LeggiBlocco(std::size_t passo, Blocco& blocco) {
    const auto& passi = indice_.Passi;
    const std::uint64_t fine = passo + 1 < passi.size() ? passi[passo + 1].Da : indice_.Bytes;
    blocco.Riga = passi[passo].Riga;
    blocco.Ultimo = passo + 1 == passi.size();
    blocco.Bytes.resize(static_cast<std::size_t>(fine - passi[passo].Da));
    std::size_t letti = 0;
    try {
        Lettura lettura(percorso_, bytesLetti_);
        lettura.Vai(passi[passo].Da);
        letti = lettura.Leggi(blocco.Bytes.data(), blocco.Bytes.size());
    } catch (const Errore&) { // the file has gone since Carica
        letti = 0;
    }
    blocco.Bytes.resize(letti);
}

const Struttura::Inizio* Struttura::Cerca(Lungo i, const Blocco*& blocco) {
    if (i < 0 || i >= indice_.Righe) return nullptr;
    const std::size_t passo = PassoDi(i);
    const Lungo prima = indice_.Passi[passo].Riga;
    auto quale =
        std::find_if(blocchi_.begin(), blocchi_.end(), [&](const Blocco& b) { return b.Riga == prima; });
    if (quale == blocchi_.end()) {
        quale = std::min_element(blocchi_.begin(), blocchi_.end(),
                                 [](const Blocco& a, const Blocco& b) { return a.Usato < b.Usato; });
        LeggiBlocco(passo, *quale);
        Taglia(*quale);
    }
    quale->Usato = ++usi_;
    blocco = &*quale;
    const auto nel = static_cast<std::size_t>(i - prima);
    return nel < quale->Righe.size() ? &quale->Righe[nel] : nullptr;
}

Vista Struttura::Riga(Lungo i) {
    const Blocco* blocco = nullptr;
    const Inizio* inizio = Cerca(i, blocco);
    return inizio ? Vista(blocco->Bytes).substr(inizio->Da, inizio->Quanti) : Vista();
}

bool Struttura::Spezzata(Lungo i) {
    const Blocco* blocco = nullptr;
    const Inizio* inizio = Cerca(i, blocco);
    return inizio && inizio->Spezzata;
}

Lungo Struttura::ProceduraDi(Lungo riga) const {
    const auto dopo = std::upper_bound(indice_.Procedure.begin(), indice_.Procedure.end(), riga,
                                       [](Lungo r, const Procedura& p) { return r < p.Riga; });
    return dopo - indice_.Procedure.begin() - 1;
}

Lungo Struttura::NumeroDi(Vista riga) {
    if (CampoDiRiga(riga) != 11) return 0;
    Lungo numero = 0;
    for (const char c : riga.substr(0, 6)) numero = numero * 10 + (c - '0');
    return numero;
}

std::optional<Lungo> Struttura::RigaDiNumero(Lungo numero) {
    if (indice_.UltimoNumero == 0) return std::nullopt;
    numero = std::clamp<Lungo>(numero, 1, indice_.UltimoNumero);
    const auto dopo = std::partition_point(indice_.Passi.begin(), indice_.Passi.end(),
                                           [&](const Passo& passo) { return passo.NumeroPrima < numero; });
    for (Lungo i = (dopo - 1)->Riga; i < indice_.Righe; ++i)
        if (NumeroDi(Riga(i)) >= numero) return i;
    return std::nullopt; // the file has changed since Carica
}

std::optional<Posizione> Struttura::Trova(const Ago& ago, Posizione da, bool avanti) {
    if (ago.Vuoto() || ago.Introvabile() || indice_.Passi.empty()) return std::nullopt;
    Blocco blocco;
    Testo piegati;
    std::vector<Porzione> fette;
    const auto passi = static_cast<Lungo>(indice_.Passi.size());
    for (auto passo = static_cast<Lungo>(PassoDi(da.Riga)); passo >= 0 && passo < passi;
         passo += avanti ? 1 : -1) {
        LeggiBlocco(static_cast<std::size_t>(passo), blocco);
        blocco.Righe.clear();
        Piega(blocco.Bytes, piegati);
        Lungo tagliata = -1;
        for (std::size_t n = avanti ? 0 : Testo::npos;;) {
            n = avanti ? piegati.find(ago.Bytes(), n) : piegati.rfind(ago.Bytes(), n);
            if (n == Testo::npos) break;
            if (blocco.Righe.empty()) Taglia(blocco);
            const auto dopo = std::upper_bound(blocco.Righe.begin(), blocco.Righe.end(), n,
                                               [](std::size_t b, const Inizio& in) { return b < in.Da; });
            const Inizio& inizio = *(dopo - 1);
            const Lungo nel = dopo - 1 - blocco.Righe.begin();
            const Posizione qui{blocco.Riga + nel, static_cast<Lungo>(n - inizio.Da)};
            const bool intero = n + ago.Bytes().size() <= std::size_t{inizio.Da} + inizio.Quanti;
            if (intero && (avanti ? qui >= da : qui < da)) {
                const Vista riga = Vista(blocco.Bytes).substr(inizio.Da, inizio.Quanti);
                if (ago.Ambiguo() && tagliata != nel) TagliaRiga(riga, fette);
                tagliata = nel;
                if (!ago.Ambiguo() || ago.Qui(riga, fette, n - inizio.Da)) return qui;
            }
            if (!avanti && n == 0) break;
            n = avanti ? n + 1 : n - 1;
        }
    }
    return std::nullopt;
}

Appiglio Struttura::Prendi(Posizione dove) const {
    Appiglio appiglio{dove, {}, 0, 0};
    const Lungo quale = ProceduraDi(dove.Riga);
    if (quale < 0) return appiglio;
    const auto& procedure = indice_.Procedure;
    const auto questa = procedure.begin() + quale;
    appiglio.Testa = questa->Testa;
    appiglio.Scarto = dove.Riga - questa->Riga;
    appiglio.Volta = std::count_if(procedure.begin(), questa,
                                   [&](const Procedura& p) { return p.Testa == questa->Testa; });
    return appiglio;
}

Posizione Struttura::Ritrova(const Appiglio& appiglio) const {
    Posizione dove = appiglio.Dove;
    Lungo volta = appiglio.Volta;
    if (!appiglio.Testa.empty())
        for (const Procedura& p : indice_.Procedure)
            if (p.Testa == appiglio.Testa && volta-- == 0) dove.Riga = p.Riga + appiglio.Scarto;
    dove.Riga = std::clamp<Lungo>(dove.Riga, 0, std::max<Lungo>(indice_.Righe - 1, 0));
    return dove;
}

std::size_t Struttura::BytesTenuti() const noexcept {
    std::size_t somma = indice_.Passi.capacity() * sizeof(Passo);
    for (const Blocco& blocco : blocchi_)
        somma += blocco.Bytes.capacity() + blocco.Righe.capacity() * sizeof(Inizio);
    return somma;
}

Lungo ColonnaDiByte(Vista riga, Lungo byte) {
    byte = std::clamp<Lungo>(byte, 0, Len(riga));
    const Vista davanti = riga.substr(0, static_cast<std::size_t>(byte));
    Lungo spostamento = 0;
    for (std::size_t n = 0; (n = davanti.find('\t', n)) != Vista::npos; ++n) {
        const Lungo colonna = static_cast<Lungo>(n) + spostamento;
        spostamento += Tabulazione - 1 - colonna % Tabulazione;
    }
    return byte + spostamento;
}

Lungo ByteDiColonna(Vista riga, Lungo colonna) {
    Lungo spostamento = 0;
    for (std::size_t n = 0; (n = riga.find('\t', n)) != Vista::npos; ++n) {
        const Lungo qui = static_cast<Lungo>(n) + spostamento;
        if (colonna <= qui) break;
        const Lungo dopo = (qui / Tabulazione + 1) * Tabulazione;
        if (colonna < dopo) return static_cast<Lungo>(n);
        spostamento = dopo - 1 - static_cast<Lungo>(n);
    }
    return std::clamp<Lungo>(colonna - spostamento, 0, Len(riga));
}

} // namespace morvella::lettore
