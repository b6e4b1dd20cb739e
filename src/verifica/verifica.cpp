// SPDX-License-Identifier: MIT
#include "verifica/verifica.h"

#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace morvella::verifica {

namespace {

using std::string_view;

template <std::size_t N, char C>
constexpr std::array<char, N> Pieno() {
    std::array<char, N> a{};
    a.fill(C);
    return a;
}
constexpr auto Asterischi = Pieno<114, '*'>();
constexpr auto Bianchi = Pieno<112, ' '>();

// The closing block.
constexpr string_view Margine = "          ";
constexpr string_view Stelle = "          '*******************************************************";
constexpr string_view Autore = "          '*              Procedura by Dario Fenzoni             *";
constexpr string_view Posta = "          '*              E-mail ";
constexpr string_view FinePosta = "           *";
constexpr std::size_t LungoIndirizzo = 21;
constexpr string_view Scopo = "          '* Procedura per il riordino dei programmi Visual Basic*";
constexpr string_view Richiami = "          '*  La procedura richiama i seguenti Form o procedure:   *";
constexpr string_view Rilettura = "          '               Rilettura del ";
constexpr string_view FineRilettura = "...";
constexpr string_view Ultima = "          '";
constexpr std::size_t LungaVoce = 54; // of an entry of the closing block, its "*" aside

string_view Trim(string_view s) noexcept {
    const std::size_t primo = s.find_first_not_of(' ');
    if (primo == s.npos) return {};
    return s.substr(primo, s.find_last_not_of(' ') - primo + 1);
}

// Whether `s` begins with `parola`, which is in lower case, in any case.
bool Comincia(string_view s, string_view parola) noexcept {
    if (s.size() < parola.size()) return false;
    for (std::size_t i = 0; i < parola.size(); ++i) {
        const char c = s[i];
        if ((c >= 'A' && c <= 'Z' ? c + 32 : c) != parola[i]) return false;
    }
    return true;
}

char Maiuscola(char c) noexcept {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte >= 'a' && byte <= 'z') || (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7))
        return static_cast<char>(byte - 32);
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E) return static_cast<char>(byte - 16);
    return byte == 0xFF ? '\x9F' : c;
}

// The width of the banner around a line, the "'" included; 0 for a line without one.
std::size_t Riquadro(string_view riga) noexcept {
    switch (riga[0] | 32) {
    case 's': return Comincia(riga, "sub") ? 115 : 0;
    case 'f':
        if (Comincia(riga, "function")) return 115;
        return Comincia(riga, "friend property") ? 102 : 0;
    case 'p':
        if (Comincia(riga, "private type") || Comincia(riga, "public type")) return 113;
        if (Comincia(riga, "private sub") || Comincia(riga, "public sub")) return 115;
        if (Comincia(riga, "private function") || Comincia(riga, "public function")) return 115;
        return Comincia(riga, "property") || Comincia(riga, "public property") ? 102 : 0;
    default: return 0;
    }
}

// The line that an editor would show for an offset.
std::uint64_t NumeroRiga(string_view bytes, std::size_t dove) noexcept {
    std::uint64_t righe = 1;
    for (std::size_t i = 0; i < dove; ++i)
        if (bytes[i] == '\n' ? i == 0 || bytes[i - 1] != '\r' : bytes[i] == '\r') ++righe;
    return righe;
}

class Confronto {
  public:
    Confronto(string_view sorgente, string_view copia, const Regole& regole) noexcept
        : sorgente_(sorgente), copia_(copia), regole_(regole), stato_(regole.Form ? Codice : 0) {}

    Esito Fai() {
        bool buona = true;
        while (buona && PrendiRiga()) buona = Riga();
        if (buona) {
            sua_ = {};
            daSorgente_ = false;
            buona = Chiusura();
        }
        return esito_;
    }

  private:
    static constexpr int Codice = 7;

    // The next line of the source, to riga_.
    bool PrendiRiga() noexcept {
        if (s_ == sorgente_.size()) return false;
        const char* da = sorgente_.data() + s_;
        const std::size_t resta = sorgente_.size() - s_;
        const auto* cr = static_cast<const char*>(std::memchr(da, '\r', resta));
        std::size_t lunga = cr ? static_cast<std::size_t>(cr - da) : resta;
        std::size_t fine = cr ? 1 : 0;
        if (cr && lunga + 1 < resta && cr[1] == '\n') fine = 2;
        if (regole_.Lf) {
            if (const auto* lf = static_cast<const char*>(std::memchr(da, '\n', lunga))) {
                lunga = static_cast<std::size_t>(lf - da);
                fine = 1;
            }
        }
        inizio_ = s_;
        riga_ = {da, lunga};
        sua_ = Trim(riga_);
        s_ += lunga + fine;
        ++esito_.Contate.Righe;
        return true;
    }

