// SPDX-License-Identifier: MIT
#include "cli/formati.h"

#include <utility>

#include "cli/json.h"
#include "cli/opzioni.h"
#include "cli/spiegazioni.h"
#include "listing/decodifica.h"

namespace morvella::cli {

namespace {

std::string Conto(std::uint64_t n, const char* uno, const char* molti) {
    return std::to_string(n) + " " + (n == 1 ? uno : molti);
}

// A source line as a message quotes it, cut where it would drown the rest.
std::string Citata(Vista linea) {
    constexpr std::size_t Massimo = 80;
    return "«" + Mostrabile(linea.substr(0, Massimo)) + (linea.size() > Massimo ? "…»" : "»");
}

// What stands in the value of a property of a workflow command, or after its "::".
std::string PerGithub(const std::string& utf8, bool proprieta) {
    std::string testo;
    for (const char c : utf8) {
        if (c == '%')
            testo += "%25";
        else if (c == '\r')
            testo += "%0D";
        else if (c == '\n')
            testo += "%0A";
        else if (proprieta && c == ':')
            testo += "%3A";
        else if (proprieta && c == ',')
            testo += "%2C";
        else
            testo += c;
    }
    return testo;
}

std::string DiBase(const std::optional<Confronto>& base) {
    if (!base) return "null";
    return "{\"nuovi\": " + std::to_string(base->Nuovi) + ", \"noti\": " + std::to_string(base->Noti) +
           ", \"spariti\": " + std::to_string(base->Spariti) +
           ", \"nonEsaminati\": " + std::to_string(base->NonEsaminati) + "}";
}

} // namespace

Formato FormatoDi(const std::string& nome) {
    constexpr std::pair<const char*, Formato> Nomi[] = {{"testo", Formato::Testo},
                                                        {"json", Formato::Json},
                                                        {"sarif", Formato::Sarif},
                                                        {"github", Formato::Github}};
    for (const auto& [scritto, formato] : Nomi)
        if (nome == scritto) return formato;
    throw UsoErrato{"--formato: testo, json, sarif o github, non «" + nome + "»"};
}

std::string Totali(const Referto& referto) {
    std::string testo = Conto(referto.Riscontri.size(), "rilievo", "rilievi") + " in " +
                        Conto(referto.Moduli, "modulo", "moduli") + ", " +
                        Conto(referto.Righe, "riga", "righe") + "\n";
    if (!referto.Base) return testo;
    const Confronto& base = *referto.Base;
    testo += "base: " + Conto(base.Nuovi, "nuovo", "nuovi") + ", " + Conto(base.Noti, "noto", "noti") + ", " +
             Conto(base.Spariti, "sparito", "spariti");
    if (base.NonEsaminati != 0) testo += ", " + std::to_string(base.NonEsaminati) + " di file non esaminati";
    return testo + "\n";
}

std::string ComeTesto(const Referto& referto, bool colori) {
    const auto con = [&](const char* colore, const std::string& testo) {
        return colori ? std::string("\x1b[") + colore + "m" + testo + "\x1b[0m" : testo;
    };
    std::string testo;
    for (const Riscontro& r : referto.Riscontri) {
        const std::string file = MostrabileUtf8(r.File); // a line of output stays a line
        testo +=
            con("1", file + ":" + std::to_string(r.Cosa.Riga) + ":" + std::to_string(r.Cosa.Colonna) + ":");
        testo += " " + con("1;31", "errore:") + " " + FraseDi(r.Cosa) + " " +
                 con("2", "[" + std::string(esame::RegolaDi(r.Cosa.Quale).Id) + "]") + "\n";
        if (r.Cosa.Apertura == 0) continue;
        testo += con("1", file + ":" + std::to_string(r.Cosa.Apertura) + ":") + " " + con("36", "nota:") +
                 " aperto qui: " + Citata(r.LineaApertura) + "\n";
    }
    return testo + Totali(referto);
}

std::string JsonDi(const Riscontro& r) {
    const esame::Rilievo& c = r.Cosa;
    const esame::Regola& regola = esame::RegolaDi(c.Quale);
    return "{\"regola\": " + Stringa(regola.Id) + ", \"tipo\": " + Stringa(regola.Nome) +
           ", \"blocco\": " + StringaONull(esame::NomeBlocco(c.Cosa)) + ", \"file\": " + StringaUtf8(r.File) +
           ", \"riga\": " + std::to_string(c.Riga) + ", \"colonna\": " + std::to_string(c.Colonna) +
           ", \"nota\": " + NumeroONull(c.Nota) + ", \"apertura\": " + NumeroONull(c.Apertura) +
           ", \"atteso\": " + StringaONull(c.Atteso) + ", \"trovato\": " + StringaONull(c.Trovato) +
           ", \"procedura\": " + (c.Procedura ? Stringa(*c.Procedura) : "null") +
           ", \"testo\": " + StringaONull(r.Linea) + "}";
}

std::string ComeJson(const Referto& referto) {
    return "{\n  \"moduli\": " + std::to_string(referto.Moduli) +
           ",\n  \"righe\": " + std::to_string(referto.Righe) +
           ",\n  \"rilievi\": " + Schiera(referto.Riscontri, JsonDi) + ",\n  \"errori\": " +
           Schiera(referto.Guasti,
                   [](const Guasto& g) {
                       return "{\"file\": " + StringaUtf8(g.File) +
                              ", \"da\": " + (g.Da.empty() ? "null" : StringaUtf8(g.Da)) +
                              ", \"numero\": " + std::to_string(g.Numero) +
                              ", \"descrizione\": " + Stringa(Descrizione(g.Numero)) + "}";
                   }) +
           ",\n  \"base\": " + DiBase(referto.Base) + "\n}\n";
}

std::string ComeGithub(const Referto& referto) {
    std::string testo;
    for (const Riscontro& r : referto.Riscontri) {
        testo += "::error file=" + PerGithub(Utf8Valido(r.File), true) +
                 ",line=" + std::to_string(r.Cosa.Riga) + ",col=" + std::to_string(r.Cosa.Colonna) +
                 ",title=" + std::string(esame::RegolaDi(r.Cosa.Quale).Id) + "::";
        std::string frase = FraseDi(r.Cosa);
        if (r.Cosa.Apertura != 0)
            frase += "; aperto alla riga " + std::to_string(r.Cosa.Apertura) + ": " + Citata(r.LineaApertura);
        testo += PerGithub(frase, false) + "\n";
    }
    return testo;
}

} // namespace morvella::cli
