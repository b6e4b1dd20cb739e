// SPDX-License-Identifier: MIT
// tests/sostegno/disco_orologio.h
//
// The platform's backend with a stopped clock, so that whole runs give the same bytes on any day:
// 21/11/2026, 14:30:05.
#pragma once

#include "text/disco/disco.h"

namespace morvella::prove {

class DiscoOrologio : public Disco {
  public:
    Istante Ora{2026, 11, 21, 14, 30, 5};

    Scheda Esamina(const std::string& p) override { return vero_->Esamina(p); }
    std::vector<std::string> Elenca(const std::string& d) override { return vero_->Elenca(d); }
    std::unique_ptr<FileAperto> ApriLettura(const std::string& p) override { return vero_->ApriLettura(p); }
    std::unique_ptr<FileAperto> ApriScrittura(const std::string& p) override {
        return vero_->ApriScrittura(p);
    }
    void CreaDirectory(const std::string& p) override { vero_->CreaDirectory(p); }
    void CambiaDirectory(const std::string& p) override { vero_->CambiaDirectory(p); }
    std::string DirectoryCorrente() override { return vero_->DirectoryCorrente(); }
    std::string Assoluto(const std::string& p) override { return vero_->Assoluto(p); }
    void Copia(const std::string& da, const std::string& a) override { vero_->Copia(da, a); }
    void Collega(const std::string& da, const std::string& a) override { vero_->Collega(da, a); }
    void Cancella(const std::string& p) override { vero_->Cancella(p); }
    bool Legame(const std::string& p) override { return vero_->Legame(p); }
    bool Scrivibile(const std::string& d) override { return vero_->Scrivibile(d); }
    std::string DirectoryUtente() override { return vero_->DirectoryUtente(); }
    Istante Adesso() override { return Ora; }
    Istante UltimaModifica(const Scheda&) override { return Ora; }
    void Avvia(const std::string& a, const std::string& p, int f) override { vero_->Avvia(a, p, f); }
    bool DistingueMaiuscole() const override { return vero_->DistingueMaiuscole(); }

  private:
    std::unique_ptr<Disco> vero_ = DiscoReale();
};

} // namespace morvella::prove
