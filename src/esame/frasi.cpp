// SPDX-License-Identifier: MIT
#include "esame/frasi.h"

namespace morvella::esame {

namespace {

// A name of these with a colon after it is a statement and no label.
bool NonEtichetta(Parola parola) noexcept {
    switch (parola) {
    case Parola::Else:
    case Parola::Do:
    case Parola::Loop:
    case Parola::Next:
    case Parola::Wend:
    case Parola::End:
    case Parola::Stop:
    case Parola::Return:
    case Parola::Resume:
    case Parola::Exit:
    case Parola::Case:
    case Parola::EndIf:
    case Parola::Rem:
    case Parola::Select:
    case Parola::With:
    case Parola::For:
    case Parola::While:
    case Parola::If:
    case Parola::ElseIf: return true;
    default: return false;
    }
}

bool Modificatore(Parola parola) noexcept {
    return parola == Parola::Public || parola == Parola::Private || parola == Parola::Friend ||
           parola == Parola::Global || parola == Parola::Static;
}

Blocco BloccoDi(Parola parola) noexcept {
    switch (parola) {
    case Parola::If: return Blocco::If;
    case Parola::For: return Blocco::For;
    case Parola::Do: return Blocco::Do;
    case Parola::While: return Blocco::While;
    case Parola::Select: return Blocco::Select;
    case Parola::With: return Blocco::With;
    case Parola::Sub: return Blocco::Sub;
    case Parola::Function: return Blocco::Function;
    case Parola::Property: return Blocco::Property;
    case Parola::Type: return Blocco::Type;
    case Parola::Enum: return Blocco::Enum;
    default: return Blocco::Nessuno;
    }
}

bool Nome(const Gettone& g) noexcept {
    return g.Tipo == TipoGettone::Nome || g.Tipo == TipoGettone::NomeChiuso;
}

} // namespace

void Frasi::Dove(Frase& frase) const noexcept {
    frase = Frase{};
    frase.Prima = prima_;
    frase.Inizio = s_.Posizione();
    frase.Riga = s_.Riga();
    frase.Colonna = s_.Colonna();
    frase.InizioRiga = s_.InizioRiga();
}

bool Frasi::Prossima(Frase& frase) noexcept {
    for (;;) {
        if (!aperta_) {
            if (daChiudere_) {
                daChiudere_ = false;
                frase = Frase{};
                frase.Quale = Specie::FineLinea;
                frase.Riga = rigaLogica_;
                frase.Inizio = frase.InizioRiga = inizioLogica_;
                return true;
            }
            if (!s_.ApriLogica()) return false;
            daChiudere_ = linee_;
            rigaLogica_ = s_.Riga();
            inizioLogica_ = s_.InizioRiga();
            aperta_ = prima_ = true;
            salto_ = false;
            unaRiga_ = 0;
            if (!s_.Avanza()) {
                aperta_ = false;
                continue;
            }
            if (InizioLinea(frase)) return true;
            continue;
        }
        if (!s_.Avanza()) {
            aperta_ = false;
            continue;
        }
        if (InizioFrase(frase) == Esito::Data) return true;
    }
}

// A line number, then what only the first statement of a line can be.
bool Frasi::InizioLinea(Frase& frase) noexcept {
    if (s_.Byte() == '#' && Direttiva(frase)) return true;
    if (Cifra(s_.Byte())) {
        s_.Leggi();
        if (!s_.Avanza()) {
            aperta_ = false;
            return false;
        }
        if (s_.Byte() == ':' && s_.Seguente() != '=') {
            s_.Passo();
            return false;
        }
    }
    return InizioFrase(frase) == Esito::Data;
}

Frasi::Esito Frasi::InizioFrase(Frase& frase) noexcept {
    const char c = s_.Byte();
    if (c == ':' && s_.Seguente() != '=') { // an empty statement
        s_.Passo();
        prima_ = salto_ = false;
        return Esito::Saltata;
    }
    if (c == '\'') {
        Dove(frase);
        frase.Quale = Specie::Commento;
        s_.SaltaCommento();
        aperta_ = false;
        return commenti_ ? Esito::Data : Esito::Saltata;
    }
    if (Cifra(c) && salto_) { // Then 100
        s_.Leggi();
        salto_ = false;
        return Esito::Saltata;
    }
    const Gettone nome = s_.GuardaNome();
    const Parola parola = s_.ParolaDi(nome);
    if (parola == Parola::Else && unaRiga_ > 0) {
        s_.Oltre(nome);
        salto_ = true;
        return Esito::Saltata;
    }
    Dove(frase);
    salto_ = false;
    const bool prima = prima_;
    prima_ = false;
    if (nome.Tipo != TipoGettone::Nome) {
        if (prima && c == '[') { // a label may stand in brackets; what else, is plain
            const Gettone chiuso = s_.Leggi();
            if (chiuso.Tipo == TipoGettone::NomeChiuso && s_.Avanza() && s_.Byte() == ':' &&
                s_.Seguente() != '=') {
                s_.Passo();
                frase.Quale = Specie::Etichetta;
                return Esito::Data;
            }
        }
        Resto();
        return Esito::Data;
    }
    s_.Oltre(nome);
    if (parola == Parola::Rem) {
        frase.Quale = Specie::Commento;
        s_.SaltaCommento();
        aperta_ = false;
        return commenti_ ? Esito::Data : Esito::Saltata;
    }
    if (prima && !nome.Segno && !NonEtichetta(parola)) {
        if (!s_.Avanza()) {
            aperta_ = false;
            return Esito::Data;
        }
        if (s_.Byte() == ':' && s_.Seguente() != '=') {
            s_.Passo();
            frase.Quale = Specie::Etichetta;
            return Esito::Data;
        }
        if (parola == Parola::Attribute && Nome(s_.GuardaNome())) {
            frase.Quale = Specie::Attributo;
            s_.SaltaLogica();
            aperta_ = false;
            return Esito::Data;
        }
    }
    if (parola == Parola::Nessuna) {
        Resto();
        return Esito::Data;
    }
    return Parole(frase, parola);
}

Frasi::Esito Frasi::Parole(Frase& frase, Parola parola) noexcept {
    const auto apre = [&](Specie specie) {
        frase.Quale = specie;
        frase.Cosa = BloccoDi(parola);
        Resto(parola);
        return Esito::Data;
    };
    const auto chiude = [&](Blocco blocco) {
        frase.Quale = Specie::Chiude;
        frase.Cosa = blocco;
        Resto();
        return Esito::Data;
    };
    switch (parola) {
    case Parola::If: If(frase); return Esito::Data;
    case Parola::Else: Else(frase); return Esito::Data;
    case Parola::ElseIf:
        if (unaRiga_ > 0) break;
        frase.Quale = Specie::ElseIf;
        FinoAThen();
        return Esito::Data;
    case Parola::For:
    case Parola::Do:
    case Parola::While: return apre(Specie::Apre);
    case Parola::Select:
        if (!s_.Avanza() || GuardaParola() != Parola::Case) break;
        s_.Leggi();
        return apre(Specie::Apre);
    case Parola::With:
        if (FineFrase()) break;
        return apre(Specie::Apre);
    case Parola::Case:
        frase.Quale = Specie::Case;
        Resto(Parola::Case);
        return Esito::Data;
    case Parola::Next: Next(frase); return Esito::Data;
    case Parola::Loop: return chiude(Blocco::Do);
    case Parola::Wend: return chiude(Blocco::While);
    case Parola::EndIf:
        if (unaRiga_ > 0) {
            --unaRiga_;
            break;
        }
        frase.Unita = true;
        return chiude(Blocco::If);
    case Parola::End: return End(frase);
    case Parola::Sub:
    case Parola::Function:
    case Parola::Property:
    case Parola::Type:
    case Parola::Enum:
    case Parola::Public:
    case Parola::Private:
    case Parola::Friend:
    case Parola::Global:
    case Parola::Static: Capo(frase, parola); return Esito::Data;
    case Parola::Dim:
    case Parola::Const:
    case Parola::Declare:
    case Parola::Option:
    case Parola::Event:
    case Parola::Implements: frase.Quale = Specie::Dichiarazione; break;
    default: break;
    }
    Resto();
    return Esito::Data;
}

// Goes on to the end of the statement: over its colon, or to the Else of a one-line If.
void Frasi::Resto(Parola prima) noexcept {
    if (unaRiga_ == 0) {
        aperta_ = s_.Salta();
        return;
    }
    bool libero = prima != Parola::Case; // may an Else stand here?
    for (;;) {
        const Gettone g = s_.Leggi();
        if (g.Tipo == TipoGettone::DuePunti) return;
        if (g.Tipo == TipoGettone::FineLogica || g.Tipo == TipoGettone::Commento) {
            aperta_ = false;
            return;
        }
        const Parola parola = s_.QuattroDi(g);
        if (libero && parola == Parola::Else) return s_.Torna(g);
        libero = !g.E('.', s_.Bytes()) && !g.E('!', s_.Bytes()) && parola != Parola::Case;
    }
}

// Nothing more in this statement?
bool Frasi::FineFrase() noexcept {
    if (!s_.Avanza()) return true;
    return s_.Byte() == '\'' || (s_.Byte() == ':' && s_.Seguente() != '=');
}

// Over Then: true. Without one, to the end of the statement.
bool Frasi::FinoAThen() noexcept {
    bool membro = false; // after a dot a word is a name
    while (!FineFrase()) {
        const Gettone g = s_.Leggi();
        if (!membro && s_.QuattroDi(g) == Parola::Then) return true;
        membro = g.E('.', s_.Bytes()) || g.E('!', s_.Bytes());
    }
    return false;
}

void Frasi::If(Frase& frase) noexcept {
    frase.Quale = Specie::Apre;
    frase.Cosa = Blocco::If;
    bool membro = false;
    for (;;) {
        const Gettone g = s_.Leggi();
        if (g.Tipo == TipoGettone::DuePunti || g.Tipo == TipoGettone::FineLogica ||
            g.Tipo == TipoGettone::Commento) {
            frase.Muta = true; // no Then at all
            return;
        }
        const Parola parola = membro ? Parola::Nessuna : s_.QuattroDi(g);
        if (parola == Parola::Then) break;
        if (parola == Parola::GoTo) {
            frase.Quale = Specie::IfUnaRiga;
            frase.Cosa = Blocco::Nessuno;
            ++unaRiga_;
            Resto();
            return;
        }
        membro = g.E('.', s_.Bytes()) || g.E('!', s_.Bytes());
    }
    // With nothing after its Then the If opens a block, and a comment is nothing.
    bool duePunti = false;
    while (s_.Avanza()) {
        if (s_.Byte() == ':' && s_.Seguente() != '=') {
            duePunti = true;
            s_.Passo();
            continue;
        }
        if (s_.Byte() == '\'' || GuardaParola() == Parola::Rem) break;
        frase.Quale = Specie::IfUnaRiga;
        frase.Cosa = Blocco::Nessuno;
        salto_ = !duePunti;
        ++unaRiga_;
        return;
    }
    frase.Muta = duePunti;
}

void Frasi::Else(Frase& frase) noexcept {
    frase.Quale = Specie::Else;
    if (s_.Avanza() && GuardaParola() == Parola::If) {
        frase.Quale = Specie::ElseIf;
        s_.Leggi();
        FinoAThen();
    }
}

void Frasi::Next(Frase& frase) noexcept {
    frase.Quale = Specie::Chiude;
    frase.Cosa = Blocco::For;
    int parentesi = 0;
    while (!FineFrase()) {
        if (unaRiga_ > 0 && GuardaParola() == Parola::Else) return;
        const Gettone g = s_.Leggi();
        if (g.E('(', s_.Bytes())) ++parentesi;
        if (g.E(')', s_.Bytes())) --parentesi;
        if (g.E(',', s_.Bytes()) && parentesi <= 0) ++frase.Chiusure;
    }
}

Frasi::Esito Frasi::End(Frase& frase) noexcept {
    const Gettone g = s_.Avanza() ? s_.GuardaNome() : Gettone{};
    const Parola parola = s_.ParolaDi(g);
    const Blocco blocco = BloccoDi(parola);
    if (parola == Parola::If && unaRiga_ > 0) {
        --unaRiga_;
    } else if (blocco == Blocco::If || blocco == Blocco::Select || blocco == Blocco::With) {
        frase.Quale = Specie::Chiude;
        frase.Cosa = blocco;
    } else if (Procedura(blocco)) {
        frase.Quale = Specie::Fine;
        frase.Cosa = blocco;
    }
    if (blocco != Blocco::Nessuno) s_.Oltre(g);
    Resto();
    return Esito::Data;
}

// A head has a name, and a Type or Enum has nothing after it, for members of a Type are called so.
void Frasi::Capo(Frase& frase, Parola parola) noexcept {
    if (Modificatore(parola)) frase.Quale = Specie::Dichiarazione;
    while (Modificatore(parola)) {
        if (!s_.Avanza()) break;
        const Gettone g = s_.GuardaNome();
        parola = s_.ParolaDi(g);
        if (Modificatore(parola) || Procedura(BloccoDi(parola))) s_.Oltre(g);
    }
    const Blocco blocco = BloccoDi(parola);
    if (!Procedura(blocco) || FineFrase()) return Resto();
    if (blocco == Blocco::Property) {
        const Parola quale = GuardaParola();
        if (quale != Parola::Get && quale != Parola::Let && quale != Parola::Set) return Resto();
        frase.Get = quale == Parola::Get;
        s_.Leggi();
        if (FineFrase()) return Resto();
    }
    const Gettone nome = s_.Leggi();
    const bool tipo = blocco == Blocco::Type || blocco == Blocco::Enum;
    if (Nome(nome) && (tipo ? FineFrase() : blocco == Blocco::Property || s_.ParolaDi(nome) != Parola::As)) {
        frase.Quale = Specie::Capo;
        frase.Cosa = blocco;
        frase.InizioNome = nome.Inizio;
        frase.LungoNome = nome.Lungo;
    }
    Resto();
}

bool Frasi::Direttiva(Frase& frase) noexcept {
    const Scanner torna = s_;
    Dove(frase);
    s_.Passo();
    const Parola parola = s_.Avanza() ? s_.ParolaDi(s_.Leggi()) : Parola::Nessuna;
    const Parola dopo = parola != Parola::Nessuna && s_.Avanza() ? GuardaParola() : Parola::Nessuna;
    switch (parola) {
    case Parola::If: {
        frase.Quale = Specie::CondIf;
        if (FineFrase()) break;
        const Gettone g = s_.Leggi();
        if (s_.ParolaDi(g) == Parola::False || s_.Testo(g) == "0")
            frase.Morta = FineFrase() || GuardaParola() == Parola::Then;
        break;
    }
    case Parola::ElseIf: frase.Quale = Specie::CondElseIf; break;
    case Parola::Else: frase.Quale = dopo == Parola::If ? Specie::CondElseIf : Specie::CondElse; break;
    case Parola::EndIf:
        frase.Quale = Specie::CondEndIf;
        frase.Unita = true;
        break;
    case Parola::Const: frase.Quale = Specie::CondConst; break;
    case Parola::End:
        if (dopo == Parola::If) {
            frase.Quale = Specie::CondEndIf;
            break;
        }
        [[fallthrough]];
    default: s_ = torna; return false;
    }
    s_.SaltaLogica();
    aperta_ = false;
    return true;
}

} // namespace morvella::esame
