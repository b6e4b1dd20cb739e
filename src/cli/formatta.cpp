// SPDX-License-Identifier: MIT
#include "cli/formatta.h"

#include <ostream>
#include <unordered_set>

#include "cli/programma.h"
#include "cli/verifica.h"
#include "esame/esame.h"
#include "listing/decodifica.h"
#include "shell/cartella.h"

namespace morvella::cli {

namespace {

std::string Conto(std::uint64_t n, const char* uno, const char* molti) {
    return std::to_string(n) + " " + (n == 1 ? uno : molti);
}

class Formattazione {
  public:
    Formattazione(const Richiesta& richiesta, Ambiente& ambiente)
        : richiesta_(richiesta),
          ambiente_(ambiente),
          archivio_(ambiente.Macchina),
          partenza_(ambiente.Macchina.DirectoryCorrente()) {}

    int Fai() {
        std::vector<DaFormattare> sorgenti;
        guasti_ = !TrovaIngressi(richiesta_.Resto, ambiente_, archivio_, sorgenti,
                                 [&](const std::string& frase) { Di(frase); });
        if (!richiesta_.In.empty())
            in_ = archivio_.Aggancia(Gancio::Lavoro, ambiente_.Macchina.Assoluto(richiesta_.In));
        for (const DaFormattare& sorgente : sorgenti) {
            try {
                Uno(sorgente);
            } catch (const Errore& e) {
                guasti_ = true;
                Di("morvella-cli: " + sorgente.Detto + ": errore " + std::to_string(e.Numero) + ", " +
                   Utf8Da1252(Descrizione(e.Numero)) +
                   (e.File.empty() || e.File == sorgente.Sorgente ? "" : " (" + Nativo(e.File) + ")"));
                if (e.Numero == ErrPermesso)
                    Di("  Un sorgente non si tocca: scegliere un'altra directory con --in.");
            }
        }
        Narra(Conto(moduli_, "modulo", "moduli") + ", " + Conto(righe_, "riga", "righe") + ": " +
              Conto(cambiati_, richiesta_.SoloVerifica ? "da cambiare" : "cambiato",
                    richiesta_.SoloVerifica ? "da cambiare" : "cambiati") +
              ", " + Conto(uguali_, "già a posto", "già a posto") + ", " + std::to_string(rilevati_) +
              " con rilievi");
        if (rilevati_ > 0 || (richiesta_.SoloVerifica && cambiati_ > 0)) return Trovato;
        return guasti_ ? Fermato : Fatto;
    }

  private:
    void Uno(const DaFormattare& sorgente) {
        const std::string bytes = LeggiFile(archivio_, sorgente.Sorgente);
        const esame::Esame esame = esame::Esamina(bytes);
        const bool buono = esame.Rilievi.empty();
        ++moduli_;
        righe_ += esame.Righe;
        if (!buono) {
            ++rilevati_;
            const esame::Rilievo& primo = esame.Rilievi.front();
            const std::string_view cosa = esame::NomeBlocco(primo.Cosa);
            Stampa(
                sorgente.Detto + ":" + std::to_string(primo.Riga) + ":" + std::to_string(primo.Colonna) +
                ": non formattato: " + std::string(esame::RegolaDi(primo.Quale).Nome) +
                (cosa.empty() ? "" : " ") + std::string(cosa) + " [" +
                std::string(esame::RegolaDi(primo.Quale).Id) + "]" +
                (esame.Rilievi.size() == 1 ? "" : ", il primo di " + std::to_string(esame.Rilievi.size())));
        }
        const std::string copia = buono ? formato::Formatta(bytes, richiesta_.Stile) : bytes;
        const std::uint32_t cambiate = formato::RigheCambiate(bytes, copia);
        if (buono) ++(cambiate > 0 ? cambiati_ : uguali_);
        if (richiesta_.Differenze)
            Differenze(
                formato::Differenze(bytes, copia, Bytes("a/", sorgente.Detto), Bytes("b/", sorgente.Detto)));
        if (richiesta_.SoloVerifica) {
            if (!Provata(bytes, copia, buono)) return Smentita(sorgente, "");
            if (cambiate > 0)
                Narra("  " + sorgente.Detto + ": " +
                      Conto(cambiate, "riga cambierebbe", "righe cambierebbero"));
            return;
        }
        const Testo uscita = Posto(sorgente);
        if (uscita.empty()) return;
        auto aperto = archivio_.ApriScrittura(archivio_.Trova(uscita), uscita);
        bool provata = false;
        try {
            aperto->Scrivi(copia.data(), copia.size());
            aperto->Chiudi();
            provata = Provata(bytes, LeggiFile(archivio_, uscita), buono);
        } catch (const Errore&) {
            aperto.reset();
            archivio_.Kill(uscita); // half a copy, or one that nobody could read back
            throw;
        }
        if (!provata) {
            archivio_.Kill(uscita);
            return Smentita(sorgente, ", e la copia è stata tolta");
        }
        Narra("  " + sorgente.Detto + "  -> " + Nativo(uscita) + " (" +
              (buono ? Conto(cambiate, "riga cambiata", "righe cambiate") : "com'è") + ")");
    }

