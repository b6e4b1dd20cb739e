// SPDX-License-Identifier: MIT
// window/lettore/file.h
//
// A listing as the reader of listings needs it: any line of it, the width of the widest, the
// error lines, the procedures, the line that has a number, where a text stands. Knows no
// widgets; how a line is drawn is the view's business.
//
// The file is read once from end to end and is not kept: an offset for each thousand lines or so
// stays, and a few blocks around the lines last asked for. It may be written anew at any time;
// then lines come out short or empty until Carica is called again, and Cambiata tells.
#pragma once

#include <array>
#include <filesystem>
#include <optional>

#include "lettore/ago.h"
#include "lettore/procedura.h"

namespace morvella::lettore {

/// A place between two bytes: the line from 0, and the bytes of it in front.
struct Posizione {
    Lungo Riga = 0;
    Lungo Byte = 0;
    auto operator<=>(const Posizione&) const = default; // NOLINT(modernize-use-nullptr)
};

/// A place that can be found again when the listing has been written anew.
struct Appiglio {
    Posizione Dove;
    Testo Testa;      // of the procedure that the line is in
    Lungo Volta = 0;  // how many procedures in front have the same head
    Lungo Scarto = 0; // lines from the head
};

class Struttura {
  public:
    /// A line longer than this goes on in the next one, so that any file can be shown.
    static constexpr Lungo LimiteRiga = Lungo{1024} * 1024;

    /// With `lf` a lone LF ends a line too; so it does in a file without any CR LF.
    explicit Struttura(std::filesystem::path percorso, bool lf = false)
        : percorso_(std::move(percorso)), chiestoLf_(lf) {}

    /// Reads the file from end to end. Raises 53 when there is none, 75 for a directory and what
    /// cannot be read; then all is as it was.
    void Carica();
    /// As when the file had no line.
    void Svuota();
    /// Whether the disk has something else than what Carica read.
    bool Cambiata() const;

    const std::filesystem::path& Percorso() const noexcept { return percorso_; }
    Lungo Righe() const noexcept { return indice_.Righe; }
    /// Of the widest line, TABs opened.
    Lungo Colonne() const noexcept { return indice_.Colonne; }
    /// One line without its end, from 0; "" outside. Holds until the next call.
    Vista Riga(Lungo i);
    /// Whether a line was cut at the limit and goes on in the next.
    bool Spezzata(Lungo i);

    const std::vector<Lungo>& Errori() const noexcept { return indice_.Errori; }
    const std::vector<Procedura>& Procedure() const noexcept { return indice_.Procedure; }
    /// The procedure whose head stands at or above a line; -1 for none.
    Lungo ProceduraDi(Lungo riga) const;

    /// The first line with this number or, where it is left out, the next higher; else the last
    /// that has one. Nothing in a file without numbers.
    std::optional<Lungo> RigaDiNumero(Lungo numero);
    /// The number that a line begins with; 0 for none.
    static Lungo NumeroDi(Vista riga);

    /// The first place at or behind `da`, or the last in front of it. Does not go round.
    std::optional<Posizione> Trova(const Ago& ago, Posizione da, bool avanti);

    Appiglio Prendi(Posizione dove) const;
    Posizione Ritrova(const Appiglio& appiglio) const;

    /// All bytes read from the disk so far.
    std::uint64_t BytesLetti() const noexcept { return bytesLetti_; }
    /// What is kept of the file: the offsets and the blocks.
    std::size_t BytesTenuti() const noexcept;

  private:
    struct Passo {
        Lungo Riga;        // the first of the block
        std::uint64_t Da;  // its offset
        Lungo NumeroPrima; // the highest number in front of it
    };
    struct Indice {
        std::vector<Passo> Passi;
        std::vector<Lungo> Errori;
        std::vector<Procedura> Procedure;
        Lungo Righe = 0;
        Lungo Colonne = 0;
        Lungo UltimoNumero = 0;
        std::uint64_t Bytes = 0;
        std::filesystem::file_time_type Quando;
        bool Lf = false;
    };
    struct Inizio {
        std::uint32_t Da;
        std::uint32_t Quanti;
        bool Spezzata;
    };
    struct Blocco {
        Lungo Riga = -1;     // the first; -1: nothing in it
        bool Ultimo = false; // of the file
        std::uint64_t Usato = 0;
        Testo Bytes;
        std::vector<Inizio> Righe;
    };
    class Lettura;

    static constexpr std::size_t Tenuti = 6;

    std::size_t PassoDi(Lungo riga) const;
    void LeggiBlocco(std::size_t passo, Blocco& blocco);
    const Inizio* Cerca(Lungo i, const Blocco*& blocco);
    void Taglia(Blocco& blocco) const;

    std::filesystem::path percorso_;
    bool chiestoLf_;
    Indice indice_;
    std::array<Blocco, Tenuti> blocchi_;
    std::uint64_t usi_ = 0;
    std::uint64_t bytesLetti_ = 0;
};

/// TABs stand at each eighth column, as in a terminal.
inline constexpr Lungo Tabulazione = 8;
/// The column in front of which a byte of a line is shown, and the byte that a column shows: the
/// last one that does not begin behind it.
Lungo ColonnaDiByte(Vista riga, Lungo byte);
Lungo ByteDiColonna(Vista riga, Lungo colonna);

} // namespace morvella::lettore
