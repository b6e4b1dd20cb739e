// SPDX-License-Identifier: MIT
// tests/docs/banco.h
//
// A program on the tests' double with the project in /p and itself in /prog, four pictures
// beside it, and what a page is made of. Texts here are written with "\n" for CR LF.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "docs/docs.h"
#include "rewriter/disco_annotato.h"
#include "sostegno/finestra_finta.h"
#include "text/numero_di.h"

namespace morvella::prove {

/// Every "\n" becomes CR LF.
inline Testo CrLf(Vista s) {
    Testo testo;
    for (const char c : s) testo += c == '\n' ? Testo("\r\n") : Testo(1, c);
    return testo;
}

/// A window that lets the test look around at the moments when the run calls it.
class FinestraCurva : public FinestraFinta {
  public:
    std::function<void()> AllaDomanda, AllAvvio, AllEtichetta;

    int MsgBox(Vista testo, int flag, Vista titolo) override {
        if (AllaDomanda) AllaDomanda();
        return FinestraFinta::MsgBox(testo, flag, titolo);
    }
    void Avvia(Vista comando, int finestra) override {
        if (AllAvvio) AllAvvio();
        FinestraFinta::Avvia(comando, finestra);
    }
    void RidisegnaLabel2() override {
        FinestraFinta::RidisegnaLabel2();
        if (AllEtichetta) AllEtichetta();
    }
};

struct Banco {
    DiscoAnnotato Disco{"/p"};
    FinestraCurva Fronte;
    Stato S{Disco, Fronte};

    Banco() {
        Fronte.S = &S;
        for (const char* nome : {"p2.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF"})
            Disco.Metti(std::string("/prog/") + nome, std::string("figura ") + nome);
        S.AppPath = S.File.Aggancia(Gancio::Programma, "/prog");
        CambiaDir1(S, "/p");
        Disco.Chiamate.clear();
    }

