// SPDX-License-Identifier: MIT
#include "text/canali.h"

namespace morvella {

bool Canali::Aperto(int n) const noexcept {
    return n >= 1 && n <= NumeroMassimo && canali_[static_cast<std::size_t>(n)].Stato != Modo::Chiuso;
}

Canali::Canale& Canali::Libero(int n, Vista percorso) {
    if (n < 1 || n > NumeroMassimo) throw Errore(ErrNumeroFile, percorso);
    if (Aperto(n)) throw Errore(ErrFileAperto, percorso);
    return canali_[static_cast<std::size_t>(n)];
}

void Canali::RifiutaAperto(const Trovato& file, Vista percorso) {
    if (!file.Cosa.Esiste()) return;
    for (Canale& altro : canali_) {
        if (altro.Stato == Modo::Chiuso) continue;
        if (!altro.Chi) altro.Chi = altro.File->Chi();
        if (!altro.Chi) {
            const Scheda cosa = archivio_.Trova(altro.Percorso).Cosa;
            if (cosa.Errore != 0) throw Errore(cosa.Errore, altro.Percorso);
            altro.Chi = cosa.Chi;
        }
        if (altro.Chi == file.Cosa.Chi) throw Errore(ErrFileAperto, percorso);
    }
}

// Grows the buffer to at least `quanti` bytes; its contents stay.
void Canali::FaiPosto(Canale& c, std::size_t quanti) {
    if (c.Memoria.size() < quanti + Coda) c.Memoria.resize(quanti + Coda);
}

void Canali::OpenInput(int n, Vista percorso) {
    Canale& c = Libero(n, percorso);
    const Trovato file = archivio_.Trova(percorso);
    RifiutaAperto(file, percorso);
    // The second pass over a module that fits into the buffer reads nothing again: the file is
    // unchanged, and nothing was written in between. With its rights unchanged too it would open as
    // before, and is not even opened.
    c.Esaurito = c.Intero && c.ComEra == file.Cosa && c.Cambiamenti == archivio_.Cambiamenti();
    c.File.reset();
    if (!c.Esaurito || file.Cosa.Cambiato == 0) c.File = archivio_.ApriLettura(file, percorso);
    c.Chi = file.Cosa.Chi;
    c.Percorso = percorso;
    c.Guasto = false;
    c.Inizio = 0;
    if (!c.Esaurito) {
        c.Fine = 0;
        c.Intero = c.Mosso = false;
        c.ComEra = file.Cosa;
        c.Cambiamenti = archivio_.Cambiamenti();
    }
    FaiPosto(c, BloccoLetto);
    SegnaLetto(c);
    c.Stato = Modo::Lettura;
}

void Canali::OpenOutput(int n, Vista percorso) {
    Canale& c = Libero(n, percorso);
    const Trovato file = archivio_.Trova(percorso);
    archivio_.RifiutaScrittura(file, percorso); // first: a source is out of reach, open or not
    RifiutaAperto(file, percorso);
    c.File = archivio_.ApriScrittura(file, percorso);
    c.Chi.reset();
    if (file.Cosa.Esiste()) c.Chi = file.Cosa.Chi;
    c.Percorso = percorso;
    c.Guasto = c.Consegnato = false;
    c.Inizio = c.Fine = 0;
    c.Intero = false;
    FaiPosto(c, Blocco);
    c.Stato = Modo::Scrittura;
}

void Canali::Ricomincia(int n) {
    Canale& c = Aperto(n, Modo::Scrittura);
    try {
        if (c.Consegnato) c.File->Svuota();
    } catch (const Errore& e) {
        throw Errore(e.Numero, c.Percorso);
    }
    c.Fine = 0;
    c.Guasto = c.Consegnato = false;
}

void Canali::Close(int n) {
    if (!Aperto(n)) return;
    Canale& c = canali_[static_cast<std::size_t>(n)];
    const bool scrivere = c.Stato == Modo::Scrittura && !c.Guasto;
    const std::unique_ptr<FileAperto> file = std::move(c.File);
    c.Stato = Modo::Chiuso;
    try {
        if (scrivere && c.Fine > 0) file->Scrivi(c.Memoria.data(), c.Fine);
        if (file) file->Chiudi();
    } catch (const Errore& e) {
        if (scrivere) throw Errore(e.Numero, c.Percorso);
    }
}

// Reads another block after the bytes that are there. Without room the lines already given are
// dropped; a buffer that one line fills doubles. False at the end of the file.
bool Canali::Riempi(Canale& c) {
    if (c.Esaurito) return false;
    if (c.Fine == c.Memoria.size() - Coda) {
        if (c.Inizio == 0) FaiPosto(c, 2 * c.Fine);
        std::memmove(c.Memoria.data(), c.Memoria.data() + c.Inizio, c.Fine - c.Inizio);
        c.Mosso = c.Mosso || c.Inizio > 0;
        c.Fine -= c.Inizio;
        c.Inizio = 0;
        SegnaLetto(c);
    }
    std::size_t letti = 0;
    try {
        letti = c.File->Leggi(c.Memoria.data() + c.Fine, c.Memoria.size() - Coda - c.Fine);
    } catch (const Errore& e) {
        throw Errore(e.Numero, c.Percorso);
    }
    c.Esaurito = letti == 0;
    c.Intero = c.Esaurito && !c.Mosso;
    c.Fine += letti;
    return letti > 0;
}

void Canali::SegnaLetto(const Canale& c) {
    letto_ = c.Memoria.data();
    lettoMisura_ = c.Memoria.size() - Coda;
}

// The first CR or LF; null when there is none. Fetta bytes past `fine` are readable.
const char* Canali::CrOLf(const char* da, const char* fine) noexcept {
    for (; da < fine; da += Fetta) {
        const std::size_t posto = PrimoSegno(DoveByte(da, '\r') | DoveByte(da, '\n'));
        if (posto < Fetta) return posto < static_cast<std::size_t>(fine - da) ? da + posto : nullptr;
    }
    return nullptr;
}

// A line that may reach into the next block.
Vista Canali::LineInputLento(Canale& c) {
    if (c.Inizio == c.Fine && !Riempi(c)) throw Errore(ErrFineFile, c.Percorso);
    std::size_t visti = 0; // bytes of the line known to hold no end
    for (;;) {
        const char* riga = c.Memoria.data() + c.Inizio;
        const std::size_t resto = c.Fine - c.Inizio;
        const char* fine = FineRigaLf
                               ? CrOLf(riga + visti, riga + resto)
                               : static_cast<const char*>(std::memchr(riga + visti, '\r', resto - visti));
        if (!fine) {
            visti = resto;
            if (Riempi(c)) continue;
            const char* ultima = c.Memoria.data() + c.Inizio; // the last line, unended
            c.Inizio = c.Fine;
            return {ultima, resto};
        }
        const auto lunga = static_cast<std::size_t>(fine - riga);
        // Only the next block tells whether an LF belongs to a CR at the end of this one.
        if (*fine == '\r' && lunga + 1 == resto) {
            visti = lunga;
            if (Riempi(c)) continue;
            riga = c.Memoria.data() + c.Inizio; // Riempi may have moved the block
            c.Inizio = c.Fine;
            return {riga, lunga};
        }
        const bool crLf = *fine == '\r' && lunga + 1 < resto && fine[1] == '\n';
        c.Inizio += lunga + (crLf ? 2 : 1);
        return {riga, lunga};
    }
}

void Canali::Consegna(Canale& c, Vista bytes) {
    c.Consegnato = true;
    try {
        c.File->Scrivi(bytes.data(), bytes.size());
    } catch (const Errore& e) {
        c.Guasto = true;
        throw Errore(e.Numero, c.Percorso);
    }
}

void Canali::Scarica(Canale& c) {
    if (c.Fine == 0) return;
    Consegna(c, Vista(c.Memoria.data(), c.Fine));
    c.Fine = 0;
}

// A text longer than a block goes to the file piece by piece: no buffer grows for it.
void Canali::PrintLungo(Canale& c, std::span<const Vista> pezzi) {
    for (Vista pezzo : pezzi) {
        if (pezzo.size() > Blocco - c.Fine) Scarica(c);
        if (pezzo.size() > Blocco) {
            Consegna(c, pezzo);
        } else {
            c.Fine = static_cast<std::size_t>(Posa(c.Memoria.data() + c.Fine, pezzo) - c.Memoria.data());
        }
    }
}

} // namespace morvella
