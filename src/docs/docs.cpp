// SPDX-License-Identifier: MIT
//
// The documentation's run over the rows of File1, and the index.
#include "docs/docs.h"

#include "docs/righe.h"
#include "shell/cartella.h"
#include "shell/protezione.h"

namespace morvella {

namespace {

// clang-format off
constexpr Vista IndiceTesta[] = {
    "<html>",
    "",
    "<head>",
    "<title>Indice Progetto di Documentazione</title>",
    R"(<meta http-equiv="Content-Type" content="text/html; charset=iso-8859-1">)",
    R"(<meta name="GENERATOR">)",
    "</head>",
    "",
    R"(<body background="BLULETHR.GIF" style="font-family: Arial; font-size: 12">)",
    R"(<div align="center"><center>)",
};

constexpr Vista IndiceTitolo[] = {
    R"(<table border="0" cellpadding="0" cellspacing="0" width="90%">)",
    " <tr>",
    R"(   <td align="center" valign="top" colspan="5" width="100%"><p align="center"><font size="7">Documentazione progetto ...</font><font size="6"><br>)",
    R"(   </font><font size="5">Indice generale Form e/o procedure</font>&nbsp;&nbsp;<p align="center">&nbsp;</td>)",
    " </tr>",
    "   <tr>",
    R"(     <td width="30%"></td>)",
    R"(     <td width="5%"></td>)",
    R"(     <td width="30%"></td>)",
    R"(     <td width="5%"></td>)",
    R"(     <td width="30%"></td>)",
    "   </tr>",
    "   <tr>",
};

constexpr Vista PrimaCella[] = {
    R"(   <td valign="top" width="30%">@</a></td>)",
    R"(    <td width="5%"></td>)",
};

constexpr Vista SecondaCella[] = {
    R"(  <td valign="top" width="30%">@</a></td>)",
    R"(    <td width="5%"></td>)",
};

constexpr Vista TerzaCella[] = { // only this one ends the table row
    R"(    <td valign="top" width="30%">@</a></td>)",
    "  </tr>",
};

constexpr Vista IndiceCoda[] = {
    "</table>",
    R"(<p align="center">&nbsp;</p>)",
    R"(<p align="center"><img border="0" src="Dario.gif" width="429" height="124"></p>)",
    "</BODY>",
    "</HTML>",
};
// clang-format on

// "dario.gif" here and "Dario.gif" in the pages: both are meant.
constexpr Vista Figure[] = {"p2.gif", "dario.gif", "BLULETHR.GIF", "home.GIF"};
constexpr Vista DarioNellePagine = "Dario.gif";

// The first pass of this run. Unlike RaccogliShow it formats entries for HTML and leaves some
// names out.
void RaccogliMostrati(Stato& s) {
    s.Canale.OpenInput(1, s.FileSorgente);
    s.ElencoShow.Svuota();
    for (;;) {
        s.TotaleRighe += s.Canale.SaltaSenza(1, ".Show"); // lines that cannot give an entry
        if (s.Canale.Eof(1)) break;
        ++s.TotaleRighe;
        s.RigaLetta = Trim(s.Canale.LineInput(1));
        if (Mid(s.RigaLetta, 1, 1) == "'") continue;
        const Lungo trovato = InStr(1, s.RigaLetta, ".Show");
        if (trovato < 1) continue;
        const Testo chi = UCase(Mid(s.RigaLetta, 1, trovato - 1));
        if (chi == "SFONDO.MSG1" || Trim(chi).empty() || chi == "ME") continue;
        s.ElencoShow.Voci.append("    ").append(chi).append("<br>\r");
    }
    s.Canale.Close(1);
}

// The index has up to three columns of links.
struct Colonne {
    Lungo Limite1 = 0;   // the last link of the first column, counted from 1
    Lungo Limite2 = 0;   // the last link of the second; 0: no second column
    Lungo TerzoBase = 0; // 0: no third column
};

Colonne DividiInColonne(Lungo selezionati) {
    // One more than are selected, which makes the third column the short one.
    const Lungo conto = selezionati > 0 ? selezionati + 1 : 0;
    if (conto == 2) return {1, 2, 0};
    Colonne colonne;
    if (conto >= 3) {
        colonne.Limite1 = colonne.Limite2 = colonne.TerzoBase = conto / 3;
        const Lungo resto = conto - 3 * colonne.TerzoBase;
        if (resto >= 1) ++colonne.Limite1;
        if (resto == 2) ++colonne.Limite2;
        colonne.Limite2 += colonne.Limite1;
    }
    return colonne;
}

} // namespace

// A directory without plain files counts as missing, and MkDir then fails: meant.
Testo PreparaDirectory(Stato& s) {
    Testo directory = s.Dir1Path + "\\Appoggio";
    s.File.SganciaLavoro(); // of an earlier run
    if (s.File.Dir(directory + "\\*.*", 0).empty()) {
        s.File.ChDir(s.Dir1Path);
        s.File.MkDir("Appoggio");
        s.Canale.OpenOutput(7, directory + "\\OK.LOG");
        s.Canale.Print(7, FraseOkLog);
        s.Canale.Close(7);
    }
    s.File.AgganciaLavoro(directory);
    return directory;
}

Testo PercorsoPagina(const Testo& dirPagine, Vista voce) {
    const bool radice = Len(dirPagine) == 3 && Mid(dirPagine, 2, 2) == ":\\";
    return dirPagine + (radice ? "" : "\\") + Testo(BaseDiVoce(voce)) + ".Html";
}

void CopiaFigure(Stato& s, const Testo& dirPagine) {
    if (s.AppPath == s.Dir1Path && s.AppPath == dirPagine) return;
    for (const Vista nome : Figure) {
        const Testo figura = dirPagine + "\\" + Testo(nome);
        if (s.File.Dir(figura, 0).empty()) s.File.FileCopy(s.AppPath + "\\" + Testo(nome), figura);
    }
    // A browser on a case-sensitive disk must find the name that the pages use.
    s.File.AncheCome(dirPagine + "\\dario.gif", DarioNellePagine);
}

void mnuHTML_Click(Stato& s) {
    s.mnuLettura = true;
    ProteggiSorgenti(s);
    const Lungo selezionati = s.File1.ContaSelezionate();
    const Testo dirPagine = selezionati > 0 ? PreparaDirectory(s) : Testo();

    ValoriPendenti pendenti;
    for (s.IndiceFile = 0; s.IndiceFile <= s.File1.ListCount() - 1; ++s.IndiceFile) {
        if (!s.File1.Selected(s.IndiceFile)) continue;
        s.Punto.Voce = s.IndiceFile;
        const Testo& voce = s.File1.List(s.IndiceFile);
        // No page depends on these three; the run sets them all the same.
        s.Numero = Space(5);
        s.Margine = Space(5);
        s.StoriaBlocchi = "00";
        s.TotaleRighe = 0;
        s.FileUscita = PercorsoPagina(dirPagine, voce);
        if (!s.File.Dir(s.FileUscita, 0).empty()) s.File.Kill(s.FileUscita);
        s.FileSorgente = s.Dir1Path + "\\" + voce;
        // The index in the whole list, from 0, over the number selected: "9/3" is possible.
        ScriviLabel2(s, s.FileSorgente + "  " + CStr(s.IndiceFile) + "/" + CStr(selezionati));
        RaccogliMostrati(s);
        PreparaProgress(s);
        ScriviPagina(s, voce, pendenti);
        s.Fronte.FileScritto(s.IndiceFile, s.FileUscita, s.TotaleRighe);
    }
    s.Punto.Voce = -1;
    CopiaFigure(s, dirPagine);
    ScriviLabel2(s, "");
    ScriviIndice(s, dirPagine);
    MostraBarra(s, s.Progress, false); // the bar stays visible during the question
    PortaBarra(s, s.Progress, 0);
}

void ScriviIndice(Stato& s, const Testo& dirPagine) {
    const Testo indice = dirPagine + "\\Indice.Html";
    if (!s.File.Dir(indice, 0).empty()) s.File.Kill(indice);
    s.Canale.OpenOutput(1, indice);
    ScriviRighe<IndiceTesta>(s, 1);

    const Colonne colonne = DividiInColonne(s.File1.ContaSelezionate());
    Testo testoColonna1;
    Testo testoColonna2;
    Testo testoColonna3;
    Lungo corrente = 0;
    for (Lungo i = 0; i <= s.File1.ListCount() - 1; ++i) {
        if (!s.File1.Selected(i)) continue;
        const Testo& voce = s.File1.List(i);
        ++corrente;
        Testo& colonna = corrente <= colonne.Limite1   ? testoColonna1
                         : corrente <= colonne.Limite2 ? testoColonna2
                                                       : testoColonna3;
        // Only the last link of a column is closed, by the table cell: meant.
        colonna.append("<a href=\"")
            .append(dirPagine)
            .append("\\")
            .append(BaseDiVoce(voce))
            .append(".Html\">");
        colonna.append(voce).append("<br>");
    }
    ScriviRighe<IndiceTitolo>(s, 1);
    ScriviRighe<PrimaCella>(s, 1, testoColonna1);
    if (colonne.Limite2 >= 1) ScriviRighe<SecondaCella>(s, 1, testoColonna2);
    if (colonne.TerzoBase >= 1) ScriviRighe<TerzaCella>(s, 1, testoColonna3);
    ScriviRighe<IndiceCoda>(s, 1);
    s.Canale.Close(1);

    const Testo domanda = "Documentazione HTML riuscita." + Chr(13) + "Vuoi visualizzare l'indice?";
    if (s.Fronte.MsgBox(domanda, SiNoDomanda, "Visualizzazione Documentazione HTML") != RispostaSi) return;
    s.File.ChDir(dirPagine);
    s.Fronte.Avvia("Explorer " + indice, 3);
    s.File.ChDir(s.Dir1Path);
}

Testo TogliRisalita(Vista testo) {
    Testo senza;
    while (!testo.empty()) {
        const bool risalita = Mid(testo, 1, 3) == "../";
        if (!risalita) senza += testo.front();
        testo.remove_prefix(risalita ? 3 : 1);
    }
    return senza;
}

} // namespace morvella
