// SPDX-License-Identifier: MIT
#include "cli/esamina.h"

#include <algorithm>
#include <ostream>
#include <unordered_set>

#include "cli/avvisi.h"
#include "cli/base.h"
#include "cli/formati.h"
#include "cli/ingressi.h"
#include "cli/json.h"
#include "cli/lettura.h"
#include "cli/programma.h"
#include "esame/esame.h"
#include "listing/decodifica.h"

namespace morvella::cli {

namespace {

// The text that leads to a platform path: names that Windows-1252 cannot hold are remembered.
Testo TestoDi(Archivio& archivio, const std::string& percorso) {
    for (std::size_t inizio = 0; inizio < percorso.size();) {
        const std::size_t fine = std::min(percorso.find('/', inizio), percorso.size());
        archivio.Ricorda(percorso.substr(inizio, fine - inizio));
        inizio = fine + 1;
    }
    return Archivio::TestoDiPercorso(percorso);
}

class EsameDiIngressi {
  public:
    EsameDiIngressi(const Richiesta& chiesto, Ambiente& intorno)
        : chiesto_(chiesto),
          intorno_(intorno),
          disco_(intorno.Macchina),
          archivio_(disco_),
          formato_(FormatoDi(chiesto.Formato)),
          ingressi_(archivio_, Radice(), chiesto.Ricorsivo) {}

    int Esegui() {
        const std::string uscita = Destinazione("uscita", chiesto_.Uscita);
        const std::string nuova = Destinazione("scrivi-base", chiesto_.ScriviBase);
        const std::string vecchia = chiesto_.Base.empty() ? "" : disco_.Assoluto(chiesto_.Base);
        if (!uscita.empty() && (uscita == nuova || uscita == vecchia))
            throw UsoErrato{"--uscita e la base sono lo stesso file: " + chiesto_.Uscita};
        if (!vecchia.empty())
            base_ = Base::Leggi(std::string(LetturaIntera(disco_).Leggi(vecchia)), chiesto_.Base);
        for (const std::string& argomento : chiesto_.Resto) ingressi_.Aggiungi(argomento);
        referto_.Guasti = ingressi_.Guasti();
        Proteggi({uscita, nuova}, vecchia == nuova ? "" : vecchia);
        EsaminaModuli();
        // The base holds what is known too, so it is made before that is taken away.
        const std::vector<Riscontro> tutti = nuova.empty() ? std::vector<Riscontro>() : referto_.Riscontri;
        if (!vecchia.empty()) Confronta();
        for (const Guasto& g : referto_.Guasti) DiGuasto(g);
        Avvisa();
        referto_.Stato = !referto_.Riscontri.empty() ? Trovato : !referto_.Guasti.empty() ? Fermato : Fatto;
        bool scritto = nuova.empty() || Scrivi("scrivi-base", nuova, Base::Scritta(tutti, base_));
        scritto = Racconta(uscita) && scritto;
        return scritto || referto_.Stato != Fatto ? referto_.Stato : Fermato;
    }

  private:
    void Di(const std::string& utf8) {
        intorno_.Errori << intorno_.Codifica(MostrabileUtf8(utf8, true)) << '\n';
    }

    std::string Radice() {
        if (chiesto_.Radice.empty()) return disco_.DirectoryCorrente();
        const std::string radice = disco_.Assoluto(chiesto_.Radice);
        if (disco_.Esamina(radice).Tipo != TipoVoce::Directory)
            throw UsoErrato{"--radice: la directory «" + chiesto_.Radice + "» non c'è"};
        return radice;
    }

    // Where an option says to write, "" for nowhere or standard output. A slip like "-u Progetto.vbp"
    // must not cost a file of a project, examined or not.
    std::string Destinazione(const std::string& opzione, const std::string& scritta) {
        if (scritta.empty() || (scritta == "-" && opzione == "uscita")) return "";
        const std::string percorso = disco_.Assoluto(scritta);
        if (HaNomeDiSorgente(percorso) && disco_.Esamina(percorso).Esiste())
            throw UsoErrato{"--" + opzione + ": " + scritta +
                            " è un file di un progetto e non si sovrascrive"};
        return percorso;
    }

    // Puts everything that was read out of the file layer's reach, and asks before the work whether
    // what is to be written can be.
    void Proteggi(const std::vector<std::string>& uscite, const std::string& base) {
        if (std::all_of(uscite.begin(), uscite.end(), [](const std::string& u) { return u.empty(); })) return;
        // From here on a text leads where it says, and not to the directory of the last project.
        archivio_.Aggancia(Gancio::Progetto, "/");
        std::vector<Testo> letti;
        for (const std::string& file : ingressi_.Moduli()) letti.push_back(TestoDi(archivio_, file));
        for (const std::string& file : ingressi_.Elenchi()) letti.push_back(TestoDi(archivio_, file));
        if (!base.empty()) letti.push_back(TestoDi(archivio_, base));
        archivio_.Proteggi(letti);
        for (const std::string& uscita : uscite) {
            if (uscita.empty()) continue;
            const Testo testo = TestoDi(archivio_, uscita);
            archivio_.RifiutaScrittura(archivio_.Trova(testo), uscita);
        }
    }