    // One line of the source: the head of the file first. What decides there is how a line begins,
    // trimmed or not, in this case or in any; each of the differences is meant.
    bool Riga() {
        if (stato_ == Codice && (sua_.empty() || (sua_[0] | 32) != 'a')) return RigaCodice();
        if (sua_.starts_with("Attribute")) stato_ = 0;
        if (stato_ < Codice && Comincia(sua_, "option")) stato_ = Codice;
        if (stato_ <= 5) {
            if (Comincia(sua_, "attribute vb_exposed")) {
                stato_ = 5;
                if (!Comincia(riga_, "attribute"))
                    ++esito_.Contate.AttributiTolti;
                else if (!Intatta())
                    return false;
            } else if (!Intatta()) {
                return false;
            }
            if (riga_.starts_with("Attribute")) ++stato_;
            if (stato_ != 6) return true;
            stato_ = Codice;
            return Intestazione();
        }
        if (!Comincia(riga_, "attribute vb")) return RigaCodice();
        ++esito_.Contate.AttributiTolti;
        return true;
    }

    bool RigaCodice() {
        if (sua_.empty()) return ++esito_.Contate.VuoteTolte, true;
        if (sua_[0] == '\'') {
            if (sua_.starts_with("'*")) return ++esito_.Contate.AsterischiTolti, true;
            if (regole_.TogliCommenti) return ++esito_.Contate.CommentiTolti, true;
        }
        SaltaVuote();
        const std::size_t riquadro = Riquadro(sua_);
        if (riquadro == 0) {
            if (!Uguale(sua_)) return Diversa(sua_);
        } else if (!Lato(riquadro, true) || !(Uguale(sua_) || Diversa(sua_)) || !Lato(riquadro, false)) {
            return false;
        }
        ++esito_.Contate.Uguali;
        return true;
    }

    // The two lines of a banner before or after its line.
    bool Lato(std::size_t larga, bool prima) {
        string_ = "'";
        string_.append(Asterischi.data(), larga - 1);
        vuoto_ = "'*";
        vuoto_.append(Bianchi.data(), larga - 3).append("*");
        // A head that is missing misses its banner first, and then it is the head that is wanted.
        if (!Uguale(prima ? string_ : vuoto_) || !Uguale(prima ? vuoto_ : string_))
            return Diversa(prima && !Trim(Trovata()).starts_with("'*") ? sua_ : "(riquadro)");
        esito_.Contate.Riquadri += 2;
        return true;
    }

    bool Intatta() {
        ++esito_.Contate.Intatte;
        return Esatta(riga_) || Diversa(riga_);
    }

    bool Intestazione() {
        if (regole_.Intestazione.empty()) return true;
        daSorgente_ = false;
        if (!Esatta(regole_.Intestazione)) return Diversa("(intestazione)");
        daSorgente_ = true;
        esito_.Contate.Intestazione = 1;
        return true;
    }

    bool Chiusura() {
        SaltaVuote();
        const auto riga = [&](string_view attesa) {
            ++esito_.Contate.Chiusura;
            return Esatta(attesa) || Diversa(attesa);
        };
        const auto fra = [&](string_view davanti, std::size_t lunga, string_view dietro) {
            ++esito_.Contate.Chiusura;
            const string_view trovata = Trovata();
            const bool buona = trovata.starts_with(davanti) && trovata.ends_with(dietro) &&
                               (lunga == 0 ? trovata.size() >= davanti.size() + dietro.size()
                                           : trovata.size() == davanti.size() + lunga + dietro.size());
            return (buona && Esatta(trovata)) || Diversa(davanti);
        };
        if (!riga(Stelle) || !riga(Autore) || !fra(Posta, LungoIndirizzo, FinePosta) || !riga(Scopo))
            return false;
        bool richiami = false;
        for (std::size_t dove = 0; TrovaShow(dove);) {
            if (!richiami && !riga(Richiami)) return false;
            richiami = true;
            ++esito_.Contate.Chiusura;
            if (!Esatta(string_)) return Diversa("(elenco dei form)");
        }
        if (!riga(Stelle) || !fra(Rilettura, 0, FineRilettura) || !riga(Ultima)) return false;
        if (c_ == copia_.size()) return true;
        Diversa("");
        esito_.Diversa->DiTroppo = true;
        return false;
    }

