// SPDX-License-Identifier: MIT
// tests/sostegno/finestra_finta.h
//
// A window for tests: answers what it is told to and keeps what it hears.
#pragma once

#include "shell/state.h"

namespace morvella::prove {

class FinestraFinta : public Finestra {
  public:
    struct Passo {
        PassoMargine Come; // its Margine and Testo are gone
        Testo Linea;
    };
    struct Box {
        Testo Scritto;
        int Flag;
        Testo Titolo;
    };

    int MsgBox(Vista testo, int flag, Vista titolo) override {
        Box_.push_back({Testo(testo), flag, Testo(titolo)});
        return flag == SiNoDomanda || flag == SiNoInformazione ? Risposta : static_cast<int>(RispostaOk);
    }
    void Beep() override { ++Beeps; }
    void Avvia(Vista comando, int finestra) override {
        Processi.emplace_back(comando);
        StileProcesso = finestra;
    }
    void RidisegnaLabel2() override {
        if (S) Etichette.push_back(S->Label2);
    }
    void RidisegnaBarra(const Barra&) override { ++Barre; }
    void AggiornaDir1() override { ++Aggiornamenti; }
    void PortaFuocoSuText1() override { ++Fuochi; }
    void MotoreFermato(const Arresto& arresto) override { Arresti.push_back(arresto); }
    void ErroreSaltato(const Errore& causa) override { Saltati.push_back(causa); }
    void FileScritto(Lungo riga, Vista percorso, Lungo righe) override {
        Scritti.push_back(CStr(riga) + "|" + Testo(percorso) + "|" + CStr(righe));
    }
    bool SegueMargine() const override { return Segue; }
    void MargineMosso(const PassoMargine& passo) override { Passi.push_back({passo, Testo(passo.Testo)}); }

    const Stato* S = nullptr; // whose Label2 is recorded
    bool Segue = true;        // the listing's margin; without it most lines go another way
    int Risposta = RispostaNo;
    std::vector<Box> Box_;
    std::vector<Testo> Processi;
    int StileProcesso = 0;
    std::vector<Testo> Etichette;
    std::vector<Testo> Scritti; // "row|path|lines"
    std::vector<Arresto> Arresti;
    std::vector<Errore> Saltati;
    std::vector<Passo> Passi;
    int Beeps = 0;
    int Barre = 0;
    int Aggiornamenti = 0;
    int Fuochi = 0; // times that the focus went to Text1
};

} // namespace morvella::prove
