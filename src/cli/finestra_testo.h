// SPDX-License-Identifier: MIT
// cli/finestra_testo.h
//
// The front end without a window. Questions are asked on the terminal or answered beforehand, the bars
// become one line on standard error, and what the window does not show is reported.
#pragma once

#include <chrono>
#include <map>
#include <optional>

#include "cli/rapporto.h"
#include "cli/rilievi.h"
#include "cli/terminale.h"

namespace morvella::cli {

/// What the engines wrote for one row.
struct Prodotto {
    Testo Voce; // its text
    std::vector<Testo> File;
    Lungo Righe = 0;
};

class FinestraTesto : public Finestra {
  public:
    explicit FinestraTesto(Ambiente& ambiente) : ambiente_(ambiente) {}

    int MsgBox(Vista testo, int flag, Vista titolo) override;
    void Beep() override;
    void Avvia(Vista comando, int finestra) override;
    void RidisegnaLabel2() override;
    void RidisegnaBarra(const Barra& barra) override;
    void AggiornaDir1() override {}
    void PortaFuocoSuText1() override {}
    void MotoreFermato(const Arresto& arresto) override;
    void ErroreSaltato(const Errore& causa) override;
    void FileScritto(Lungo voce, Vista percorso, Lungo righe) override;
    bool SegueMargine() const override { return Sorveglia; }
    void MargineMosso(const PassoMargine& passo) override { Trovato.Osserva(passo, TestoDiVoce(passo.Voce)); }

    /// Records an error that nobody trapped, at this row of File1 (-1: none).
    void ErroreFinale(Vista operazione, const Errore& causa, Lungo voce);
    /// Erases the progress line.
    void TogliProgresso();
    /// Writes UTF-8 to standard error in the terminal's encoding, on a line of its own.
    void Di(const std::string& utf8);

    Stato* S = nullptr; // whose bars are shown and whose paths are opened
    /// The answer to questions. Without one a person is asked; where nobody can be asked the answer is
    /// No, and that is reported.
    std::optional<bool> Risposta;
    std::optional<bool> RispostaIndice; // the same for the question that ends the documentation
    bool SenzaProcessi = false;
    bool Silenzioso = false;
    bool Sorveglia = false; // collect findings about the sources

    Cronaca Avvenuto;
    std::map<Testo, Arresto> Fermi; // what ended each engine, until taken out
    Sorvegliante Trovato;
    std::vector<Prodotto> Prodotti; // in order of their first file

  private:
    Testo TestoDiVoce(Lungo voce) const;
    void Disegna();

    Ambiente& ambiente_;
    std::map<std::pair<Lungo, Lungo>, std::size_t> posti_; // into Prodotti, by version of the list and row
    std::string disegnato_;
    std::chrono::steady_clock::time_point quando_{};
};

} // namespace morvella::cli