    // What was written against the source, line by line, and laid out once more: the same bytes.
    bool Provata(const std::string& sorgente, const std::string& scritta, bool buono) const {
        if (!buono) return scritta == sorgente;
        return !formato::Confronta(sorgente, scritta, richiesta_.Stile.SenzaCode) &&
               formato::Formatta(scritta, richiesta_.Stile) == scritta;
    }

    void Smentita(const DaFormattare& sorgente, const char* seguito) {
        guasti_ = true;
        Di("morvella-cli: " + sorgente.Detto + ": la copia non ha superato la prova" + seguito + ".");
    }

    // Makes the place of a copy and gives its path; "" where another source of this run has taken it.
    Testo Posto(const DaFormattare& sorgente) {
        Testo uscita = in_.empty() ? FaiFormattati(sorgente.Directory) : FaiDirectory(in_);
        if (!scritti_.insert(LCase(uscita + "\\" + sorgente.Nome)).second) {
            guasti_ = true;
            Di("morvella-cli: " + sorgente.Detto + ": un altro sorgente di questo nome ha già scritto " +
               Nativo(uscita + "\\" + sorgente.Nome));
            return {};
        }
        std::size_t da = 0;
        for (std::size_t barra; (barra = sorgente.Nome.find('\\', da)) != Testo::npos; da = barra + 1)
            uscita = FaiDirectory(uscita + "\\" + sorgente.Nome.substr(da, barra - da));
        uscita += "\\" + sorgente.Nome.substr(da);
        return uscita;
    }

    Testo FaiDirectory(const Testo& directory) {
        if (archivio_.Trova(directory).Cosa.Tipo != TipoVoce::Directory) archivio_.MkDir(directory);
        return directory;
    }

    // A work directory has its marker: without a file in it the pages could not be written.
    Testo FaiFormattati(const Testo& progetto) {
        const Testo lavoro = progetto + "\\Appoggio";
        if (archivio_.Trova(lavoro).Cosa.Tipo != TipoVoce::Directory) {
            archivio_.MkDir(lavoro);
            const Testo marca = lavoro + "\\OK.LOG";
            const auto aperto = archivio_.ApriScrittura(archivio_.Trova(marca), marca);
            const Testo frase = Testo(FraseOkLog) + "\r\n";
            aperto->Scrivi(frase.data(), frase.size());
            aperto->Chiudi();
        }
        return FaiDirectory(lavoro + "\\Formattati");
    }

    // As an editor wants it: relative to where the program was started.
    std::string Nativo(const Testo& percorso) {
        const std::string nativo = archivio_.Trova(percorso).Percorso;
        return nativo.starts_with(partenza_ + "/") ? nativo.substr(partenza_.size() + 1) : nativo;
    }
    static std::string Bytes(const char* davanti, const std::string& nome) {
        return davanti + Bytes1252DaUtf8(nome).value_or(nome);
    }

    // To a person as text; to a program byte for byte, so that the diff can be applied.
    void Differenze(const std::string& testo) {
        ambiente_.Uscita << (ambiente_.UscitaTerminale
                                 ? ambiente_.Codifica(MostrabileUtf8(Utf8Da1252(testo), true))
                                 : testo);
    }
    void Di(const std::string& utf8) {
        ambiente_.Errori << ambiente_.Codifica(MostrabileUtf8(utf8, true)) << '\n';
    }
    void Stampa(const std::string& utf8) {
        std::ostream& dove = richiesta_.Differenze ? ambiente_.Errori : ambiente_.Uscita;
        dove << ambiente_.Codifica(MostrabileUtf8(utf8, true)) << '\n';
    }
    void Narra(const std::string& utf8) {
        if (!richiesta_.Silenzioso) Stampa(utf8);
    }

    const Richiesta& richiesta_;
    Ambiente& ambiente_;
    Archivio archivio_;
    std::string partenza_; // the directory where the program was started
    Testo in_;             // the directory for the copies, "" for each project's own
    std::unordered_set<Testo> scritti_;
    bool guasti_ = false;
    std::uint64_t moduli_ = 0, righe_ = 0, cambiati_ = 0, uguali_ = 0, rilevati_ = 0;
};

} // namespace

int FormattaIngressi(const Richiesta& richiesta, Ambiente& ambiente) {
    return Formattazione(richiesta, ambiente).Fai();
}

} // namespace morvella::cli
