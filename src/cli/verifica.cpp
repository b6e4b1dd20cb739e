// SPDX-License-Identifier: MIT
#include "cli/verifica.h"

#include <algorithm>
#include <map>

#include "listing/decodifica.h"
#include "shell/cartella.h"
#include "verifica/verifica.h"

namespace morvella::cli {

namespace {

// A rewritten copy and the rows that may have written it, in their order: rows that differ in their
// directories alone write one file, and the last one stays.
struct Copia {
    Testo Percorso;
    std::vector<Lungo> Voci;
};

class Copie {
  public:
    explicit Copie(Corsa& c) : c_(c), lavoro_(c.Progetto + "\\Appoggio") {
        for (Lungo i = 0; i < c.S.File1.ListCount(); ++i) {
            const Scheda cosa = c.S.File.Trova(Sorgente(i)).Cosa;
            if (cosa.Tipo == TipoVoce::File) sorgenti_.push_back(cosa.Chi);
        }
    }

    Testo Sorgente(Lungo voce) const { return c_.Progetto + "\\" + c_.S.File1.List(voce); }

    /// Whether the row has any copy.
    bool Aggiungi(Lungo voce) {
        const Testo& riga = c_.S.File1.List(voce);
        if (Len(riga) < 4) return false;
        const Testo base(BaseDiVoce(riga));
        if (Metti(voce, lavoro_ + "\\" + base + ".txt")) {
            Metti(voce, lavoro_ + "\\" + riga);
            return true;
        }
        // A row whose directory is missing in Appoggio has its text flat there, and no more.
        const std::size_t barra = base.find_last_of('\\');
        return barra != Testo::npos && Metti(voce, lavoro_ + "\\" + base.substr(barra + 1) + ".txt");
    }

    const std::vector<Copia>& Tutte() const { return copie_; }

  private:
    bool Metti(Lungo voce, const Testo& percorso) {
        const Trovato file = c_.S.File.Trova(percorso);
        if (file.Cosa.Tipo != TipoVoce::File) return false;
        // A row that climbs out of Appoggio may lead to a source.
        if (std::find(sorgenti_.begin(), sorgenti_.end(), file.Cosa.Chi) != sorgenti_.end()) return false;
        const auto [qui, nuova] = posti_.try_emplace(file.Percorso, copie_.size());
        if (nuova) copie_.push_back({percorso, {}});
        std::vector<Lungo>& voci = copie_[qui->second].Voci;
        if (voci.empty() || voci.back() != voce) voci.push_back(voce);
        return true;
    }

