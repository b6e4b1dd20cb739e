// SPDX-License-Identifier: MIT
// verifica/verifica.h
//
// Proves a rewritten copy: bytes of the source and of the copy in, a verdict out. The copy's lines,
// trimmed, must be the source's in order, plus what a rewritten copy has of its own (banners, header
// text, blank lines, the closing block), minus what is meant to go (blank lines, lines that begin
// '*, comments with --togli-commenti, stray attributes). The head of a file, which is copied as it
// is, must be the same to the byte.
//
// It states for itself what the rewriter may do and shares no code with it, so that a slip of the
// one is not excused by the other. What it does not judge is the layout: how far a line stands to
// the right, and where blank lines stand.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace morvella::verifica {

struct Regole {
    bool Form = false;               // the name ends in ".frm": the file begins as code
    bool TogliCommenti = false;      // comment lines of the code go
    std::string_view Intestazione{}; // the header text of forms and classes; "" for none
    bool Lf = false;                 // a lone LF ends a line of the source too
};

/// Whether a file of this name begins as code.
bool NomeDiForm(std::string_view nome) noexcept;

/// Lines by what became of them.
struct Conti {
    std::uint64_t Righe = 0; // of the source
    // of the source, in the copy:
    std::uint64_t Uguali = 0;  // code, the blanks around it aside
    std::uint64_t Intatte = 0; // the head, to the byte
    // of the source, not in the copy:
    std::uint64_t VuoteTolte = 0;
    std::uint64_t AsterischiTolti = 0; // begin '*
    std::uint64_t CommentiTolti = 0;
    std::uint64_t AttributiTolti = 0;
    // of the copy, not in the source:
    std::uint64_t VuoteMesse = 0;
    std::uint64_t Riquadri = 0;     // lines of banners
    std::uint64_t Intestazione = 0; // 1 where the header text stands
    std::uint64_t Chiusura = 0;     // lines of the closing block

    Conti& operator+=(const Conti& altri) noexcept;
};

/// The first place where the copy is not what it must be.
struct Diversita {
    std::uint64_t RigaSorgente = 0; // as an editor counts, from 1; 0: not a line of the source
    std::uint64_t RigaCopia = 0;
    std::string_view Attesa;  // the line that must come; views of the source or of constant texts
    std::string_view Trovata; // the line that came
    bool Manca = false;       // the copy ends here
    bool DiTroppo = false;    // nothing may come any more
};

struct Esito {
    Conti Contate;
    std::optional<Diversita> Diversa;
};

/// Takes time in proportion to the bytes of both. Any bytes can be given. Texts in the result are
/// views of what was given.
Esito Verifica(std::string_view sorgente, std::string_view copia, const Regole& regole);

} // namespace morvella::verifica
