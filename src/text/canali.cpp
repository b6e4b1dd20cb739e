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

void Canali::RifiutaAperto(const Trovato& file, Vista percorso) const {
    if (!file.Cosa.Esiste()) return;
    for (const Canale& altro : canali_)
        if (altro.Stato != Modo::Chiuso && altro.Chi == file.Cosa.Chi) throw Errore(ErrFileAperto, percorso);
}

void Canali::OpenInput(int n, Vista percorso) {
    Canale& c = Libero(n, percorso);
    const Trovato file = archivio_.Trova(percorso);
    RifiutaAperto(file, percorso);
    c.File = archivio_.ApriLettura(file, percorso);
    c.Chi = file.Cosa.Chi;
    c.Percorso = percorso;
    c.Guasto = c.Esaurito = false;
    c.Inizio = c.Fine = 0;
    if (c.Memoria.empty()) c.Memoria.resize(Blocco);
    c.Stato = Modo::Lettura;
}

void Canali::OpenOutput(int n, Vista percorso) {
    Canale& c = Libero(n, percorso);
    const Trovato file = archivio_.Trova(percorso);
    archivio_.RifiutaScrittura(file, percorso); // first: a source is out of reach, open or not
    RifiutaAperto(file, percorso);
    c.File = archivio_.ApriScrittura(file, percorso);
    c.Chi = file.Cosa.Esiste() ? file.Cosa.Chi : archivio_.Trova(percorso).Cosa.Chi;
    c.Percorso = percorso;
    c.Guasto = false;
    c.Inizio = c.Fine = 0;
    if (c.Memoria.empty()) c.Memoria.resize(Blocco);
    c.Stato = Modo::Scrittura;
}

void Canali::Close(int n) {
    if (!Aperto(n)) return;
    Canale& c = canali_[static_cast<std::size_t>(n)];
    const bool scrivere = c.Stato == Modo::Scrittura && !c.Guasto;
    const std::unique_ptr<FileAperto> file = std::move(c.File);
    c.Stato = Modo::Chiuso;
    try {
        if (scrivere && c.Fine > 0) file->Scrivi(c.Memoria.data(), c.Fine);
        file->Chiudi();
    } catch (const Errore& e) {
        if (scrivere) throw Errore(e.Numero, c.Percorso);
    }
}

// Reads a further block behind the bytes not yet given, which move to the front. False at
// the end of the file. A buffer that one line fills grows to twice its size.
bool Canali::Riempi(Canale& c) {
    if (c.Esaurito) return false;
    if (c.Inizio > 0) {
        std::memmove(c.Memoria.data(), c.Memoria.data() + c.Inizio, c.Fine - c.Inizio);
        c.Fine -= c.Inizio;
        c.Inizio = 0;
    }
    if (c.Fine == c.Memoria.size()) c.Memoria.resize(c.Memoria.size() * 2);
    std::size_t letti = 0;
    try {
        letti = c.File->Leggi(c.Memoria.data() + c.Fine, c.Memoria.size() - c.Fine);
    } catch (const Errore& e) {
        throw Errore(e.Numero, c.Percorso);
    }
    c.Esaurito = letti == 0;
    c.Fine += letti;
    return letti > 0;
}

// A line that may reach into the next block.
Vista Canali::LineInputLento(Canale& c) {
    if (c.Inizio == c.Fine && !Riempi(c)) throw Errore(ErrFineFile, c.Percorso);
    std::size_t visti = 0; // bytes of the line known to hold no end
    for (;;) {
        const char* riga = c.Memoria.data() + c.Inizio;
        const std::size_t resto = c.Fine - c.Inizio;
        const char* fine = nullptr;
        if (FineRigaLf) {
            fine = static_cast<const char*>(std::memchr(riga + visti, '\n', resto - visti));
            const std::size_t fino = fine ? static_cast<std::size_t>(fine - riga) : resto;
            if (const void* cr = std::memchr(riga + visti, '\r', fino - visti))
                fine = static_cast<const char*>(cr);
        } else {
            fine = static_cast<const char*>(std::memchr(riga + visti, '\r', resto - visti));
        }
        if (!fine) {
            visti = resto;
            if (Riempi(c)) continue;
            const char* ultima = c.Memoria.data() + c.Inizio; // the last line, without an end
            c.Inizio = c.Fine;
            return {ultima, resto};
        }
        const auto lunga = static_cast<std::size_t>(fine - riga);
        // Whether an LF belongs to a CR at the very end of the block, only the next block tells.
        if (*fine == '\r' && lunga + 1 == resto) {
            visti = lunga;
            if (Riempi(c)) continue;
            riga = c.Memoria.data() + c.Inizio; // at the end of the file the block may have moved too
            c.Inizio = c.Fine;
            return {riga, lunga};
        }
        const bool crLf = *fine == '\r' && lunga + 1 < resto && fine[1] == '\n';
        c.Inizio += lunga + (crLf ? 2 : 1);
        return {riga, lunga};
    }
}

void Canali::Consegna(Canale& c, Vista bytes) {
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

// A text longer than a block goes to the file piece by piece, and no buffer grows for it.
void Canali::PrintLungo(Canale& c, std::span<const Vista> pezzi) {
    for (Vista pezzo : pezzi) {
        if (pezzo.size() > c.Memoria.size() - c.Fine) Scarica(c);
        if (pezzo.size() > c.Memoria.size()) {
            Consegna(c, pezzo);
        } else {
            c.Fine = static_cast<std::size_t>(Posa(c.Memoria.data() + c.Fine, pezzo) - c.Memoria.data());
        }
    }
}

} // namespace morvella