    Corsa& c_;
    Testo lavoro_;
    std::vector<Identita> sorgenti_;
    std::map<std::string, std::size_t> posti_; // into copie_
    std::vector<Copia> copie_;
};

std::string Conto(std::uint64_t n, const char* uno, const char* molti) {
    return std::to_string(n) + " " + (n == 1 ? uno : molti);
}

void Racconta(Corsa& c, const Copia& copia, Lungo voce, const verifica::Diversita& d) {
    const std::string sorgente =
        c.SorgenteDiVoce(c.S.File1.List(voce)) + (d.RigaSorgente ? ":" + std::to_string(d.RigaSorgente) : "");
    const auto detta = [](std::string_view riga) { return MostrabileUtf8(Utf8Da1252(riga), false); };
    c.Stampa(c.Breve(copia.Percorso) + ":" + std::to_string(d.RigaCopia) + ": diverso da " + sorgente);
    c.Stampa("  atteso:  " + (d.DiTroppo ? "(fine del file)" : detta(d.Attesa)));
    c.Stampa("  trovato: " + (d.Manca ? "(fine del file)" : detta(d.Trovata)));
}

} // namespace

std::string LeggiFile(Archivio& archivio, Vista percorso) {
    const Trovato file = archivio.Trova(percorso);
    const auto aperto = archivio.ApriLettura(file, percorso);
    // One byte more than it had shows the end, if the file has not grown since.
    std::string bytes(static_cast<std::size_t>(file.Cosa.Bytes) + 1, '\0');
    std::size_t letti = 0;
    while (const std::size_t n = aperto->Leggi(bytes.data() + letti, bytes.size() - letti)) {
        letti += n;
        if (letti == bytes.size()) bytes.resize(bytes.size() * 2);
    }
    bytes.resize(letti);
    return bytes;
}

bool VerificaCopie(Corsa& c) {
    Copie copie(c);
    std::uint64_t senza = 0;
    for (const Lungo voce : c.Lavorate) {
        if (copie.Aggiungi(voce)) continue;
        ++senza;
        if (!c.Chiesto.Silenzioso)
            c.Fronte.Di("Avviso: " + TraVirgolette(c.S.File1.List(voce)) + " non ha copie riscritte.");
    }
    const bool intestazione = c.S.Check1 == 1 && !c.S.Text1.empty();
    verifica::Conti conti;
    std::uint64_t diverse = 0;
    bool illeggibili = false;
    std::string bytes;
    Lungo letta = -1; // the row whose bytes they are: most have two copies
    for (const Copia& copia : copie.Tutte()) {
        try {
            const std::string scritta = LeggiFile(c.S.File, copia.Percorso);
            verifica::Esito esito;
            for (std::size_t i = copia.Voci.size(); i-- > 0;) {
                const Testo& riga = c.S.File1.List(copia.Voci[i]);
                if (letta != copia.Voci[i]) bytes = LeggiFile(c.S.File, copie.Sorgente(copia.Voci[i]));
                letta = copia.Voci[i];
                const verifica::Regole regole{.Form = verifica::NomeDiForm(riga),
                                              .TogliCommenti = c.S.TogliCommenti == 1,
                                              .Intestazione = intestazione ? Vista(c.S.Text1) : Vista(),
                                              .Lf = c.Chiesto.Lf};
                esito = verifica::Verifica(bytes, scritta, regole);
                if (!esito.Diversa) break;
            }
            conti += esito.Contate;
            if (!esito.Diversa) continue;
            ++diverse;
            Racconta(c, copia, letta, *esito.Diversa);
        } catch (const Errore& e) {
            illeggibili = true;
            c.Fronte.Di("morvella-cli: errore " + std::to_string(e.Numero) + ", " +
                        Utf8Da1252(Descrizione(e.Numero)) + " (" + c.Nativo(e.File) + ")");
        }
    }
    const std::uint64_t quante = copie.Tutte().size();
    if (diverse > 0)
        c.Fronte.Di("morvella-cli: " + Conto(diverse, "copia non è", "copie non sono") +
                    " quello che il riordino fa del sorgente.\n  Le opzioni devono essere quelle con cui è "
                    "stato riscritto (--togli-commenti, --intestazione-procedure, --lf), e il sorgente non "
                    "dev'essere cambiato da allora.");
    if (quante == 0 && !c.Lavorate.empty())
        c.Fronte.Di(
            "morvella-cli: non c'è nessuna copia da verificare: prima ci vuole «morvella-cli riordina».");
    if (!c.Chiesto.Silenzioso) {
        const auto n = [](std::uint64_t numero) { return std::to_string(numero); };
        c.Stampa(Conto(quante, "copia verificata", "copie verificate") + ", " +
                 Conto(diverse, "diversa", "diverse") + "; righe dei sorgenti: " + n(conti.Righe));
        c.Stampa("  uguali: " + n(conti.Uguali) + " di codice, " + n(conti.Intatte) + " di testata");
        c.Stampa("  tolte: " + n(conti.VuoteTolte) + " vuote, " + n(conti.AsterischiTolti) +
                 " che cominciano con '*, " + n(conti.CommentiTolti) + " di commento, " +
                 Conto(conti.AttributiTolti, "attributo", "attributi"));
        c.Stampa("  aggiunte: " + n(conti.VuoteMesse) + " vuote, " + n(conti.Riquadri) + " di riquadro, " +
                 n(conti.Chiusura) + " di chiusura, " +
                 Conto(conti.Intestazione, "intestazione", "intestazioni"));
    }
    return diverse == 0 && !illeggibili && (quante > 0 || c.Lavorate.empty());
}

} // namespace morvella::cli
