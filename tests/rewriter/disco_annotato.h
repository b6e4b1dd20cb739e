// SPDX-License-Identifier: MIT
// tests/rewriter/disco_annotato.h
//
// The double with a record of its calls, one "Operazione /percorso" for each that it counts,
// and with examinations and directory readings that can be made to fail one by one.
#pragma once

#include "sostegno/disco_finto.h"

namespace morvella::prove {

class DiscoAnnotato : public DiscoFinto {
  public:
    using DiscoFinto::DiscoFinto;

    std::vector<std::string> Chiamate;
    /// The examination and the reading of a directory with this number, from 1; 0 none.
    int FallisceEsame = 0, FallisceElenco = 0, Numero = 0;

    std::unique_ptr<FileAperto> ApriLettura(const std::string& p) override {
        Annota("ApriLettura", p);
        return std::make_unique<Seguito>(*this, p, DiscoFinto::ApriLettura(p));
    }
    std::unique_ptr<FileAperto> ApriScrittura(const std::string& p) override {
        Annota("ApriScrittura", p);
        return std::make_unique<Seguito>(*this, p, DiscoFinto::ApriScrittura(p));
    }
    void CreaDirectory(const std::string& p) override {
        Annota("CreaDirectory", p);
        DiscoFinto::CreaDirectory(p);
    }
    void CambiaDirectory(const std::string& p) override {
        Annota("CambiaDirectory", p);
        DiscoFinto::CambiaDirectory(p);
    }
    void Copia(const std::string& da, const std::string& a) override {
        Annota("Copia", a);
        DiscoFinto::Copia(da, a);
    }
    void Cancella(const std::string& p) override {
        Annota("Cancella", p);
        DiscoFinto::Cancella(p);
    }
    Istante Adesso() override {
        Annota("Adesso", "");
        return DiscoFinto::Adesso();
    }
    Scheda Esamina(const std::string& p) override {
        Scheda cosa = DiscoFinto::Esamina(p);
        if (Esami == FallisceEsame) cosa = {.Chi = {}, .Errore = Numero};
        return cosa;
    }
    std::vector<std::string> Elenca(const std::string& d) override {
        std::vector<std::string> nomi = DiscoFinto::Elenca(d);
        if (Elenchi == FallisceElenco) throw Errore(Numero);
        return nomi;
    }

  private:
    struct Seguito : FileAperto {
        Seguito(DiscoAnnotato& disco, std::string percorso, std::unique_ptr<FileAperto> vero)
            : Disco(disco), Percorso(std::move(percorso)), Vero(std::move(vero)) {}
        std::size_t Leggi(char* dove, std::size_t n) override {
            Disco.Annota("Leggi", Percorso);
            return Vero->Leggi(dove, n);
        }
        void Scrivi(const char* da, std::size_t n) override {
            Disco.Annota("Scrivi", Percorso);
            Vero->Scrivi(da, n);
        }
        void Svuota() override {
            Disco.Annota("Svuota", Percorso);
            Vero->Svuota();
        }
        void Chiudi() override {
            Disco.Annota("Chiudi", Percorso);
            Vero->Chiudi();
        }
        DiscoAnnotato& Disco;
        std::string Percorso;
        std::unique_ptr<FileAperto> Vero;
    };

    void Annota(const char* operazione, const std::string& percorso) {
        Chiamate.push_back(std::string(operazione) + " " + percorso);
    }
};

} // namespace morvella::prove
