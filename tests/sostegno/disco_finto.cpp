// SPDX-License-Identifier: MIT
#include "sostegno/disco_finto.h"

#include <algorithm>
#include <cstring>

namespace morvella::prove {

namespace {

std::string Sopra(const std::string& percorso) {
    const std::size_t barra = percorso.find_last_of('/');
    return barra == 0 || barra == std::string::npos ? "/" : percorso.substr(0, barra);
}

} // namespace

class FileFinto : public FileAperto {
  public:
    FileFinto(DiscoFinto& disco, std::string percorso, std::shared_ptr<DiscoFinto::Voce> voce)
        : disco_(disco), percorso_(std::move(percorso)), voce_(std::move(voce)) {}

    std::size_t Leggi(char* dove, std::size_t n) override {
        if (disco_.PrimaDiLeggere) disco_.PrimaDiLeggere(percorso_);
        disco_.Chiamata("Leggi", percorso_);
        const std::size_t letti = std::min(n, voce_->Bytes.size() - std::min(letti_, voce_->Bytes.size()));
        if (letti > 0) std::memcpy(dove, voce_->Bytes.data() + letti_, letti);
        letti_ += letti;
        return letti;
    }

    void Scrivi(const char* da, std::size_t n) override {
        disco_.Chiamata("Scrivi", percorso_);
        const std::size_t cabe = disco_.SpazioLibero ? std::min(n, *disco_.SpazioLibero) : n;
        voce_->Bytes.append(da, cabe);
        if (disco_.SpazioLibero) *disco_.SpazioLibero -= cabe;
        if (cabe < n) throw Errore(ErrDiscoPieno);
    }

    void Svuota() override {
        disco_.Chiamata("Svuota", percorso_);
        voce_->Bytes.clear();
    }

    void Chiudi() override { disco_.Chiamata("Chiudi", percorso_); }

