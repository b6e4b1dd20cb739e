// SPDX-License-Identifier: MIT
// text/canali.h
//
// The sequential files, addressed by their numbers: a line at a time, over large blocks.
// LineInput returns a view into the channel's buffer; it holds until the next line of that
// channel. Buffers outlive their files. The inline code is in canali_lettura.h (input) and
// canali_stampa.h (output).
//
// What would surprise: a line ends at CR or CR LF. A lone LF is a byte of the line, unless
// FineRigaLf says that another system changed the files' line ends. Output always has CR LF.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "text/disco/archivio.h"
#include "text/fetta.h"

namespace morvella {

/// A line as read, whole and trimmed. Pointers and lengths, not two views: those would be passed
/// through memory.
struct LineaLetta {
    const char* Inizio = nullptr;
    std::size_t Misura = 0;
    const char* Testo = nullptr;
    std::size_t Lunga = 0;

    Vista Intera() const noexcept { return {Inizio, Misura}; }
    Vista Trimmata() const noexcept { return {Testo, Lunga}; }
};

class Canali {
  public:
    /// File numbers go from 1 to this; the system uses 1, 2 and 7.
    static constexpr int NumeroMassimo = 7;
    /// Bytes in a block that is written.
    static constexpr std::size_t Blocco = std::size_t{128} * 1024;
    /// Bytes in a block that is read. Most modules fit, and the block is kept from the first pass over
    /// a module to the second. Only a longer line makes a buffer grow.
    static constexpr std::size_t BloccoLetto = std::size_t{256} * 1024;

    explicit Canali(Archivio& archivio) : archivio_(archivio) {}

    /// `Open percorso For Input As #n`. Raises 55 when the number or the file is open, 53
    /// without the file, 76 without its directory, 75 when it cannot be read.
    void OpenInput(int n, Vista percorso);
    /// `Open percorso For Output As #n`: from empty. Raises 55 when the number or the file is
    /// open, 76 without the directory, 70 and 75 when it may not be written; then no file is
    /// made or touched.
    void OpenOutput(int n, Vista percorso);
    /// `Close #n` and `Open` of the same file for output as #n in one: the file is empty again, and
    /// what is still buffered never reaches the disk. Where that fails, file and buffer stay. Raises
    /// 52 when the number is not open for output, 57 and the like when the file cannot be emptied.
    void Ricomincia(int n);
    /// `Close #n`; nothing when the number is not open. Raises 61 or 57 when the last bytes did
    /// not reach the file; it is closed all the same. A failure already raised is not repeated.
    void Close(int n);
    bool Aperto(int n) const noexcept;

    /// `EOF(n)`: no byte is left to read. Raises 52 when the number is not open for input.
    bool Eof(int n);

    /// `Line Input #n`. The result holds until the next call for `n`. Raises 52 when the number
    /// is not open for input, 62 at the end of the file.
    Vista LineInput(int n);

    /// `Line Input #n` and `Trim` for the lines ready in the buffer, at most `massimo` (1 or more) of
    /// them; for one line where none is ready. Calls `prendi(riga, inMemoria)` for each and gives their
    /// number; the lines hold until the next call for `n`. `inMemoria`: a blank or a CR follows the
    /// trimmed line, and Fetta bytes from its start are readable. Raises 52 when the number is not open
    /// for input, 62 at the end of the file.
    template <class F>
    std::size_t LineInputTrim(int n, std::size_t massimo, F&& prendi);

    /// Skips whole lines of channel `n` that cannot matter, as far as the buffer reaches, and gives
    /// their number: 0 at the end of the file, or when the next line may matter. `cerca(p)` marks the
    /// places in the slice at `p` where something that matters may begin; the byte before `p` and
    /// eight after the slice are readable too. Raises 52 when the number is not open for input.
    template <class F>
    Lungo SaltaRighe(int n, F&& cerca);

    /// The same for lines that do not hold `ago`, of two to eight bytes.
    Lungo SaltaSenza(int n, Vista ago);