    void EsaminaModuli() {
        LetturaIntera lettura(disco_);
        for (const std::string& modulo : ingressi_.Moduli()) {
            const std::string detto = ingressi_.Detto(modulo);
            try {
                const std::string_view bytes = lettura.Leggi(modulo);
                esame::Esame esame = esame::Esamina(bytes);
                ++referto_.Moduli;
                referto_.Righe += esame.Righe;
                if (!esame.Rilievi.empty())
                    Registra(detto, bytes, std::move(esame.Rilievi), referto_.Riscontri);
                if (!chiesto_.Base.empty()) esaminati_.insert(Utf8Valido(detto));
            } catch (const Errore& e) {
                referto_.Guasti.push_back({detto, "", e.Numero});
            }
        }
    }

    void Confronta() {
        const std::string radice = Radice();
        referto_.Base = base_.Confronta(referto_.Riscontri, esaminati_, [&](const std::string& file) {
            return disco_.Esamina(disco_.Assoluto(Intero(file) ? file : radice + "/" + file)).Esiste();
        });
    }

    void DiGuasto(const Guasto& g) {
        Di("morvella-cli: " + g.File + (g.Da.empty() ? "" : ", nominato da " + g.Da) + ": errore " +
           std::to_string(g.Numero) + ", " + Utf8Da1252(Descrizione(g.Numero)));
    }

    void Avvisa() {
        if (ingressi_.Moduli().empty() && referto_.Guasti.empty())
            Di("Avviso: fra gli ingressi non c'è nessun sorgente da esaminare.");
        const bool fuori =
            std::any_of(referto_.Riscontri.begin(), referto_.Riscontri.end(),
                        [](const Riscontro& r) { return r.File.starts_with("../") || Intero(r.File); });
        if (fuori && (formato_ == Formato::Sarif || formato_ == Formato::Github))
            Di("Avviso: ci sono rilievi in file fuori dalla radice dei percorsi: chi legge questo formato "
               "può non trovarli. Con --radice se ne nomina un'altra.");
    }

    // The result, and the totals where a person looks: beside a text, and never in another format.
    bool Racconta(const std::string& uscita) {
        const bool colori =
            uscita.empty() && intorno_.UscitaTerminale && !intorno_.SenzaColori && !chiesto_.SenzaColori;
        std::string testo;
        switch (formato_) {
        case Formato::Testo: testo = ComeTesto(referto_, colori); break;
        case Formato::Json: testo = ComeJson(referto_); break;
        case Formato::Sarif: testo = ComeSarif(referto_); break;
        case Formato::Github: testo = ComeGithub(referto_); break;
        }
        if (uscita.empty()) {
            intorno_.Uscita << (formato_ == Formato::Testo ? intorno_.Codifica(testo) : testo);
            intorno_.Uscita.flush();
            if (formato_ != Formato::Testo) intorno_.Errori << intorno_.Codifica(Totali(referto_));
            return true;
        }
        if (!Scrivi("uscita", uscita, testo)) return false;
        intorno_.Uscita << intorno_.Codifica(Totali(referto_));
        return true;
    }

    bool Scrivi(const std::string& opzione, const std::string& percorso, const std::string& bytes) {
        try {
            const Testo testo = TestoDi(archivio_, percorso);
            const auto file = archivio_.ApriScrittura(archivio_.Trova(testo), testo);
            file->Scrivi(bytes.data(), bytes.size());
            file->Chiudi();
            return true;
        } catch (const Errore& e) {
            Di("morvella-cli: errore " + std::to_string(e.Numero) + ", " + Utf8Da1252(Descrizione(e.Numero)) +
               " (--" + opzione + " " + percorso + ")");
            return false;
        }
    }

    const Richiesta& chiesto_;
    Ambiente& intorno_;
    Disco& disco_;
    Archivio archivio_;
    Formato formato_;
    Ingressi ingressi_;
    Base base_;
    Referto referto_;
    std::unordered_set<std::string> esaminati_;
};

} // namespace

int EsaminaIngressi(const Richiesta& richiesta, Ambiente& ambiente) {
    return EsameDiIngressi(richiesta, ambiente).Esegui();
}

} // namespace morvella::cli
