// SPDX-License-Identifier: MIT
// shell/dimora.h
//
// Finds the directory for App.Path, which holds Default.ini, the help page and the pictures. It is
// the program's own directory if the user may write there, so that a copy in one folder stays in
// one folder. For a read-only installation it is a directory of the user's, and files it lacks
// are copied from the installed one.
//
// What would surprise: files already there are never updated. A picture changed by a later version
// stays old until the user deletes it. And root may write anywhere: options that root stores are
// every user's first options.
#pragma once

#include <string>
#include <vector>

#include "text/disco/disco.h"

namespace morvella {

struct Dimora {
    std::string Directory;      // platform path for App.Path
    bool Utente = false;        // the user's own directory
    std::vector<Errore> Guasti; // failed copies, each with its path
};

/// `programma` is the directory of the executable, `utente` the user's ("": none), both platform
/// paths. Raises nothing: if the user's directory cannot be used the result is the program's, where
/// a later write fails with its own error.
Dimora TrovaDimora(Disco& disco, const std::string& programma, const std::string& utente);

} // namespace morvella
