// SPDX-License-Identifier: MIT
#include "esame/scanner.h"

#include <cstring>

namespace morvella::esame {

namespace {

const char* Bianchi(const char* p, const char* fine) noexcept {
    std::uint64_t otto = 0;
    for (; fine - p >= 8; p += 8) { // indentation is blanks by the dozen
        std::memcpy(&otto, p, sizeof otto);
        if (otto != 0x2020202020202020) break;
    }
    while (p < fine && Bianco(*p)) ++p;
    return p;
}
const char* Cifre(const char* p, const char* fine) noexcept {
    while (p < fine && Cifra(*p)) ++p;
    return p;
}
bool Esadecimale(char c) noexcept { return Cifra(c) || ((c | 32) >= 'a' && (c | 32) <= 'f'); }

} // namespace

Scanner::Scanner(std::string_view bytes, std::size_t inizio, std::uint32_t riga) noexcept
    : base_(bytes.data()),
      termine_(bytes.data() + bytes.size()),
      prossima_(bytes.data() + inizio),
      inizioRiga_(prossima_),
      p_(prossima_),
      fine_(prossima_),
      riga_(riga - 1) {}

bool Scanner::ApriFisica() noexcept {
    if (prossima_ == termine_) {
        p_ = fine_ = termine_;
        return false;
    }
    ++riga_;
    inizioRiga_ = p_ = prossima_;
    const auto resta = static_cast<std::size_t>(termine_ - p_);
    const auto* eol = static_cast<const char*>(std::memchr(p_, '\n', resta));
    fine_ = eol ? eol : termine_;
    prossima_ = eol ? eol + 1 : termine_;
    if (p_ == base_ && resta >= 3 && std::memcmp(p_, "\xEF\xBB\xBF", 3) == 0) p_ += 3;
    while (fine_ > p_ && Bianco(fine_[-1])) --fine_; // a CR is a blank, so this takes it too
    return true;
}

bool Scanner::ApriLogica() noexcept {
    if (!finita_) SaltaLogica();
    finita_ = !ApriFisica();
    return !finita_;
}

bool Scanner::AvanzaOltre() noexcept {
    if (finita_) return false;
    for (;;) {
        p_ = Bianchi(p_, fine_);
        if (p_ < fine_ && (*p_ != '_' || p_ + 1 != fine_)) return true;
        // An underscore that is the last token of the line continues it.
        if (p_ == fine_ || !ApriFisica()) break;
    }
    finita_ = true;
    return false;
}

Gettone Scanner::Fatto(TipoGettone tipo, const char* da, const char* a, bool segno) const noexcept {
    return {tipo,
            segno,
            static_cast<std::uint32_t>(da - base_),
            static_cast<std::uint32_t>(a - da),
            riga_,
            static_cast<std::uint32_t>(da - inizioRiga_) + 1};
}

const char* Scanner::Segno(const char* p) const noexcept {
    if (p == fine_) return p;
    if (Di(*p, ByteSegno)) return p + 1;
    if (*p == '!' && (p + 1 == fine_ || (!Lettera(p[1]) && p[1] != '['))) return p + 1;
    return p;
}

const char* Scanner::FineNome(const char* p, bool& segno) const noexcept {
    while (p < fine_ && DiNome(*p)) ++p;
    const char* dopo = Segno(p);
    segno = dopo != p;
    return dopo;
}

const char* Scanner::FineNumero(const char* p) const noexcept {
    if (*p == '&') { // &H1F, &O17
        p += 2;
        while (p < fine_ && Esadecimale(*p)) ++p;
        return Segno(p);
    }
    p = Cifre(p, fine_);
    if (p < fine_ && *p == '.') p = Cifre(p + 1, fine_);
    if (p < fine_ && ((*p | 32) == 'e' || (*p | 32) == 'd')) {
        const char* cifre = p + 1;
        if (cifre < fine_ && (*cifre == '+' || *cifre == '-')) ++cifre;
        if (cifre < fine_ && Cifra(*cifre)) p = Cifre(cifre, fine_); // "1Else" has no exponent
    }
    return Segno(p);
}

// Null for a string that the line end cuts.
const char* Scanner::FineStringa(const char* p) const noexcept {
    for (++p; p < fine_;) {
        const auto* q = static_cast<const char*>(std::memchr(p, '"', static_cast<std::size_t>(fine_ - p)));
        if (!q) return nullptr;
        if (q + 1 == fine_ || q[1] != '"') return q + 1;
        p = q + 2;
    }
    return nullptr;
}

// Null for a bracket that nothing closes on its line; it is a byte like others then.
const char* Scanner::FineParentesi(const char* p) noexcept {
    if (p < senzaParentesi_) return nullptr;
    const auto* q = static_cast<const char*>(std::memchr(p, ']', static_cast<std::size_t>(fine_ - p)));
    if (!q) senzaParentesi_ = fine_; // or a line full of "[" would be searched again and again
    return q ? q + 1 : nullptr;
}

// Only what has the shape of a date is one: "#1, a: Close #1" holds two file numbers. Two or three
// parts, a time, or both; the number before the first colon, before "PM" or after three parts is
// the hour. Null for anything else.
const char* Scanner::FineData(const char* p) const noexcept {
    const auto chiudi = [this](const char* q) -> const char* {
        q = Bianchi(q, fine_);
        return q < fine_ && *q == '#' ? q + 1 : nullptr;
    };
    const auto mezzogiorno = [this](const char* q) { // "AM" or "PM", and not the beginning of a word
        return fine_ - q >= 2 && ((*q | 32) == 'a' || (*q | 32) == 'p') && (q[1] | 32) == 'm' &&
               (fine_ - q == 2 || !Lettera(q[2]));
    };
    const auto prima = [](int parti) { return parti == 0 || parti == 2 || parti == 3; };
    int parti = 0;
    bool numero = false;
    p = Bianchi(p + 1, fine_);
    for (;;) {
        const char* da = p;
        if (numero && mezzogiorno(p)) return prima(parti - 1) ? chiudi(p + 2) : nullptr;
        while (p < fine_ && (p == da || Cifra(*p) == Cifra(*da)) && (Cifra(*p) || Lettera(*p))) ++p;
        if (p == da) return nullptr;
        numero = Cifra(*da);
        const auto lunga = p - da;
        if (numero ? lunga > 4 : lunga < 3 || lunga > 9) return nullptr;
        if (numero && p < fine_ && (*p == ':' || *p == '.')) {
            if (!prima(parti)) return nullptr;
            for (int volte = 0; volte < 2 && p < fine_ && (*p == ':' || *p == '.'); ++volte) {
                const char* cifre = p + 1;
                p = Cifre(cifre, fine_);
                if (p == cifre || p - cifre > 2) return nullptr;
            }
            const char* dopo = Bianchi(p, fine_);
            return chiudi(mezzogiorno(dopo) ? dopo + 2 : p);
        }
        ++parti;
        const char* dopo = Bianchi(p, fine_);
        if (dopo < fine_ && *dopo == '#')
            return prima(parti) || (numero && prima(parti - 1)) ? dopo + 1 : nullptr;
        if (dopo < fine_ && (*dopo == '/' || *dopo == '-' || *dopo == ','))
            dopo = Bianchi(dopo + 1, fine_);
        else if (dopo == p && !(numero && mezzogiorno(p)))
            return nullptr;
        if (parti > 4) return nullptr;
        p = dopo;
    }
}

Gettone Scanner::GuardaNome() const noexcept {
    if (!Lettera(*p_) && *p_ != '_') return {};
    bool segno = false;
    const char* dopo = FineNome(p_, segno);
    return Fatto(TipoGettone::Nome, p_, dopo, segno);
}

Gettone Scanner::Leggi() noexcept {
    if (!Avanza()) return Fatto(TipoGettone::FineLogica, p_, p_);
    const char* da = p_;
    const char c = *p_;
    TipoGettone tipo = TipoGettone::Altro;
    bool segno = false;
    const char* dopo = nullptr;
    if (Lettera(c) || c == '_') {
        tipo = TipoGettone::Nome;
        dopo = FineNome(da, segno);
    } else if (Cifra(c) || (c == '.' && Cifra(Seguente())) || (c == '&' && NumeroInAltraBase())) {
        tipo = TipoGettone::Numero;
        dopo = FineNumero(da);
    } else {
        switch (c) {
        case '"':
            tipo = TipoGettone::Stringa;
            dopo = FineStringa(da);
            if (!dopo) { // what the line end cuts cannot be continued either
                dopo = fine_;
                finita_ = true;
            }
            break;
        case '#':
            dopo = FineData(da);
            if (dopo) tipo = TipoGettone::Data;
            break;
        case '[':
            dopo = FineParentesi(da);
            if (dopo) tipo = TipoGettone::NomeChiuso;
            break;
        case ':':
            tipo = Seguente() == '=' ? TipoGettone::Assegna : TipoGettone::DuePunti;
            dopo = da + (tipo == TipoGettone::Assegna ? 2 : 1);
            break;
        case '\'': {
            const Gettone commento = Fatto(TipoGettone::Commento, da, fine_);
            SaltaCommento();
            return commento;
        }
        default: break;
        }
    }
    p_ = dopo ? dopo : da + 1;
    return Fatto(tipo, da, p_, segno);
}

bool Scanner::NumeroInAltraBase() const noexcept {
    if (fine_ - p_ < 3) return false;
    const char base = static_cast<char>(p_[1] | 32);
    return (base == 'h' && Esadecimale(p_[2])) || (base == 'o' && p_[2] >= '0' && p_[2] <= '7');
}

bool Scanner::SaltaGettoni() noexcept {
    for (;;) {
        const TipoGettone tipo = Leggi().Tipo;
        if (tipo == TipoGettone::DuePunti) return true;
        if (tipo == TipoGettone::FineLogica || tipo == TipoGettone::Commento) return false;
    }
}

// The few places where only the tokens before can tell go back to `pezzo`, the last place where one
// is known to begin. That happens once a statement, so nothing is read more than twice.
bool Scanner::Salta() noexcept {
    if (finita_) return false;
    const char* pezzo = p_;
    for (const char* p = p_;;) {
        while (p < fine_ && !Di(*p, ByteSpeciale)) ++p;
        if (p == fine_) {
            if (p > pezzo && p[-1] == '_') {
                if (p - pezzo > 1 && DiNome(p[-2])) { // "Name_", or "1" and "_"
                    p_ = pezzo;
                    return SaltaGettoni();
                }
                if (ApriFisica()) {
                    p = pezzo = p_;
                    continue;
                }
            }
            p_ = fine_;
            finita_ = true;
            return false;
        }
        switch (*p) {
        case '\'':
            p_ = p;
            SaltaCommento();
            return false;
        case ':':
            if (p + 1 == fine_ || p[1] != '=') {
                p_ = p + 1;
                return true;
            }
            p += 2;
            break;
        case '"':
            p = FineStringa(p);
            if (!p) {
                p_ = fine_;
                finita_ = true;
                return false;
            }
            break;
        case '[': {
            const char* dopo = FineParentesi(p);
            p = dopo ? dopo : p + 1;
            break;
        }
        default: // '#': the sign of a name or number, or perhaps a date
            if (p > pezzo && p[-1] == '.') {
                p_ = pezzo;
                return SaltaGettoni();
            }
            if (p == pezzo || !DiNome(p[-1])) {
                const char* dopo = FineData(p);
                p = dopo ? dopo : p + 1;
            } else {
                ++p;
            }
        }
        pezzo = p;
    }
}

void Scanner::SaltaCommento() noexcept {
    for (const char* da = p_;; da = p_) {
        const bool continua = fine_ - da >= 2 && fine_[-1] == '_' && Bianco(fine_[-2]);
        if (!continua || !ApriFisica()) break;
    }
    p_ = fine_;
    finita_ = true;
}

} // namespace morvella::esame
