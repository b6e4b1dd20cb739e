// SPDX-License-Identifier: MIT
// text/disco/nomi.h
//
// What the file layer's parts share about paths and names.
#pragma once

#include <algorithm>
#include <string>

#include "text/codifica.h"
#include "text/testo.h"

namespace morvella {

inline bool Separatore(char c) noexcept { return c == '\\' || c == '/'; }

/// The last name of a text path.
inline Vista UltimoNome(Vista percorso) { return percorso.substr(percorso.find_last_of("\\/") + 1); }

/// The text of a name on the disk: Windows-1252, or the name's own bytes where that cannot hold it.
inline Testo TestoDiNome(const std::string& nome) { return Bytes1252DaUtf8(nome).value_or(nome); }

/// The platform path of an entry; "" is the root.
inline std::string Unisci(const std::string& directory, const std::string& nome) {
    return directory + '/' + nome;
}

/// The platform path of the directory that holds an entry; "" is the root.
inline std::string DirectoryDi(const std::string& percorso) {
    return percorso.substr(0, std::min(percorso.find_last_of('/'), percorso.size()));
}

/// A platform path as the disk wants it: the root has no name of its own.
inline std::string PerDisco(const std::string& percorso) {
    const bool radice = percorso.empty() || (percorso.size() == 2 && percorso[1] == ':');
    return radice ? percorso + '/' : percorso;
}

} // namespace morvella