    // The next entry of the closing block, to string_: what stands before ".Show" in a line of the
    // source that is no comment. Of a line the first one counts.
    bool TrovaShow(std::size_t& dove) {
        const string_view fini = regole_.Lf ? "\r\n" : "\r";
        while ((dove = sorgente_.find(".Show", dove)) != string_view::npos) {
            const std::size_t prima = sorgente_.find_last_of(fini, dove);
            std::size_t da = prima == string_view::npos ? 0 : prima + 1;
            // The LF of a CR LF ends the line before.
            if (da > 0 && sorgente_[da - 1] == '\r' && da < sorgente_.size() && sorgente_[da] == '\n') ++da;
            const std::size_t hit = dove;
            dove = sorgente_.find_first_of(fini, dove);
            if (dove == string_view::npos) dove = sorgente_.size();
            const std::size_t primo = sorgente_.find_first_not_of(' ', da);
            if (sorgente_[primo] == '\'') continue;
            string_.assign(Margine).append("'*    ");
            for (const char c : sorgente_.substr(primo, hit - primo)) string_ += Maiuscola(c);
            if (const std::size_t lunga = string_.size() - Margine.size() - 1; lunga < LungaVoce)
                string_.append(LungaVoce - lunga, ' ').append("*");
            return true;
        }
        return false;
    }

    void SaltaVuote() noexcept {
        while (copia_.substr(c_, 2) == "\r\n") {
            c_ += 2;
            ++esito_.Contate.VuoteMesse;
        }
    }

    // Whether the copy goes on with this line, at any column; over it, if so.
    bool Uguale(string_view attesa) noexcept {
        std::size_t c = c_;
        while (c < copia_.size() && copia_[c] == ' ') ++c;
        return Oltre(c, attesa);
    }
    bool Esatta(string_view attesa) noexcept { return Oltre(c_, attesa); }
    bool Oltre(std::size_t da, string_view attesa) noexcept {
        const std::size_t n = attesa.size();
        if (copia_.size() - da < n + 2) return false;
        const char* p = copia_.data() + da;
        if (std::memcmp(p, attesa.data(), n) != 0 || p[n] != '\r' || p[n + 1] != '\n') return false;
        c_ = da + n + 2;
        return true;
    }

    string_view Trovata() const noexcept { return copia_.substr(c_, copia_.find('\r', c_) - c_); }

    bool Diversa(string_view attesa) {
        Diversita& d = esito_.Diversa.emplace();
        if (daSorgente_) d.RigaSorgente = NumeroRiga(sorgente_, inizio_);
        d.RigaCopia = NumeroRiga(copia_, c_);
        d.Attesa = attesa;
        d.Trovata = Trovata();
        d.Manca = c_ == copia_.size();
        return false;
    }

    string_view sorgente_, copia_;
    const Regole& regole_;
    int stato_; // of the head of the file, up to Codice
    std::size_t s_ = 0, c_ = 0;
    std::size_t inizio_ = 0;     // of the source's line
    string_view riga_, sua_;     // the source's line, and trimmed
    bool daSorgente_ = true;     // what is expected is a line of the source
    std::string string_, vuoto_; // lines of the copy's own
    Esito esito_;
};

} // namespace

bool NomeDiForm(string_view nome) noexcept {
    return nome.size() >= 4 && Comincia(nome.substr(nome.size() - 4), ".frm");
}

Conti& Conti::operator+=(const Conti& altri) noexcept {
    Righe += altri.Righe;
    Uguali += altri.Uguali;
    Intatte += altri.Intatte;
    VuoteTolte += altri.VuoteTolte;
    AsterischiTolti += altri.AsterischiTolti;
    CommentiTolti += altri.CommentiTolti;
    AttributiTolti += altri.AttributiTolti;
    VuoteMesse += altri.VuoteMesse;
    Riquadri += altri.Riquadri;
    Intestazione += altri.Intestazione;
    Chiusura += altri.Chiusura;
    return *this;
}

Esito Verifica(string_view sorgente, string_view copia, const Regole& regole) {
    return Confronto(sorgente, copia, regole).Fai();
}

} // namespace morvella::verifica
