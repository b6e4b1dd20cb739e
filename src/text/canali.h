// SPDX-License-Identifier: MIT
// text/canali.h
//
// The sequential files, addressed by their numbers, a line at a time over large blocks.
// A line that LineInput gives is a look into the channel's own buffer and holds until the
// next line of that channel: no line is copied, none is kept. Buffers outlive their files.
//
// What would surprise: a line ends at CR or CR LF; a lone LF ends nothing and stays in the
// line as a byte, unless FineRigaLf says that the files came back from a system that
// changed their line ends. What is written always ends in CR LF.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

#include "text/archivio.h"
#include "text/fetta.h"

namespace morvella {

/// Copies a piece to `dove` and gives the place behind it. Most pieces are short: copied without a
/// call, in strides that may overlap.
inline char* Posa(char* dove, Vista pezzo) noexcept {
    const char* da = pezzo.data();
    const std::size_t n = pezzo.size();
    if (n >= 8) {
        if (n <= 16) {
            std::memcpy(dove, da, 8);
            std::memcpy(dove + n - 8, da + n - 8, 8);
        } else if (n <= 32) {
            std::memcpy(dove, da, 16);
            std::memcpy(dove + n - 16, da + n - 16, 16);
        } else {
            std::memcpy(dove, da, n);
        }
    } else if (n >= 4) {
        std::memcpy(dove, da, 4);
        std::memcpy(dove + n - 4, da + n - 4, 4);
    } else {
        for (std::size_t i = 0; i < n; ++i) dove[i] = da[i];
    }
    return dove + n;
}
/// The same in one stride: `dove` has room for all of it.
inline char* Posa(char* dove, const TestoLargo& pezzo) noexcept {
    if (pezzo.size() <= TestoLargo::Passo) [[likely]]
        std::memcpy(dove, pezzo.data(), TestoLargo::Passo);
    else
        std::memcpy(dove, pezzo.data(), pezzo.size());
    return dove + pezzo.size();
}

/// A line as it stands in its file, and the same without the blanks at both ends. Kept as
/// numbers: two views would go through memory on their way.
struct RigaLetta {
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
    static constexpr std::size_t Blocco = 128 * 1024;
    /// Bytes in a block that is read: most modules are one block, and it is kept from the first
    /// pass over a module to the second. Only a line that is longer makes a buffer grow.
    static constexpr std::size_t BloccoLetto = 256 * 1024;

    explicit Canali(Archivio& archivio) : archivio_(archivio) {}

    /// `Open percorso For Input As #n`. Raises 55 when the number or the file is open, 53
    /// without the file, 76 without its directory, 75 when it cannot be read.
    void OpenInput(int n, Vista percorso);
    /// `Open percorso For Output As #n`: from empty. Raises 55 when the number or the file is
    /// open, 76 without the directory, 70 and 75 when it may not be written; then no file is
    /// made or touched.
    void OpenOutput(int n, Vista percorso);
    /// `Close #n`; nothing when the number is not open. Raises 61 or 57 when the last bytes did
    /// not reach the file; it is closed all the same. A failure already raised is not repeated.
    void Close(int n);
    bool Aperto(int n) const noexcept;

    /// `EOF(n)`: no byte is left to read. Raises 52 when the number is not open for input.
    bool Eof(int n) {
        Canale& c = Aperto(n, Modo::Lettura);
        return c.Inizio == c.Fine && !Riempi(c);
    }

    /// `Line Input #n`. The result holds until the next call for `n`. Raises 52 when the number
    /// is not open for input, 62 at the end of the file.
    Vista LineInput(int n) {
        Canale& c = Aperto(n, Modo::Lettura);
        const char* riga = c.Memoria.data() + c.Inizio;
        const std::size_t lunga = PrendiRigaCorta(c, riga);
        return lunga < Fetta ? Vista(riga, lunga) : LineInputLento(c);
    }

