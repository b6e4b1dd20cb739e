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
#include <optional>
#include <span>
#include <vector>

#include "text/disco/archivio.h"
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
    static constexpr std::size_t Blocco = std::size_t{128} * 1024;
    /// Bytes in a block that is read: most modules are one block, and it is kept from the first
    /// pass over a module to the second. Only a line that is longer makes a buffer grow.
    static constexpr std::size_t BloccoLetto = std::size_t{256} * 1024;

    explicit Canali(Archivio& archivio) : archivio_(archivio) {}

    /// `Open percorso For Input As #n`. Raises 55 when the number or the file is open, 53
    /// without the file, 76 without its directory, 75 when it cannot be read.
    void OpenInput(int n, Vista percorso);
    /// `Open percorso For Output As #n`: from empty. Raises 55 when the number or the file is
    /// open, 76 without the directory, 70 and 75 when it may not be written; then no file is
    /// made or touched.
    void OpenOutput(int n, Vista percorso);
    /// `Close #n` and `Open` of the same file for output as #n, at once: it is empty again, and what
    /// had been printed and still waited for a block never goes to the disk. Where that fails the
    /// file and what waits stay. Raises 52 when the number is not open for output, 57 and the like
    /// when the file cannot be emptied.
    void Ricomincia(int n);
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

    /// `Line Input #n` and `Trim` of it for as many lines as lie ready in memory, `massimo` (from 1 on) of
    /// them at most, and for one where none does. Calls `prendi(riga, inMemoria)` for each and gives their
    /// number; the lines hold until the next call for `n`. `inMemoria`: behind the trimmed line stands a
    /// blank or a CR, and from its begin on Fetta bytes can be looked at. Raises 52 when the number is not
    /// open for input, 62 at the end of the file.
    template <class F>
    std::size_t LineInputTrim(int n, std::size_t massimo, F&& prendi) {
        Canale& c = Aperto(n, Modo::Lettura);
        const char* const fine = c.Memoria.data() + c.Fine;
        const char* riga = c.Memoria.data() + c.Inizio;
        std::size_t presi = 0;
        while (!FineRigaLf && presi < massimo) {
            std::size_t lunga = PrimoSegno(DoveByte(riga, '\r'));
            if (lunga == Fetta) lunga = LungaOltre(riga, fine);
            if (lunga + 1 >= static_cast<std::size_t>(fine - riga)) break;   // its end may lie further on
            const std::size_t blanks = PrimoSegno(~DoveByte<32>(riga, ' ')); // the CR is none
            Vista trimmata(riga + blanks, lunga - blanks);
            if (blanks == 32 || riga[lunga - static_cast<std::size_t>(lunga > blanks)] == ' ') [[unlikely]]
                trimmata = Trim(trimmata);
            prendi(RigaLetta{riga, lunga, trimmata.data(), trimmata.size()}, true);
            riga += lunga + (riga[lunga + 1] == '\n' ? 2 : 1);
            ++presi;
        }
        if (presi > 0) {
            c.Inizio = static_cast<std::size_t>(riga - c.Memoria.data());
            return presi;
        }
        const Vista intera = LineInputLento(c);
        const Vista trimmata = Trim(intera);
        prendi(RigaLetta{intera.data(), intera.size(), trimmata.data(), trimmata.size()}, false);
        return 1;
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
        Contatore righe('\r');
        while (visti + Fetta + 8 < resto) {
            const char* p = inizio + visti;
            if (const Segni segni = cerca(p)) {
                const std::size_t posto = PrimoSegno(segni);
                righe.AggiungiPrimi(p, posto);
                visti += posto;
                break;
            }
            righe.Aggiungi(p);
            visti += Fetta;
        }
        const std::size_t cr = righe.Quanti();
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
    /// The same for pieces in a row, of which the last has to end with the line end.
    void PrintPezzi(int n, std::span<const Vista> pezzi) { PrintLungo(Aperto(n, Modo::Scrittura), pezzi); }
    /// The memory in which what is printed next to channel `n` waits, for who writes several lines there
    /// himself: `Stampato` then says how much, with all line ends. Up to `Fetta` bytes behind `Posto` may be
    /// written over. Nothing where the number is not open for output.
    struct Spazio {
        char* Dove = nullptr;
        std::size_t Posto = 0;
    };
    Spazio DaStampare(int n) noexcept {
        if (n < 1 || n > NumeroMassimo) return {};
        Canale& c = canali_[static_cast<std::size_t>(n)];
        if (c.Stato != Modo::Scrittura) return {};
        return {c.Memoria.data() + c.Fine, Blocco - c.Fine};
    }
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
        bool Guasto = false;       // a write failed and was told
        bool Consegnato = false;   // writing: a block has gone to the file
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
    // Where in the memory read to last a line lies; for any other text lettoMisura_ or more.
    std::size_t PostoLetto(Vista riga) const noexcept {
        return reinterpret_cast<std::uintptr_t>(riga.data()) - reinterpret_cast<std::uintptr_t>(letto_);
    }

    // The length of a line that has no CR in its first slice; what is left where it has none at all.
    static std::size_t LungaOltre(const char* riga, const char* fine) noexcept {
        const auto resto = static_cast<std::size_t>(fine - riga);
        if (resto <= Fetta) return resto;
        const void* cr = std::memchr(riga + Fetta, '\r', resto - Fetta);
        return cr ? static_cast<std::size_t>(static_cast<const char*>(cr) - riga) : resto;
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
    // The memory that was read to last, without the bytes behind it.
    const char* letto_ = nullptr;
    std::size_t lettoMisura_ = 0;
};

} // namespace morvella