    /// `Print #n`: the pieces, joined, then CR LF. Raises 52 when the number is not open for
    /// output, 61 or 57 when a block could not be written.
    template <class... Pezzi>
    void Print(int n, const Pezzi&... pezzi);
    /// The same with `riga` after the pieces: fastest for a line that was read.
    template <class... Pezzi>
    void PrintRiga(int n, const Vista& riga, const Pezzi&... davanti);
    /// The same for an array of pieces; the last one must end in the line end.
    void PrintPezzi(int n, std::span<const Vista> pezzi) { PrintLungo(Aperto(n, Modo::Scrittura), pezzi); }
    /// The free part of channel `n`'s buffer, `Posto` bytes, for callers that lay several lines there
    /// themselves; `Stampato` then says how much, line ends included. Up to `Fetta` bytes past it may
    /// be overwritten. Nothing where the number is not open for output.
    struct Spazio {
        char* Dove = nullptr;
        std::size_t Posto = 0;
    };
    Spazio DaStampare(int n) noexcept;
    void Stampato(int n, std::size_t quanti) { Aperto(n, Modo::Scrittura).Fine += quanti; }
    /// A lone LF ends a line too, when reading.
    bool FineRigaLf = false;

  private:
    enum class Modo { Chiuso, Lettura, Scrittura };

    struct Canale {
        Modo Stato = Modo::Chiuso;
        std::unique_ptr<FileAperto> File;
        std::optional<Identita> Chi; // nothing for a new file until someone asks
        Testo Percorso;
        bool Guasto = false;       // a write failed and was raised
        bool Consegnato = false;   // writing: a block has gone to the file
        bool Esaurito = false;     // the file has no further block
        std::vector<char> Memoria; // padded by Coda bytes
        std::size_t Inizio = 0;    // reading: the first byte not yet given
        std::size_t Fine = 0;      // past the last byte read, or waiting to be written
        bool Mosso = false;        // reading: the start of the file is no longer in the buffer
        // Memoria holds all of the file read last; file and disk as they were then.
        bool Intero = false;
        Scheda ComEra;
        Lungo Cambiamenti = 0;
    };

    // Buffers are padded by Coda bytes, so whole slices may be read past the end.
    static constexpr std::size_t Coda = Fetta;
    // The offset of a line in the buffer last read into; lettoMisura_ or more for any other text.
    std::size_t PostoLetto(Vista riga) const noexcept {
        return reinterpret_cast<std::uintptr_t>(riga.data()) - reinterpret_cast<std::uintptr_t>(letto_);
    }

    static std::size_t LungaOltre(const char* riga, const char* fine) noexcept;
    std::size_t PrendiRigaCorta(Canale& c, const char* riga) const;
    template <class... Pezzi>
    void PrintPieno(Canale& c, const Pezzi&... pezzi);
    Canale& Aperto(int n, Modo modo) {
        if (n < 1 || n > NumeroMassimo || canali_[static_cast<std::size_t>(n)].Stato != modo)
            throw Errore(ErrNumeroFile);
        return canali_[static_cast<std::size_t>(n)];
    }
    Canale& Libero(int n, Vista percorso);
    void RifiutaAperto(const Trovato& file, Vista percorso);
    Vista LineInputLento(Canale& c);
    static const char* CrOLf(const char* da, const char* fine) noexcept;
    bool Riempi(Canale& c);
    void Scarica(Canale& c);
    void FaiPosto(Canale& c, std::size_t quanti);
    void SegnaLetto(const Canale& c);
    void Consegna(Canale& c, Vista bytes);
    void PrintLungo(Canale& c, std::span<const Vista> pezzi);

    Archivio& archivio_;
    std::array<Canale, NumeroMassimo + 1> canali_;
    // The buffer last read into, without its padding.
    const char* letto_ = nullptr;
    std::size_t lettoMisura_ = 0;
};

} // namespace morvella

#include "text/canali_lettura.h"
#include "text/canali_stampa.h"
