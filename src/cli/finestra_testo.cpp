// SPDX-License-Identifier: MIT
#include "cli/finestra_testo.h"

#include <algorithm>
#include <istream>
#include <ostream>
#include <string>

#include "cli/opzioni.h"
#include "text/codifica.h"

namespace morvella::cli {

namespace {

// The text of a message box as a terminal shows it, one line each.
std::string TestoDiBox(const Stato& s, Vista testo) {
    std::string utf8 = s.File.Utf8DiTesto(testo);
    std::replace(utf8.begin(), utf8.end(), '\r', '\n');
    return utf8;
}

} // namespace

void FinestraTesto::Di(const std::string& utf8) {
    TogliProgresso();
    ambiente_.Errori << ambiente_.Codifica(ambiente_.ErroriTerminale ? MostrabileUtf8(utf8, true) : utf8)
                     << '\n';
}

int FinestraTesto::MsgBox(Vista testo, int flag, Vista titolo) {
    const bool domanda = flag == SiNoDomanda || flag == SiNoInformazione;
    const std::optional<bool>& prevista = flag == SiNoDomanda ? RispostaIndice : Risposta;
    int risposta = RispostaOk;
    if (!domanda) {
        if (!Silenzioso) Di(TestoDiBox(*S, testo));
    } else if (prevista) {
        risposta = *prevista ? RispostaSi : RispostaNo;
    } else if (ambiente_.IngressoTerminale) {
        TogliProgresso();
        ambiente_.Errori << ambiente_.Codifica(MostrabileUtf8(TestoDiBox(*S, testo), true)) << " [s/N] "
                         << std::flush;
        std::string detto;
        std::getline(ambiente_.Ingresso, detto);
        risposta = DiceSi(detto) ? RispostaSi : RispostaNo;
    } else {
        risposta = RispostaNo;
        if (!Silenzioso && flag == SiNoInformazione)
            Di(TestoDiBox(*S, testo) +
               "\nNessun terminale a cui chiederlo: la risposta è No (per rispondere Sì: --si).");
    }
    Avvenuto.Messaggi.push_back({Testo(testo), flag, Testo(titolo), risposta});
    return risposta;
}

void FinestraTesto::Beep() {
    if (ambiente_.ErroriTerminale) ambiente_.Errori << '\a' << std::flush;
}

void FinestraTesto::Avvia(Vista comando, int finestra) {
    Avvenuto.Processi.emplace_back(comando);
    if (SenzaProcessi) return;
    S->File.Shell(comando, finestra);
}

void FinestraTesto::RidisegnaLabel2() { Disegna(); }

void FinestraTesto::RidisegnaBarra(const Barra&) { Disegna(); }

// One line with the share of the run that is done and the file in work, at most twenty times a second.
void FinestraTesto::Disegna() {
    if (!ambiente_.ErroriTerminale || Silenzioso || !S || !S->Progress.Visible) return;
    const auto adesso = std::chrono::steady_clock::now();
    if (adesso - quando_ < std::chrono::milliseconds(50)) return;
    quando_ = adesso;

    const auto parte = [](const Barra& barra, Lungo valore) {
        return barra.Max > 0
                   ? std::clamp(static_cast<double>(valore) / static_cast<double>(barra.Max), 0.0, 1.0)
                   : 0.0;
    };
    double fatto = parte(S->Progress, S->Progress.Value);
    if (S->ProgressBar1.Visible && S->ProgressBar1.Max > 0)
        fatto = parte(S->ProgressBar1, S->ProgressBar1.Value - 1) +
                fatto / static_cast<double>(S->ProgressBar1.Max);
    constexpr int Larga = 30;
    const int piena = static_cast<int>(std::min(fatto, 1.0) * Larga);
    const Vista file = Vista(S->Label2).substr(S->Label2.find_last_of('\\') + 1);
    std::string riga = "[";
    riga.append(static_cast<std::size_t>(piena), '#').append(static_cast<std::size_t>(Larga - piena), '.');
    riga.append("] ").append(std::to_string(static_cast<int>(std::min(fatto, 1.0) * 100))).append("% ");
    const std::size_t posto = ambiente_.Colonne > riga.size() + 1 ? ambiente_.Colonne - riga.size() - 1 : 0;
    riga += Mostrabile(file.substr(0, posto));
    if (riga == disegnato_) return;
    ambiente_.Errori << "\r\x1b[K" << ambiente_.Codifica(riga) << std::flush;
    disegnato_ = riga;
}

void FinestraTesto::TogliProgresso() {
    if (disegnato_.empty()) return;
    ambiente_.Errori << "\r\x1b[K" << std::flush;
    disegnato_.clear();
}

void FinestraTesto::MotoreFermato(const Arresto& arresto) {
    Avvenuto.Errori.push_back(
        {Testo(arresto.Motore), arresto.Causa, false, TestoDiVoce(arresto.Voce), arresto.Riga});
    Fermi.insert_or_assign(Testo(arresto.Motore), arresto);
    if (Sorveglia) Trovato.Osserva(arresto, TestoDiVoce(arresto.Voce));
}

void FinestraTesto::ErroreSaltato(const Errore& causa) {
    Avvenuto.Errori.push_back({"ScriviDir", causa, false, {}, 0});
}

void FinestraTesto::ErroreFinale(Vista operazione, const Errore& causa, Lungo voce) {
    Avvenuto.Errori.push_back({Testo(operazione), causa, true, TestoDiVoce(voce), 0});
}

Testo FinestraTesto::TestoDiVoce(Lungo voce) const {
    return S && voce >= 0 && voce < S->File1.ListCount() ? S->File1.List(voce) : Testo();
}

void FinestraTesto::FileScritto(Lungo voce, Vista percorso, Lungo righe) {
    const auto [posto, nuovo] = posti_.try_emplace({S ? S->File1.Versione() : 0, voce}, Prodotti.size());
    // Every place has its row, even when memory ends between the two.
    if (nuovo) {
        try {
            Prodotti.push_back({TestoDiVoce(voce), {}, 0});
        } catch (...) {
            posti_.erase(posto);
            throw;
        }
    }
    Prodotto& prodotto = Prodotti[posto->second];
    const Testo file(percorso);
    if (std::find(prodotto.File.begin(), prodotto.File.end(), file) == prodotto.File.end())
        prodotto.File.push_back(file);
    prodotto.Righe = std::max(prodotto.Righe, righe);
}

} // namespace morvella::cli
