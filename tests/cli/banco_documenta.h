// SPDX-License-Identifier: MIT
// tests/cli/banco_documenta.h
//
// A run of the program that documents: the project and the pictures beside the program, on the
// double's disk, and what the index holds.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "cli/programma.h"
#include "sostegno/disco_finto.h"

namespace morvella::cli::prove {

inline constexpr const char* Modulo =
    "Attribute VB_Name = \"A\"\r\nOption Explicit\r\nPublic Sub a()\r\nEnd Sub\r\n";

struct BancoDocumenta {
    morvella::prove::DiscoFinto Disco{"/casa"};
    std::istringstream Ingresso;
    std::ostringstream Uscita, Errori;
    bool Terminale = false;

    BancoDocumenta() {
        Disco.Metti("/casa/p/Prova.vbp", "Module=B; B.bas\r\nModule=A; A.bas\r\nForm=C.frm\r\n");
        for (const char* nome : {"A.bas", "B.bas", "C.frm"})
            Disco.Metti(std::string("/casa/p/") + nome, Modulo);
        for (const char* nome : {"p2.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF"})
            Disco.Metti(std::string("/casa/programma/") + nome, std::string("figura ") + nome);
    }
    /// A project of these rows; each that begins with "+" has a source.
    void Progetto(const std::vector<std::string>& righe) {
        for (const char* nome : {"A.bas", "B.bas", "C.frm"})
            if (Disco.Esiste(std::string("/casa/p/") + nome)) Disco.Cancella(std::string("/casa/p/") + nome);
        std::string vbp;
        for (const std::string& riga : righe) {
            const std::string voce = riga.substr(riga[0] == '+' ? 1 : 0);
            vbp += "Form=" + voce + "\r\n";
            std::string file = voce;
            std::replace(file.begin(), file.end(), '\\', '/');
            if (file.starts_with("../"))
                file = "/casa" + file.substr(2);
            else
                file = "/casa/p/" + file;
            if (riga[0] == '+') Disco.Metti(file, Modulo);
        }
        Disco.Metti("/casa/p/Prova.vbp", vbp);
    }

    int Esegui(std::vector<std::string> argomenti) {
        Uscita.str("");
        Errori.str("");
        Ingresso.clear();
        Disco.CambiaDirectory("/casa");
        Ambiente ambiente{.Macchina = Disco, .Ingresso = Ingresso, .Uscita = Uscita, .Errori = Errori};
        ambiente.IngressoTerminale = Terminale;
        ambiente.DirectoryProgramma = "/casa/programma";
        return Programma(argomenti, ambiente);
    }
    bool Dice(const std::string& testo) const { return Errori.str().find(testo) != std::string::npos; }
    bool Scrive(const std::string& testo) const { return Uscita.str().find(testo) != std::string::npos; }
    bool Fatto(const std::string& nome) const { return Disco.Esiste("/casa/p/Appoggio/" + nome); }
    std::string Pagina(const std::string& nome) const { return Disco.Leggi("/casa/p/Appoggio/" + nome); }
    /// The rows that the index links to, with blanks between them.
    std::string NellIndice() const {
        const std::string indice = Pagina("Indice.Html");
        std::string voci;
        for (std::size_t da = indice.find(".Html\">"); da != std::string::npos;
             da = indice.find(".Html\">", da)) {
            da += 7;
            voci += (voci.empty() ? "" : " ") + indice.substr(da, indice.find("<br>", da) - da);
        }
        return voci;
    }
};

} // namespace morvella::cli::prove
