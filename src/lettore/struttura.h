// SPDX-License-Identifier: MIT
// lettore/struttura.h
//
// A listing as the reader of listings needs it: any of its lines, the greatest width, the error
// lines, the procedures, the line with a given number, the matches of a text. How a line is drawn
// is the front end's business.
//
// The file is read once from end to end, but not kept: only an offset for about every thousand
// lines, and a few blocks around the lines that were last asked for. It may be rewritten or cut
// short at any time. Lines then come out short or empty until Carica is called again; Cambiata
// tells when that is due.
#pragma once

#include <array>
#include <filesystem>
#include <optional>

#include "lettore/ago.h"
#include "lettore/procedura.h"

namespace morvella::lettore {

/// A place in a listing: the line, from 0, and the byte offset in it.
struct Posizione {
    Lungo Riga = 0;
    Lungo Byte = 0;
    auto operator<=>(const Posizione&) const = default; // NOLINT(modernize-use-nullptr)
};

/// A place that can be found again after the listing has been rewritten.
struct Appiglio {
    Posizione Dove;
    Testo Testa;      // the head of the procedure that the line is in
    Lungo Volta = 0;  // how many earlier procedures have the same head
    Lungo Scarto = 0; // in lines, from the head
};

class Struttura {
  public:
    /// In bytes. A longer line is split, so that any file can be shown.
    static constexpr Lungo LimiteRiga = Lungo{1024} * 1024;

    /// With `lf` a lone LF ends a line too, as it always does in a file without any CR LF.
    explicit Struttura(std::filesystem::path percorso, bool lf = false)
        : percorso_(std::move(percorso)), chiestoLf_(lf) {}

    /// Reads the file from end to end. Raises 53 when it does not exist, 75 when it is no plain
    /// file or cannot be opened, 57 when the disk fails; the object then stays as it was.
    void Carica();
    /// Makes the listing empty.
    void Svuota();
    /// Whether the file on the disk has changed since Carica, by its size and its time.
    bool Cambiata() const;

    const std::filesystem::path& Percorso() const noexcept { return percorso_; }
    Lungo Righe() const noexcept { return indice_.Righe; }
    /// The width of the widest line in columns, TABs expanded.
    Lungo Colonne() const noexcept { return indice_.Colonne; }
    /// Line `i`, from 0, without its line end; "" outside the listing. Valid until the next call.
    Vista Riga(Lungo i);
    /// Whether line `i` was split at the limit and goes on in the next.
    bool Spezzata(Lungo i);

    /// The error lines, from 0, ascending.
    const std::vector<Lungo>& Errori() const noexcept { return indice_.Errori; }
    const std::vector<Procedura>& Procedure() const noexcept { return indice_.Procedure; }
    /// The index of the last procedure whose head is at or before a line; -1 for none.
    Lungo ProceduraDi(Lungo riga) const;

    /// The first line with this number, or with the next higher one if the listing skips it; past
    /// the highest number, the first line with that. Nothing in a file without numbers.
    std::optional<Lungo> RigaDiNumero(Lungo numero);
    /// The number in a line's number field; 0 for none.
    static Lungo NumeroDi(Vista riga);

    /// The first match at or after `da`, or, backwards, the last one before it. Does not wrap around.
    std::optional<Posizione> Trova(const Ago& ago, Posizione da, bool avanti);

    /// Remembers a place, to be found by Ritrova when the listing has been read again.
    Appiglio Prendi(Posizione dove) const;
    /// The same line of the same procedure; if that is gone, the same line number, or the last.
    Posizione Ritrova(const Appiglio& appiglio) const;

    /// How many bytes have been read from the disk so far.
    std::uint64_t BytesLetti() const noexcept { return bytesLetti_; }
    /// How many bytes of memory the offsets and the blocks take.
    std::size_t BytesTenuti() const noexcept;

  private:
    struct Passo {
        Lungo Riga;        // the first line of the block
        std::uint64_t Da;  // its offset
        Lungo NumeroPrima; // the highest number before it
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
        Lungo Riga = -1;     // the first line; -1 for an empty slot
        bool Ultimo = false; // the last block of the file
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

/// A TAB goes to the next multiple of this column, as in a terminal.
inline constexpr Lungo Tabulazione = 8;
/// The column, from 0, at which a byte of a line begins.
Lungo ColonnaDiByte(Vista riga, Lungo byte);
/// The byte that a column shows: the last one that begins at or before it.
Lungo ByteDiColonna(Vista riga, Lungo colonna);

} // namespace morvella::lettore
