// SPDX-License-Identifier: MIT
#include "cli/spiegazioni.h"

#include <array>
#include <string_view>

#include "listing/decodifica.h"

namespace morvella::cli {

namespace {

using esame::Blocco;
using esame::Rilievo;
using esame::Tipo;

// clang-format off
constexpr std::array<Spiegazione, 7> Tavola{{
    {"Un blocco aperto che niente chiude",
     "Un If, For, Do, While, Select Case, With, #If, o un livello della testata di un form, è aperto e la sua "
     "chiusura non arriva prima di ciò che deve venire dopo.",
     "Scrivere la chiusura che manca, o togliere l'apertura di troppo."},
    {"Una chiusura di ciò che non è aperto",
     "Un End If, Next, Loop, Wend, End Select, End With, End Sub o simile chiude un blocco che nessuno ha aperto.",
     "Togliere la chiusura, o rimettere l'apertura che è andata perduta."},
    {"Una chiusura di un'altra specie",
     "Il blocco aperto ne vuole una, e ne viene un'altra: un Loop per un For, un End Function per una Sub.",
     "Correggere la parola: l'apertura è indicata."},
    {"Una parola dove non può stare",
     "Un Else o ElseIf senza If, o dopo l'Else del suo If; un Case senza Select Case; un #Else o #ElseIf senza #If, o "
     "dopo il suo #Else; la testata di una procedura dentro un'altra.",
     "Togliere la parola o spostarla nel suo blocco; per una testata, chiudere la procedura che la contiene."},
    {"Un'istruzione prima del primo Case",
     "Fra Select Case e il suo primo Case possono stare soltanto commenti e dichiarazioni.",
     "Spostare l'istruzione prima di Select Case, o sotto il Case che la vuole."},
    {"Una procedura, un Type o un Enum senza fine",
     "Dopo la testata viene un'altra testata, o la fine del file, prima di End Sub, End Function, End Property, "
     "End Type o End Enum.",
     "Scrivere la fine che manca."},
    {"Il file non è un testo",
     "Fra i primi byte del file ce n'è uno nullo: è un file binario, o è scritto in UTF-16.",
     "Se è un sorgente, salvarlo di nuovo come testo Windows-1252; altrimenti toglierlo dagli ingressi."},
}};
// clang-format on

std::string Tra(std::string_view parola) { return "«" + std::string(parola) + "»"; }

std::string Riga(std::uint32_t n) { return "riga " + std::to_string(n); }

// The opener as people write it.
std::string Apertura(Blocco blocco) {
    return Tra(blocco == Blocco::Select ? std::string_view("Select Case") : esame::NomeBlocco(blocco));
}

// What showed that something is missing.
std::string Davanti(const Rilievo& r) {
    if (r.Trovato.empty() || r.Trovato == "fine file") return " prima della fine del file";
    return " prima di " + Tra(r.Trovato) + " (" + Riga(r.Nota) + ")" +
           (r.Trovato == r.Atteso ? " che chiude un altro blocco" : "");
}

std::string SenzaApertura(const Rilievo& r) {
    const std::string frase = Tra(r.Trovato) + " di troppo: ";
    if (esame::Procedura(r.Cosa)) return frase + "qui non conclude niente";
    return frase + "non c'è " + Apertura(r.Cosa) + " da chiudere";
}

std::string FuoriPosto(const Rilievo& r) {
    const std::string frase = Tra(r.Trovato) + " fuori posto: ";
    if (esame::Procedura(r.Cosa))
        return frase + "ciò che comincia alla " + Riga(r.Apertura) + " non è ancora finito";
    if (r.Apertura)
        return frase + Apertura(r.Cosa) + " della " + Riga(r.Apertura) + " ha già il suo " +
               (r.Cosa == Blocco::CondIf ? "«#Else»" : "«Else»");
    return frase + "non c'è " + Apertura(r.Cosa) + " aperto";
}

std::string Corpo(const Rilievo& r) {
    switch (r.Quale) {
    case Tipo::Aperto: return Apertura(r.Cosa) + " non è chiuso: manca " + Tra(r.Atteso) + Davanti(r);
    case Tipo::SenzaApertura: return SenzaApertura(r);
    case Tipo::Scambiato:
        return Tra(r.Trovato) + " al posto di " + Tra(r.Atteso) + ": è aperto " + Apertura(r.Cosa) +
               (r.Apertura ? " (" + Riga(r.Apertura) + ")" : "");
    case Tipo::FuoriPosto: return FuoriPosto(r);
    case Tipo::PrimaDiCase:
        return "istruzione prima del primo «Case» di «Select Case» (" + Riga(r.Apertura) + ")";
    case Tipo::NonTerminato: return "manca " + Tra(r.Atteso) + Davanti(r);
    case Tipo::NonTesto: return "non è un testo: contiene byte nulli";
    }
    return "";
}

} // namespace

std::string FraseDi(const Rilievo& rilievo) {
    std::string frase = Corpo(rilievo);
    if (rilievo.Procedura) frase += ", in «" + Mostrabile(*rilievo.Procedura) + "»";
    return frase;
}

const Spiegazione& SpiegazioneDi(Tipo tipo) noexcept { return Tavola[static_cast<std::size_t>(tipo)]; }

} // namespace morvella::cli
