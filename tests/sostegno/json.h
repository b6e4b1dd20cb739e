// SPDX-License-Identifier: MIT
// tests/sostegno/json.h
//
// A strict little JSON reader: a document that is none ends the test.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace morvella::prove {

/// A value. What is asked for and not there throws.
struct Json {
    enum class Genere { Null, Logico, Numero, Stringa, Schiera, Oggetto } Che = Genere::Null;
    std::string Testo; // of a string; of a number or a boolean as it is written
    std::vector<Json> Voci;
    std::map<std::string, Json> Campi;

    const Json& operator[](const std::string& nome) const { return Campi.at(nome); }
    const Json& operator[](std::size_t i) const { return Voci.at(i); }
    bool Ha(const std::string& nome) const { return Campi.contains(nome); }
    bool Nullo() const { return Che == Genere::Null; }
};

class LettoreJson {
  public:
    explicit LettoreJson(const std::string& testo) : testo_(testo) {}
    Json Leggi() {
        Json json = Valore();
        Bianchi();
        if (i_ != testo_.size()) Sbagliato("something after the end");
        return json;
    }

  private:
    [[noreturn]] void Sbagliato(const std::string& che) const {
        throw std::runtime_error("JSON, offset " + std::to_string(i_) + ": " + che);
    }
    void Bianchi() {
        while (i_ < testo_.size() && std::string(" \t\r\n").find(testo_[i_]) != std::string::npos) ++i_;
    }
    char Guarda() {
        Bianchi();
        if (i_ == testo_.size()) Sbagliato("the end");
        return testo_[i_];
    }
    void Vuole(char c) {
        if (Guarda() != c) Sbagliato(std::string("no ") + c);
        ++i_;
    }
    bool Prende(char c) {
        if (Guarda() != c) return false;
        ++i_;
        return true;
    }
    Json Valore() {
        Json json;
        switch (Guarda()) {
        case '{':
            json.Che = Json::Genere::Oggetto;
            ++i_;
            if (Prende('}')) return json;
            do {
                const std::string nome = Stringa();
                Vuole(':');
                if (!json.Campi.emplace(nome, Valore()).second) Sbagliato("twice: " + nome);
            } while (Prende(','));
            Vuole('}');
            return json;
        case '[':
            json.Che = Json::Genere::Schiera;
            ++i_;
            if (Prende(']')) return json;
            do json.Voci.push_back(Valore());
            while (Prende(','));
            Vuole(']');
            return json;
        case '"':
            json.Che = Json::Genere::Stringa;
            json.Testo = Stringa();
            return json;
        default: return Parola();
        }
    }
    Json Parola() {
        Json json;
        while (i_ < testo_.size() &&
               (std::isalnum(static_cast<unsigned char>(testo_[i_])) != 0 || testo_[i_] == '-'))
            json.Testo += testo_[i_++];
        if (json.Testo == "null") {
            json.Testo.clear();
        } else if (json.Testo == "true" || json.Testo == "false") {
            json.Che = Json::Genere::Logico;
        } else {
            if (json.Testo.empty() || json.Testo.find_first_not_of("0123456789-") != std::string::npos)
                Sbagliato("no value: " + json.Testo);
            json.Che = Json::Genere::Numero;
        }
        return json;
    }
    std::string Stringa() {
        Vuole('"');
        std::string testo;
        for (;; ++i_) {
            if (i_ >= testo_.size()) Sbagliato("an open string");
            const char c = testo_[i_];
            if (static_cast<unsigned char>(c) < 0x20) Sbagliato("a control character");
            if (c == '"') break;
            if (c != '\\') {
                testo += c;
                continue;
            }
            const char dopo = testo_.at(++i_);
            if (dopo == 'u') {
                testo += static_cast<char>(std::stoi(testo_.substr(i_ + 1, 4), nullptr, 16)); // below 0x20
                i_ += 4;
            } else if (dopo == '"' || dopo == '\\') {
                testo += dopo;
            } else {
                Sbagliato("an escape that nobody writes");
            }
        }
        ++i_;
        return testo;
    }

    const std::string& testo_;
    std::size_t i_ = 0;
};

inline Json LeggiJson(const std::string& testo) { return LettoreJson(testo).Leggi(); }

} // namespace morvella::prove