    /// `Line Input #n`, and `Trim` of it.
    RigaLetta LineInputTrim(int n) {
        Canale& c = Aperto(n, Modo::Lettura);
        const char* riga = c.Memoria.data() + c.Inizio;
        const std::size_t lunga = PrendiRigaCorta(c, riga);
        if (lunga < Fetta) [[likely]] {
            const std::size_t blanks = PrimoSegno(~DoveByte<32>(riga, ' ')); // the CR is none
            const std::size_t resto = lunga - blanks;
            if (blanks < 32 && riga[lunga - static_cast<std::size_t>(resto > 0)] != ' ') [[likely]]
                return {riga, lunga, riga + blanks, resto};
        }
        const Vista intera = lunga < Fetta ? Vista(riga, lunga) : LineInputLento(c);
        const Vista trimmata = Trim(intera);
        return {intera.data(), intera.size(), trimmata.data(), trimmata.size()};
    }

    /// Passes over whole lines of channel `n` of which none can matter, as many as are looked
    /// through in one go, and gives their number: none at the end of the file, or when the next
    /// line may matter. `cerca(p)` marks the places in the slice at `p` at which something that
    /// matters may begin; the byte before `p` and eight behind the slice are there to be looked
    /// at too. Raises 52 when the number is not open for input.
    template <class F>
    Lungo SaltaRighe(int n, F&& cerca) {
        Canale& c = Aperto(n, Modo::Lettura);
        // The first line of a block has no byte before it.
        if (FineRigaLf || c.Inizio == 0 || c.Inizio == c.Fine) return 0;
        // Lines are counted by their CRs. What is passed over ends behind a line end whose next byte
        // is known too, or the line would end in doubt.
        const char* inizio = c.Memoria.data() + c.Inizio;
        const std::size_t resto = c.Fine - c.Inizio;
        std::size_t visti = 0;
        std::size_t cr = 0;
        while (visti + Fetta + 8 < resto) {
            const char* p = inizio + visti;
            if (const Segni segni = cerca(p)) {
                const std::size_t posto = PrimoSegno(segni);
                cr += static_cast<std::size_t>(std::popcount(DoveByte(p, '\r') & ((Segni{1} << posto) - 1)));
                visti += posto;
                break;
            }
            cr += ContaByte(p, '\r');
            visti += Fetta;
        }
        if (cr == 0) return 0;
        const std::size_t fino = Vista(inizio, visti).rfind('\r') + 1;
        c.Inizio += fino + (inizio[fino] == '\n' ? 1 : 0);
        return static_cast<Lungo>(cr);
    }

    /// The same for lines that do not hold `ago`, of two to eight bytes.
    Lungo SaltaSenza(int n, Vista ago) {
        return SaltaRighe(n, [ago](const char* p) {
            Segni trovati = 0;
            for (Segni forse = DoveDue(p, ago[0], ago[1]); forse != 0; forse &= forse - 1)
                if (Vista(p + PrimoSegno(forse), ago.size()) == ago) trovati |= forse & (~forse + 1);
            return trovati;
        });
    }

    /// `PrimiOttoDi(riga)`, fastest for a line that was read.
    std::uint64_t PrimiOtto(Vista riga) const noexcept {
        const std::size_t posto = PostoLetto(riga);
        return posto < lettoMisura_ ? OttoIn(letto_ + posto, riga.size()) : PrimiOttoDi(riga);
    }

    /// `Print #n`: the pieces, joined, then CR LF. Raises 52 when the number is not open for
    /// output, 61 or 57 when a block could not be written.
    template <class... Pezzi>
    void Print(int n, const Pezzi&... pezzi) {
        Canale& c = Aperto(n, Modo::Scrittura);
        const std::size_t totale = (std::size_t{2} + ... + Vista(pezzi).size());
        if (totale > Blocco - c.Fine) return PrintPieno(c, pezzi...);
        char* dove = c.Memoria.data() + c.Fine;
        ((dove = Posa(dove, pezzi)), ...);
        std::memcpy(dove, "\r\n", 2);
        c.Fine += totale;
    }
    /// The same with `riga` behind the pieces: fastest for a line that was read.
    template <class... Pezzi>
    void PrintRiga(int n, const Vista& riga, const Pezzi&... davanti) {
        Canale& c = Aperto(n, Modo::Scrittura);
        const std::size_t posto = PostoLetto(riga);
        const std::size_t totale = ((riga.size() + 2) + ... + Vista(davanti).size());
        if (totale > Blocco - c.Fine) return PrintPieno(c, davanti..., riga);
        // A line that lies in the memory of a channel is copied as a slice, whatever its length.
        char* dove = c.Memoria.data() + c.Fine;
        ((dove = Posa(dove, davanti)), ...);
        if (posto < lettoMisura_ && riga.size() <= Fetta)
            std::memcpy(dove, letto_ + posto, Fetta);
        else
            std::memcpy(dove, riga.data(), riga.size());
        std::memcpy(dove + riga.size(), "\r\n", 2);
        c.Fine += totale;
    }
    /// The same for pieces in a row, of which the last has to be the line end.
    void PrintPezzi(int n, std::span<const Vista> pezzi) { PrintLungo(Aperto(n, Modo::Scrittura), pezzi); }