  private:
    DiscoFinto& disco_;
    std::string percorso_;
    std::shared_ptr<DiscoFinto::Voce> voce_;
    std::size_t letti_ = 0;
};

DiscoFinto::DiscoFinto(const std::string& directory) : corrente_(directory) {
    Nuova("/", true);
    FaiDirectory(directory);
}

DiscoFinto::Voce& DiscoFinto::Nuova(const std::string& percorso, bool directory) {
    auto& voce = voci_[percorso];
    voce = std::make_shared<Voce>();
    voce->Directory = directory;
    voce->Numero = ++numeri_;
    voce->Modificato = ++tempo_;
    if (percorso != "/") Toccata(percorso);
    return *voce;
}

void DiscoFinto::Toccata(const std::string& percorso) {
    const auto sopra = voci_.find(Sopra(percorso));
    if (sopra != voci_.end()) sopra->second->Modificato = ++tempo_;
}

void DiscoFinto::FaiDirectory(const std::string& percorso) {
    if (voci_.contains(percorso)) return;
    FaiDirectory(Sopra(percorso));
    Nuova(percorso, true);
}

void DiscoFinto::Metti(const std::string& percorso, std::string bytes) {
    FaiDirectory(Sopra(percorso));
    Nuova(percorso, false).Bytes = std::move(bytes);
}

const std::string& DiscoFinto::Leggi(const std::string& percorso) const {
    const Voce* voce = Trova(percorso);
    if (!voce || voce->Directory) throw std::runtime_error("no such file: " + percorso);
    return voce->Bytes;
}

std::map<std::string, std::string> DiscoFinto::TuttiIFile() const {
    std::map<std::string, std::string> file;
    for (const auto& [percorso, voce] : voci_)
        if (!voce->Directory) file[percorso] = voce->Bytes;
    return file;
}

const DiscoFinto::Voce* DiscoFinto::Trova(const std::string& percorso) const {
    std::string senza = percorso;
    while (senza.size() > 1 && senza.back() == '/') senza.pop_back();
    const auto voce = voci_.find(senza);
    return voce == voci_.end() ? nullptr : voce->second.get();
}

void DiscoFinto::Fallisci(const std::string& operazione, const std::string& fine, int numero, int volte) {
    guasti_.push_back({operazione, fine, numero, volte});
}

void DiscoFinto::FallisciAllaChiamata(int chiamata, int numero) {
    chiamate_ = 0;
    fallisceAlla_ = chiamata;
    fallisceCon_ = numero;
}

std::optional<int> DiscoFinto::PrendiGuasto(const std::string& operazione, const std::string& percorso) {
    for (Guasto& guasto : guasti_) {
        if (guasto.Volte <= 0 || guasto.Operazione != operazione || !percorso.ends_with(guasto.Fine))
            continue;
        --guasto.Volte;
        return guasto.Numero;
    }
    return std::nullopt;
}

void DiscoFinto::Chiamata(const std::string& operazione, const std::string& percorso) {
    const std::string questa = operazione + " " + percorso;
    const bool blocco = operazione == "Leggi" || operazione == "Scrivi";
    ripetute_ = questa == ultima_ && !blocco ? ripetute_ + 1 : 0;
    ultima_ = questa;
    if (ripetute_ >= 100) throw SenzaFine("repeated for ever: " + questa);
    if (++chiamate_ == fallisceAlla_) throw Errore(fallisceCon_);
    if (const auto numero = PrendiGuasto(operazione, percorso)) throw Errore(*numero);
}

Scheda DiscoFinto::Esamina(const std::string& chiesto) {
    ++Esami;
    const std::string percorso = chiesto.starts_with('/') ? chiesto : corrente_ + '/' + chiesto;
    Scheda cosa;
    if (const auto numero = PrendiGuasto("Esamina", percorso)) {
        cosa.Errore = *numero;
        return cosa;
    }
    if (const Voce* voce = Trova(percorso)) {
        cosa.Tipo = voce->Directory ? TipoVoce::Directory : TipoVoce::File;
        cosa.Chi = {1, voce->Numero};
        cosa.Bytes = voce->Bytes.size();
        cosa.Modificato = voce->Modificato;
        if (!voce->Directory) cosa.Cambiato = Cambiato;
        if (const auto quando = Modificati.find(percorso); quando != Modificati.end())
            cosa.Quando = 1 + std::distance(Modificati.begin(), quando);
    }
    return cosa;
}

std::vector<std::string> DiscoFinto::Elenca(const std::string& directory) {
    ++Elenchi;
    if (const auto numero = PrendiGuasto("Elenca", directory)) throw Errore(*numero);
    const std::string davanti = directory.back() == '/' ? directory : directory + "/";
    std::vector<std::string> nomi;
    for (const auto& [percorso, voce] : voci_)
        if (percorso.size() > davanti.size() && percorso.starts_with(davanti) &&
            percorso.find('/', davanti.size()) == std::string::npos)
            nomi.push_back(percorso.substr(davanti.size()));
    std::reverse(nomi.begin(), nomi.end()); // no order is promised
    return nomi;
}

std::unique_ptr<FileAperto> DiscoFinto::ApriLettura(const std::string& percorso) {
    if (PrimaDiAprire) PrimaDiAprire(percorso);
    Chiamata("ApriLettura", percorso);
    const auto voce = voci_.find(percorso);
    if (voce == voci_.end()) throw Errore(ErrFileAssente);
    return std::make_unique<FileFinto>(*this, percorso, voce->second);
}

std::unique_ptr<FileAperto> DiscoFinto::ApriScrittura(const std::string& percorso) {
    Chiamata("ApriScrittura", percorso);
    if (SoloDaLeggere(percorso)) throw Errore(ErrAccesso);
    const Voce* sopra = Trova(Sopra(percorso));
    if (!sopra || !sopra->Directory) throw Errore(ErrPercorso);
    if (voci_.contains(percorso))
        voci_[percorso]->Bytes.clear();
    else
        Nuova(percorso, false);
    return std::make_unique<FileFinto>(*this, percorso, voci_[percorso]);
}

void DiscoFinto::CreaDirectory(const std::string& percorso) {
    Chiamata("CreaDirectory", percorso);
    if (SoloDaLeggere(percorso)) throw Errore(ErrAccesso);
    if (voci_.contains(percorso)) throw Errore(ErrAccesso);
    Nuova(percorso, true);
}

void DiscoFinto::CambiaDirectory(const std::string& percorso) {
    Chiamata("CambiaDirectory", percorso);
    corrente_ = percorso;
}

void DiscoFinto::Copia(const std::string& da, const std::string& a) {
    Chiamata("Copia", a);
    if (SoloDaLeggere(a)) throw Errore(ErrAccesso);
    const std::string bytes = Leggi(da);
    if (!voci_.contains(a)) Nuova(a, false);
    std::string& scritti = voci_[a]->Bytes;
    scritti = bytes.substr(0, SpazioLibero ? std::min(bytes.size(), *SpazioLibero) : bytes.size());
    if (SpazioLibero) *SpazioLibero -= scritti.size();
    if (scritti.size() < bytes.size()) throw Errore(ErrDiscoPieno);
}

void DiscoFinto::Cancella(const std::string& percorso) {
    Chiamata("Cancella", percorso);
    if (SoloDaLeggere(percorso)) throw Errore(ErrAccesso);
    voci_.erase(percorso);
    Toccata(percorso);
}

bool DiscoFinto::SoloDaLeggere(const std::string& percorso) const {
    return std::any_of(SolaLettura.begin(), SolaLettura.end(),
                       [&](const std::string& d) { return (percorso + "/").starts_with(d + "/"); });
}

bool DiscoFinto::Scrivibile(const std::string& directory) {
    return Disco::Scrivibile(directory) && !SoloDaLeggere(directory);
}

Istante DiscoFinto::Adesso() {
    Chiamata("Adesso", "");
    return Orologio;
}

// Quando is the place in Modificati, from 1.
Istante DiscoFinto::UltimaModifica(const Scheda& cosa) {
    return cosa.Quando == 0 ? Orologio : std::next(Modificati.begin(), cosa.Quando - 1)->second;
}

void DiscoFinto::Avvia(const std::string& programma, const std::string& percorso, int) {
    Chiamata("Avvia", percorso);
    Avviati.push_back(programma + "|" + percorso);
}

std::vector<morvella::Unita> DiscoFinto::ElencaUnita() {
    std::vector<morvella::Unita> tutte;
    for (const auto& [lettera, directory] : Unita) tutte.push_back({lettera, directory, directory});
    return tutte;
}

unsigned long DiscoFinto::GetShortPathNameA(const std::string& percorso, char* buffer, unsigned long misura) {
    const auto corto = PercorsiCorti.find(percorso);
    if (corto == PercorsiCorti.end()) return 0;
    const std::string& testo = corto->second;
    if (testo.size() + 1 > misura) return static_cast<unsigned long>(testo.size() + 1);
    std::memcpy(buffer, testo.c_str(), testo.size() + 1);
    return static_cast<unsigned long>(testo.size());
}

} // namespace morvella::prove
