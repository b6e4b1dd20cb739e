// SPDX-License-Identifier: MIT
// cli/opzioni.h
//
// The command line. The parser, the help text and the manual page are made from one table of commands
// and one of options. Texts are UTF-8 here; whoever prints them converts them for the terminal.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "formato/formato.h"

namespace morvella::cli {

/// What the user asked for.
struct Richiesta {
    std::string Comando;
    std::string Progetto; // platform path of the *.vbp
    std::vector<std::string>
        Resto; // rows, events of "eventi", files of "mostra", inputs of "esamina" and "formatta"
    std::optional<bool> Risposta; // --si, --no
    std::string Programma;
    std::string TestoIntestazione;
    std::string Rapporto;
    std::string Formato = "testo"; // these five: of "esamina"
    std::string Uscita;
    std::string Base;
    std::string ScriviBase;
    std::string Radice;
    std::string In; // "formatta": platform path of the directory for the copies
    formato::Opzioni Stile;
    std::optional<bool> TogliCommenti; // these three: no value where the stored option holds
    std::optional<bool> IntestazioneProcedure;
    std::optional<bool> SenzaConferma;
    bool Lf = false;
    bool Verifica = false;
    bool Differenze = false;
    bool SoloVerifica = false;
    bool Prosegui = false;
    bool Controlla = false;
    bool Html = false;
    bool Apri = false;
    bool Sottocartelle = false;
    bool Ini = false;
    bool Ripristina = false;
    bool SenzaPager = false;
    bool SenzaColori = false;
    bool SenzaProcessi = false;
    bool Ricorsivo = false;
    bool Silenzioso = false;
    bool Aiuto = false;
    bool Versione = false;
};

/// Wrong usage. The text says what is wrong and what to do instead.
struct UsoErrato {
    std::string Testo;
};

/// The commands, as a set of bits.
enum PerComando : unsigned {
    Esegue = 1,
    Riordina = 2,
    Struttura = 4,
    Legge = 8,
    MostraQui = 16,
    Elenca = 32,
    Eventi = 64,
    Documenta = 128,
    Conserva = 256,
    Guida = 512,
    Esamina = 1024,
    Formatta = 2048,
    Verifica = 4096,
};

struct Comando {
    unsigned Chi; // PerComando
    const char* Nome;
    const char* Argomenti; // for the help text
    const char* Aiuto;
    const char* Esempio; // its arguments
};

struct Opzione {
    char Corta; // 0 when there is none
    const char* Lunga;
    const char* Argomento; // name of its value, nullptr for a flag; in brackets: only after "="
    unsigned Per;          // PerComando: where it does something
    unsigned Innocua;      // PerComando: accepted there without effect, so
                           // that a script can give every command the same options
    const char* Aiuto;
    void (*Applica)(Richiesta&, const std::string& valore);
};

/// Whether a word means yes, or no, in any case and with blanks around it.
bool DiceSi(const std::string& parola);
bool DiceNo(const std::string& parola);

std::span<const Comando> Comandi();
std::span<const Opzione> Opzioni();

/// Reads the arguments (without the program's name). Raises UsoErrato.
Richiesta Analizza(const std::vector<std::string>& argomenti);

/// The help text of one command with its options, or of all commands for "". It fits on a screen and ends
/// with an example.
std::string TestoAiuto(const std::string& comando);

} // namespace morvella::cli
