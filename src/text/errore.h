// SPDX-License-Identifier: MIT
// text/errore.h
//
// The numbered run-time errors. A failed operation raises an Errore; its number alone decides what
// follows, in the procedure that has a handler. Without a handler the program shows number and
// description, and ends.
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace morvella {

/// The numbers that the operations of text/ raise.
enum NumeroErrore : int {
    ErrArgomento = 5,    // a negative length, a position below 1
    ErrMemoria = 7,      // out of memory
    ErrNumeroFile = 52,  // a file number that is not open; a name that no file can have
    ErrFileAssente = 53, // file not found
    ErrFileAperto = 55,  // the number or the file is open already
    ErrDispositivo = 57, // the device failed
    ErrDiscoPieno = 61,  // no room left
    ErrFineFile = 62,    // input past the end of the file
    ErrPermesso = 70,    // the statement would harm a file that is only to be read
    ErrUnita = 71,       // drive not ready
    ErrAccesso = 75,     // the path exists already, or cannot be accessed
    ErrPercorso = 76,    // path not found
};

/// A run-time error: `Err.Number`, and the path that the failed operation was given
/// ("" where none was), as the system's own text.
struct Errore : std::exception {
    int Numero;
    std::string File;

    explicit Errore(int numero, std::string_view file = {}) : Numero(numero), File(file) {}
    const char* what() const noexcept override;
};

/// `Err.Description`: the Italian description of a run-time error in Windows-1252 bytes.
/// A number without one gives a general text.
std::string_view Descrizione(int numero) noexcept;

} // namespace morvella