    /// Adds a row, selected, with its source ("\n" for CR LF) where one is given.
    void Voce(Vista voce, std::optional<Vista> sorgente = std::nullopt) {
        S.File1.AddItem(voce);
        if (sorgente) Disco.Metti("/p/" + Utf8Da1252(voce), CrLf(*sorgente));
        for (Lungo i = 0; i < S.File1.ListCount(); ++i) S.File1.Segna(i, true);
    }
    int Documenta() {
        return NumeroDi([&] {
            mnuHTML_Click(S);
            return 0;
        });
    }
    /// As at a program's end: what was printed reaches the file.
    void ChiudiTutto() {
        for (int n = 1; n <= Canali::NumeroMassimo; ++n) S.Canale.Close(n);
    }
    bool C(const std::string& percorso) const { return Disco.Esiste(percorso); }
    std::string Pagina(const std::string& nome) const { return Disco.Leggi("/p/Appoggio/" + nome); }
};

// The parts of a page.

inline Testo Testa(Vista pagina, Vista voce, Vista data, Vista misura) {
    return CrLf("<html>\n\n<head>\n<title>") + Testo(pagina) +
           CrLf("</title>\n"
                "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-1\">\n"
                "<meta name=\"GENERATOR\">\n</head>\n\n"
                "<body background=\"BLULETHR.GIF\" style=\"font-family: Arial; font-size: 12\">\n"
                "  <TABLE BORDER CELLSPACING=1 BORDERCOLOR=\"#000000\" CELLPADDING=4 WIDTH=651>\n"
                "  <TR><TD WIDTH=\"33%\" VALIGN=\"TOP\">\n"
                "  <P><B><FONT FACE=\"Arial\" SIZE=2>Procedura</B></FONT></TD>\n"
                "  <TD WIDTH=\"33%\" VALIGN=\"TOP\">\n"
                "  <B><FONT FACE=\"Arial\" SIZE=2><P>Data Creazione</B></FONT></TD>\n"
                "  <TD WIDTH=\"33%\" VALIGN=\"TOP\">\n"
                "  <B><FONT FACE=\"Arial\" SIZE=2><P>Grandezza form</B></FONT></TD>\n"
                "  </TR>\n"
                "  <TR><TD WIDTH=\"33%\" VALIGN=\"TOP\">\n"
                "  <B><FONT FACE=\"Arial\"><P>&nbsp;") +
           Testo(voce) +
           CrLf("</B></FONT></TD>\n  <TD WIDTH=\"3%\" VALIGN=\"TOP\">\n"
                "  <B><FONT FACE=\"Arial\"><P>") +
           Testo(data) +
           CrLf("</B></FONT></TD>\n  <TD WIDTH=\"33%\" VALIGN=\"TOP\">\n"
                "  <B><FONT FACE=\"Arial\"><P>") +
           Testo(misura) + CrLf("</B></FONT></TD>\n  </TR>\n  </TABLE>\n");
}

/// A line of the list of shown forms for a name of at most 45 bytes.
inline Testo Mostrato(Vista chi) {
    const Testo voce = "    " + Testo(chi) + "<br>";
    return Testo(10, ' ') + "'" + voce + Testo(54 - voce.size(), ' ') + "<br> \r\n";
}

/// Everything after the sections; `mostrati` are whole lines.
inline Testo Coda(bool conMenu, Vista mostrati = "") {
    Testo coda;
    if (!conMenu)
        coda = CrLf("  <tr>\n    <td width=\"100%\"><p align=\"center\"><big><strong>"
                    "nella presente&nbsp; procedura non sono stati rilevati men\xF9</strong></big></td>\n"
                    "  </tr>\n");
    coda += CrLf("         <p align=\"center\"><img src=\"Dario.gif\"width=\"429\"height=\"124\"\n"
                 "alt=\"Dario.gif (37133 byte)\"></p>\n");
    if (!mostrati.empty())
        coda += CrLf("<p align=\"center\"><img src=\"p2.gif\" width=\"429\" height=\"39\" "
                     "alt=\"p2.gif (13802 byte)\"></p>\n"
                     "<div align=\"center\"><center>\n"
                     "              <table border=\"0\" width=\"50%\">\n"
                     "  <tr>\n"
                     "    <td width=\"100%\"><p align=\"left\"><big><strong>\n");
    coda += Testo(mostrati);
    return coda + CrLf("</strong></big></td>\n  </tr>\n</table>\n</center></div>\n"
                       "<p align=\"center\"><br><br> <strong>Rilettura del  21/11/2026... </strong> </p>\n"
                       "<p align=\rcenter\r>&nbsp;</p>\n"
                       "<p align=\rcenter\r><a href=\rIndice.Html\r><img border=\r0\r src=\rhome.GIF\r "
                       "alt=\rTorna alla pagina iniziale\r width=\r102\r height=\r43\r></a></p>\n"
                       "</body>\n</html>\n");
}

/// A section's head.
inline Testo Sezione(Vista titolo) {
    Testo blank;
    for (int i = 0; i < 20; ++i) blank += "&nbsp;";
    return CrLf("        <br>\n        <HR>\n      <b><font size=\"3\">") + blank + Testo(titolo) +
           CrLf("</font><br>\n        <HR>\n        <br>\n");
}

inline Testo Menu(Vista nome, Vista titolo) {
    return CrLf("    <table border=\"0\" width=\"58%\">\n      <tr>\n"
                "        <td width=\"50%\"><big><font face=\"Arial\">") +
           Testo(nome) + CrLf("</font></big></td>\n        <td width=\"50%\"><big><font face=\"Arial\">") +
           Testo(titolo) + CrLf("</font></big></td>\n      </tr>\n    </table>\n");
}

inline Testo Controllo(Vista nome, Vista database, Vista record) {
    return CrLf("<table border=\"0\" width=\"100%\">\n  <tr>\n<td width=\"100%\"><strong>Nome Data ") +
           Testo(nome) + CrLf("</strong><br>\n<strong>Database Name ") + Testo(database) +
           CrLf("</strong><br>\n<strong>RecordSource ") + Testo(record) +
           CrLf("</strong></td>\n</tr>\n</table>\n");
}

/// `davanti` is 1 blank in front of the table of a Sub and 2 of any other.
inline Testo Procedura(std::size_t davanti, Vista riga) {
    return Testo(davanti, ' ') +
           CrLf("<table border=\"0\" width=\"100%\">\n      <tr>\n        <td width=\"100%\"><strong> ") +
           Testo(riga) + CrLf("</strong></td>\n      </tr>\n    </table>\n");
}

} // namespace morvella::prove
