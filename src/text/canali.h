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
#include <cstring>
#include <memory>
#include <span>
#include <vector>

#include "text/archivio.h"

namespace morvella {

class Canali {
  public:
    /// File numbers go from 1 to this; the system uses 1, 2 and 7.
    static constexpr int NumeroMassimo = 7;
    /// Bytes in a block. Only a line that is longer makes a buffer grow.
    static constexpr std::size_t Blocco = 128 * 1024;

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
        if (!FineRigaLf && c.Inizio < c.Fine) {
            // The common line lies whole in the block, and the byte behind its CR too.
            const char* riga = c.Memoria.data() + c.Inizio;
            const auto* cr = static_cast<const char*>(std::memchr(riga, '\r', c.Fine - c.Inizio));
            if (cr && cr + 1 < c.Memoria.data() + c.Fine) {
                const auto lunga = static_cast<std::size_t>(cr - riga);
                c.Inizio += lunga + (cr[1] == '\n' ? 2 : 1);
                return {riga, lunga};
            }
        }
        return LineInputLento(c);
    }

    /// Bytes that SaltaRighe looks through at a time.
    static constexpr std::size_t Fetta = 128;

    /// Passes over whole lines of channel `n` of which none can matter, as many as are looked
    /// through in one go, and gives their number: none at the end of the file, or when the next
    /// line may matter. `cerca(p)` gives the place, from 0, of the first of the `Fetta` bytes
    /// from `p` on at which something that matters may begin, `Fetta` when there is none; the
    /// byte before `p` and eight behind the slice are there to be looked at too. Raises 52 when
    /// the number is not open for input.
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
            const std::size_t posto = cerca(p);
            if (posto < Fetta) {
                for (std::size_t i = 0; i < posto; ++i) cr += p[i] == '\r' ? 1 : 0;
                visti += posto;
                break;
            }
            unsigned char conta = 0; // 128 fit
            for (std::size_t i = 0; i < Fetta; ++i)
                conta = static_cast<unsigned char>(conta + (p[i] == '\r'));
            cr += conta;
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
            unsigned char due = 0;
            for (std::size_t i = 0; i < Fetta; ++i)
                due = static_cast<unsigned char>(due | ((p[i] == ago[0]) & (p[i + 1] == ago[1])));
            if (due == 0) return Fetta;
            return std::min(Vista(p, Fetta + ago.size() - 1).find(ago), Fetta);
        });
    }

    /// `Print #n`: the pieces, joined, then CR LF. Raises 52 when the number is not open for
    /// output, 61 or 57 when a block could not be written.
    template <class... Pezzi>
    void Print(int n, const Pezzi&... pezzi) {
        Canale& c = Aperto(n, Modo::Scrittura);
        const std::size_t totale = (std::size_t{2} + ... + Vista(pezzi).size());
        if (totale > c.Memoria.size() - c.Fine) {
            const std::array<Vista, sizeof...(pezzi) + 1> tutti = {Vista(pezzi)..., Vista("\r\n")};
            PrintLungo(c, tutti);
            return;
        }
        char* dove = c.Memoria.data() + c.Fine;
        ((dove = Posa(dove, Vista(pezzi))), ...);
        *dove++ = '\r';
        *dove = '\n';
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
        bool Guasto = false;   // a write failed and was told
        bool Esaurito = false; // the file has no further block
        std::vector<char> Memoria;
        std::size_t Inizio = 0; // reading: the first byte not yet given
        std::size_t Fine = 0;   // behind the last byte read, or waiting to be written
    };

    // Most pieces are short: copied here, without a call.
    static char* Posa(char* dove, Vista pezzo) {
        const char* da = pezzo.data();
        const std::size_t n = pezzo.size();
        if (n > 64) {
            std::memcpy(dove, da, n);
        } else if (n >= 16) {
            for (std::size_t i = 0; i + 16 < n; i += 16) std::memcpy(dove + i, da + i, 16);
            std::memcpy(dove + n - 16, da + n - 16, 16);
        } else if (n >= 8) {
            std::memcpy(dove, da, 8);
            std::memcpy(dove + n - 8, da + n - 8, 8);
        } else if (n >= 4) {
            std::memcpy(dove, da, 4);
            std::memcpy(dove + n - 4, da + n - 4, 4);
        } else {
            for (std::size_t i = 0; i < n; ++i) dove[i] = da[i];
        }
        return dove + n;
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
    void Consegna(Canale& c, Vista bytes);
    void PrintLungo(Canale& c, std::span<const Vista> pezzi);

    Archivio& archivio_;
    std::array<Canale, NumeroMassimo + 1> canali_;
};

} // namespace morvella
