// SPDX-License-Identifier: MIT
// esame/blocchi.h
//
// Judges a sequence of events unit by unit. A unit runs from one head to the next and begins
// with nothing open, so that no error reaches beyond it. It is read plainly first, and that is
// all for a unit without error; otherwise four readings guess in different ways what was meant,
// and the one that needs the fewest findings is believed. Indentation is used only then:
// it may tell where an error is, never whether there is one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "esame/eventi.h"

namespace morvella::esame {

class Blocchi {
  public:
    /// `ultimaRiga`: where what nothing closes is noticed.
    explicit Blocchi(std::uint32_t ultimaRiga) noexcept : ultimaRiga_(ultimaRiga) {}

    /// Appends the findings of all units. Directives among the events are passed over.
    void Giudica(std::span<const Evento> eventi, std::vector<Reperto>& reperti);
    /// The same for the units alone that have both head and end among the events.
    void GiudicaIntere(std::span<const Evento> eventi, std::vector<Reperto>& reperti);

  private:
    enum class Modo : std::uint8_t { Piano, Severo, Rientri, Fermo };
    struct Unita {
        std::span<const Evento> Eventi;   // its head first, if it has one
        const Evento* Prossimo = nullptr; // the head after it
        const Evento* Saltato = nullptr;  // a head inside that is taken for an error
    };
    struct Aperto {
        Blocco Cosa = Blocco::Nessuno;
        bool Fantasma = false;     // pushed for an Else or Case without an opener, never reported
        bool Muto = false;         // an If that is never reported open
        bool ConElse = false;      // If: its Else has come
        bool Detto = false;        // If: a second Else was reported
        bool ConCase = false;      // Select: a Case has come
        std::int32_t Prima = -1;   // Select: the finding about what stands before the first Case
        std::int32_t Ricorda = -1; // the finding about a surplus closer that may have been meant for it
        std::uint32_t Riga = 0, Colonna = 0, Rientro = 0;
    };
    static constexpr std::size_t Nessuno = ~std::size_t{0};

    void LeggiUnita(const Unita& unita, std::vector<Reperto>& esito);
    std::size_t Leggi(const Unita& unita, Modo modo);
    void Chiude(const Evento& e);
    void Mezzo(const Evento& e);
    void Case(const Evento& e);
    void Fine(const Evento& e);
    void FineUnita();
    std::size_t TrovaChiuso(const Evento& e) const;
    std::size_t TrovaMezzo(const Evento& e, bool& ancora) const;
    std::size_t TrovaSelect(const Evento& e) const;
    template <class Prova>
    std::size_t Cerca(std::size_t quanti, Prova prova) const;
    void Apri(const Aperto& aperto);
    void Togli();
    void ApertiFino(std::size_t resto, std::uint32_t nota, std::string_view trovato);
    Reperto& Segnala(Tipo tipo, Blocco cosa, const Evento& e);
    std::size_t Vivi() const;
    void Unisci();
    bool SenzaElse(const Aperto& a) const { return a.Cosa == Blocco::If && (a.Fantasma || !a.ConElse); }

    std::uint32_t ultimaRiga_;
    // of the reading that is going on
    Unita unita_;
    Modo modo_ = Modo::Piano;
    const Evento* capo_ = nullptr;
    const Evento* ultimaFine_ = nullptr;
    const Evento* ultimaGiusta_ = nullptr; // the last end that fits the head
    bool finita_ = false;                  // its end has come
    std::vector<Aperto> pila_;
    std::uint32_t quanti_[6] = {}; // open blocks of each kind
    std::uint32_t senzaElse_ = 0;
    std::vector<Reperto> reperti_;
    std::vector<Reperto> questa_, seguente_, insieme_;
};

} // namespace morvella::esame
