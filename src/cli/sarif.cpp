// SPDX-License-Identifier: MIT
#include <cstdio>
#include <unordered_map>

#include "cli/base.h"
#include "cli/formati.h"
#include "cli/json.h"
#include "cli/spiegazioni.h"

#ifndef MORVELLA_VERSIONE
#define MORVELLA_VERSIONE "0"
#endif

namespace morvella::cli {

namespace {

// A path as a URI reference: percent-encoded bytes, relative unless it begins with a drive or a share.
std::string Uri(const std::string& percorso) {
    const bool unita = Intero(percorso) && percorso[0] != '/';
    std::string uri = unita ? "file:///" : Intero(percorso) ? "file:" : "";
    for (std::size_t i = 0; i < percorso.size(); ++i) {
        const char c = percorso[i];
        const bool libero = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                            std::string_view("-._~/").find(c) != std::string_view::npos;
        if (libero || (unita && i == 1)) {
            uri += c;
            continue;
        }
        char codice[4];
        std::snprintf(codice, sizeof codice, "%%%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
        uri += codice;
    }
    return uri;
}

std::string Artefatto(const std::string& file, std::size_t indice) {
    const std::string uri = Uri(file);
    return "{\"uri\": " + StringaUtf8(uri) + (uri.starts_with("file:") ? "" : ", \"uriBaseId\": \"RADICE\"") +
           ", \"index\": " + std::to_string(indice) + "}";
}

// Only an embedded link has brackets of its own in a message.
std::string PerMessaggio(const std::string& utf8) {
    std::string testo;
    for (const char c : utf8) {
        if (c == '[' || c == ']' || c == '\\') testo += '\\';
        testo += c;
    }
    return testo;
}

std::string TestoDi(const std::string& utf8) { return "{\"text\": " + StringaUtf8(utf8) + "}"; }

std::string RegolaJson(const esame::Regola& regola) {
    const Spiegazione& s = SpiegazioneDi(regola.Quale);
    return "{\"id\": " + Stringa(regola.Id) + ", \"name\": " + Stringa(regola.Nome) +
           ", \"shortDescription\": " + TestoDi(s.Breve) + ", \"fullDescription\": " + TestoDi(s.Estesa) +
           ", \"help\": " + TestoDi(s.Rimedio) + ", \"defaultConfiguration\": {\"level\": \"error\"}}";
}

// A digest of the base's key: not of the line's number, which any line above it would change.
std::string Impronta(const Riscontro& r) {
    std::uint64_t somma = 0xCBF29CE484222325U; // FNV-1a
    for (const char c : ChiaveDiBase(r)) somma = (somma ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    char testo[17];
    std::snprintf(testo, sizeof testo, "%016llx", static_cast<unsigned long long>(somma));
    return testo;
}

std::string Luogo(const std::string& artefatto, const std::string& regione) {
    return "\"physicalLocation\": {\"artifactLocation\": " + artefatto + ", \"region\": {" + regione + "}}";
}

std::string Risultato(const Riscontro& r, const std::string& artefatto, bool conBase) {
    const std::string frase = PerMessaggio(FraseDi(r.Cosa));
    const bool aperto = r.Cosa.Apertura != 0;
    std::string json =
        "{\"ruleId\": " + Stringa(esame::RegolaDi(r.Cosa.Quale).Id) +
        ", \"ruleIndex\": " + std::to_string(static_cast<int>(r.Cosa.Quale)) +
        ", \"level\": \"error\", \"message\": " + TestoDi(frase + (aperto ? " ([aperto qui](1))" : "")) +
        ",\n         \"locations\": [{" +
        Luogo(artefatto, "\"startLine\": " + std::to_string(r.Cosa.Riga) +
                             ", \"startColumn\": " + std::to_string(r.Cosa.Colonna));
    if (r.Cosa.Procedura) json += ", \"logicalLocations\": [{\"name\": " + Stringa(*r.Cosa.Procedura) + "}]";
    json += "}]";
    if (aperto)
        json += ",\n         \"relatedLocations\": [{\"id\": 1, " +
                Luogo(artefatto, "\"startLine\": " + std::to_string(r.Cosa.Apertura)) +
                ", \"message\": {\"text\": \"aperto qui\"}}]";
    json += ",\n         \"partialFingerprints\": {\"morvella/v1\": \"" + Impronta(r) + "\"}";
    if (conBase) json += ", \"baselineState\": \"new\"";
    return json + "}";
}

std::string Notifica(const Guasto& g) {
    return "{\"level\": \"error\", \"message\": " +
           TestoDi(PerMessaggio(Utf8Valido(g.File)) + ": errore " + std::to_string(g.Numero) + ", " +
                   Utf8Da1252(Descrizione(g.Numero))) +
           "}";
}

} // namespace

std::string ComeSarif(const Referto& referto) {
    std::vector<std::string> artefatti; // the files with findings
    std::unordered_map<std::string, std::size_t> indici;
    for (const Riscontro& r : referto.Riscontri)
        if (indici.try_emplace(r.File, artefatti.size()).second)
            artefatti.push_back(Artefatto(r.File, artefatti.size()));

    std::string json = "{\n  \"$schema\": "
                       "\"https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/"
                       "sarif-schema-2.1.0.json\",\n  \"version\": \"2.1.0\",\n  \"runs\": [\n    {\n";
    json += "      \"tool\": {\"driver\": {\"name\": \"morvella\", \"version\": \"" MORVELLA_VERSIONE
            "\", \"language\": \"it\", \"rules\": " +
            Schiera(esame::Regole(), RegolaJson, 8) + "}},\n";
    json += "      \"originalUriBaseIds\": {\"RADICE\": {\"description\": {\"text\": "
            "\"La directory da cui partono i percorsi.\"}}},\n";
    json += "      \"columnKind\": \"utf16CodeUnits\",\n      \"language\": \"it\",\n";
    json += std::string("      \"invocations\": [{\"executionSuccessful\": ") +
            (referto.Guasti.empty() ? "true" : "false") + ", \"exitCode\": " + std::to_string(referto.Stato) +
            ", \"toolExecutionNotifications\": " + Schiera(referto.Guasti, Notifica, 8) + "}],\n";
    json += "      \"artifacts\": " +
            Schiera(
                artefatti,
                [](const std::string& a) {
                    return "{\"location\": " + a +
                           ", \"encoding\": \"windows-1252\", \"sourceLanguage\": \"visualbasic\"}";
                },
                8) +
            ",\n";
    json += "      \"results\": " +
            Schiera(
                referto.Riscontri,
                [&](const Riscontro& r) {
                    return Risultato(r, artefatti[indici.at(r.File)], referto.Base.has_value());
                },
                8);
    return json + "\n    }\n  ]\n}\n";
}

} // namespace morvella::cli