    /// A lone LF ends a line too, when reading.
    bool FineRigaLf = false;

  private:
    enum class Modo { Chiuso, Lettura, Scrittura };

    struct Canale {
        Modo Stato = Modo::Chiuso;
        std::unique_ptr<FileAperto> File;
        Identita Chi;
        Testo Percorso;
        bool Guasto = false;       // a write failed and was told
        bool Esaurito = false;     // the file has no further block
        std::vector<char> Memoria; // with Coda bytes behind what it is to hold
        std::size_t Inizio = 0;    // reading: the first byte not yet given
        std::size_t Fine = 0;      // behind the last byte read, or waiting to be written
        bool Mosso = false;        // reading: the front of the file has made place already
        // Memoria holds the whole of the file read last, and how the file and the disk were then.
        bool Intero = false;
        Scheda ComEra;
        Lungo Cambiamenti = 0;
    };

    // What lies in the memory of a channel can be looked at and copied in whole strides: so many
    // bytes behind it are there too.
    static constexpr std::size_t Coda = Fetta;
    // PrimiOttoDi of a line in the memory of a channel.
    static std::uint64_t OttoIn(const char* p, std::size_t lunga) noexcept {
        if constexpr (std::endian::native != std::endian::little) return PrimiOttoDi({p, lunga});
        std::uint64_t n = 0;
        std::memcpy(&n, p, 8);
        return lunga >= 8 ? n : n & ((std::uint64_t{1} << (8 * lunga)) - 1);
    }

    // Where in the memory read to last a line lies; for any other text lettoMisura_ or more.
    std::size_t PostoLetto(Vista riga) const noexcept {
        return reinterpret_cast<std::uintptr_t>(riga.data()) - reinterpret_cast<std::uintptr_t>(letto_);
    }

    // Takes the common line, which begins at `riga`, off the block: it lies whole in a slice, and
    // the byte behind its CR in the block too. Gives its length, and `Fetta` for any other line.
    std::size_t PrendiRigaCorta(Canale& c, const char* riga) const {
        const std::size_t lunga = PrimoSegno(DoveByte(riga, '\r'));
        if (lunga + 1 >= c.Fine - c.Inizio || FineRigaLf) return Fetta;
        if (lunga < Fetta) c.Inizio += lunga + (riga[lunga + 1] == '\n' ? 2 : 1);
        return lunga;
    }

    template <class... Pezzi>
    [[gnu::noinline]] void PrintPieno(Canale& c, const Pezzi&... pezzi) {
        const std::array<Vista, sizeof...(pezzi) + 1> tutti = {Vista(pezzi)..., Vista("\r\n")};
        PrintLungo(c, tutti);
    }

    Canale& Aperto(int n, Modo modo) {
        if (n < 1 || n > NumeroMassimo || canali_[static_cast<std::size_t>(n)].Stato != modo)
            throw Errore(ErrNumeroFile);
        return canali_[static_cast<std::size_t>(n)];
    }
    Canale& Libero(int n, Vista percorso);
    void RifiutaAperto(const Trovato& file, Vista percorso) const;
    Vista LineInputLento(Canale& c);
    bool Riempi(Canale& c);
    void Scarica(Canale& c);
    void FaiPosto(Canale& c, std::size_t quanti);
    void SegnaLetto(const Canale& c);
    void Consegna(Canale& c, Vista bytes);
    void PrintLungo(Canale& c, std::span<const Vista> pezzi);

    Archivio& archivio_;
    std::array<Canale, NumeroMassimo + 1> canali_;
    // The memory that was read to last, without the bytes behind it.
    const char* letto_ = nullptr;
    std::size_t lettoMisura_ = 0;
};

} // namespace morvella
