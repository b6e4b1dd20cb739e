// SPDX-License-Identifier: MIT
// shell/dimora.h
//
// Where App.Path leads: to the directory that keeps Default.ini, the help page and the pictures.
// It is the program's own as long as this user may write there, so that a copy in one folder
// stays in one folder. An installation that he may only read gets a directory of his own, filled
// from the installed one with what he does not have yet.
//
// What would surprise: what he has is never renewed. A picture that a later version brings
// changed stays as it is in his directory until he deletes it there. And root may write
// anywhere: the options that root stores are those which every user begins with.
#pragma once

#include <string>
#include <vector>

#include "text/disco/disco.h"

namespace morvella {

struct Dimora {
    std::string Directory;      // platform path for App.Path
    bool Utente = false;        // it is the user's own
    std::vector<Errore> Guasti; // what could not be copied there, each with its path
};

/// `programma` is the directory of the executable, `utente` the user's own ("" where he has
/// none), both platform paths. Never raises: where no directory of the user's can be had it is
/// the program's, and who then writes there is told.
Dimora TrovaDimora(Disco& disco, const std::string& programma, const std::string& utente);

} // namespace morvella
