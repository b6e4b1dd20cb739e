// SPDX-License-Identifier: MIT
//
// The tool's own help page.
#include "docs/docs.h"

namespace morvella {

namespace {

// The whole page, in UTF-8 here and in Windows-1252 on the disk. Its slips and the two <html> lines
// are meant; "@" is the contact address.
// clang-format off
constexpr std::string_view Pagina[] = {
    "<html>",
    "<html>",
    "<head>",
    R"(<meta http-equiv="Content-Type" content="text/html; charset=windows-1252">)",
    R"(<meta name="GENERATOR" content="Microsoft FrontPage 4.0">)",
    R"(<meta name="ProgId" content="FrontPage.Editor.Document">)",
    "<title>tavolerio</title>",
    "</head>",
    "<body>",
    R"(<table border="0" width="100%">)",
    "  <tr>",
    R"(<div align="center">)",
    "  <center>",
    R"(<table border="0" width="96%">)",
    "  <tr>",
    R"(    <td width="42%" bgcolor="#FFFF00" align="left"><a href="mailto:@">&nbsp;@</a></td>)",
    R"(    <td width="58%" bgcolor="#FFFF00" align="left">)",
    R"(      <p align="right">Programma by Dario Fenzoni - Roma 2003</td>)",
    "  </tr>",
    "  <tr>",
    R"(    <td width="100%" bgcolor="#99CCFF" colspan="2" valign="top" align="left">)",
    R"(      <p align="center">&nbsp;<b><font size="4" face="Tahoma">Programma : Morvella)",
    "      codice di Visual Basic",
    "      </font></b>",
    "      </p>",
    R"(      <p align="center">&nbsp;</p>)",
    "    </td>",
    "  </tr>",
    "  <tr>",
    R"(    <td width="42%" bgcolor="#99CCFF" valign="middle" align="left">)",
    R"(      <p align="center"><font size="4" face="Tahoma"><b><img border="0" src="A01.jpg" width="333" height="201">)",
    "      <br>",
    "      </b>",
    R"(      </font><font face="Tahoma" size="1"><b><br>)",
    "      (Prima di eseguire Morvella.exe)</b></font>",
    "    </td>",
    R"(    <td width="58%" bgcolor="#99CCFF" valign="middle" align="left">)",
    R"(      <p align="center"><font size="4" face="Tahoma"><b><img border="0" src="A02.jpg" width="398" height="278">)",
    "      <br>",
    "      </b>",
    R"(      </font><font face="Tahoma" size="1"><b>(Dopo aver eseguito Morvella.Exe)<br>)",
    "      </b></font>",
    "    </td>",
    "  </tr>",
    "  <tr>",
    R"(    <td width="100%" bgcolor="#99CCFF" colspan="2" valign="top" align="left">)",
    R"(      <font face="Arial"><br>)",
    "      Dopo aver selezionato un progetto da identare, questo programma legge il",
    "      codice dei form, Moduli e classi contenuti nel progetto stesso ed esegue",
    "      una corretta identazione, comunicando inoltre se in un form manca un",
    "      codice di chiusura (End if, Next ect) che causa un errore alla procedura",
    "      stessa.<br>",
    R"(      <img border="0" src="A03.jpg" align="right" width="205" height="238"><br>)",
    "      Oltre a riscrivere completamente il codice dei form, classi e moduli, è",
    "      possibile, dopo aver letto il codice contenuto dell'intero progetto, poter",
    "      visualizzare il codice con righe numerate e con i blocchi IF, DO, FOR,",
    "      SELECT ect.<br>",
    "      <br>",
    "      La procedura inoltre genera una documentazione on line in codice Html,",
    "      elencando per ogni form, le varie Sub e Function esistenti nelle prcedure",
    "      stesse.<br>",
    "      <br>",
    "      Si avvale di un pannello di opzioni dal quale la procedura attinge notizie",
    "      utili per la compilazione dei moduli stessi. I moduli vengono formati",
    R"(      all'interno della directory del progetto, creando un'apposita directory <b>&quot;..\Appoggio&quot;)",
    "      </b>nella quale scrive tanti file Txt e Log. Dopo la completa elaborazione,",
    "      la procedura copia il file progetto dalla directory sorgente a quella",
    "      nuova dove vi sono i files rigenerati e identati. Pertanto non si",
    "      modificano assolutamente gli originali ma si crea un progetto parallelo in",
    "      una nuova directory. Questo dà modo al programmatore di verificare",
    "      l'esattezza del codice, dopo di che lo stesso, trasferirà il codice",
    "      rigenerato nella directory originale. Il programma è stato attentamente",
    "      testato e riscrive tutte le righe di codice presenti in ogni modulo,",
    "      classe, form ed ha la possibilità di poter inserire in ogni testa una",
    "      intestazione precedentemente inserita dal programmatore nel pannello",
    "      opzioni, oppure può eliminare nella trascrizione, tutte le righe di",
    "      commento e tutti i commenti superflui scritti sulle righe stesse di",
    "      codice.</font>",
    "      <p>&nbsp;</p>",
    "    </td>",
    "  </tr>",
    "  <tr>",
    R"(    <td width="100%" bgcolor="#FFFF00" colspan="2" align="left">&nbsp;</td>)",
    "  </tr>",
    "  <tr>",
    R"(    <td width="100%" bgcolor="#99CCFF" colspan="2" align="left">&nbsp;</td>)",
    "  </tr>",
    "</table>",
    "  </center>",
    "</div>",
    "  </tr>",
    "</table>",
    "</body>",
    "</html>",
};
// clang-format on

} // namespace

void MnuHelpHtml_Click(Stato& s) {
    const Testo pagina = s.AppPath + "\\tavolerio.htm";
    while (s.File.Dir(pagina, 0).empty()) {
        s.Canale.OpenOutput(1, pagina);
        for (const std::string_view riga : Pagina) {
            Testo bytes = Bytes1252DaUtf8(riga).value();
            for (std::size_t segno = bytes.find('@'); segno != Testo::npos;
                 segno = bytes.find('@', segno + IndirizzoContatto.size()))
                bytes.replace(segno, 1, IndirizzoContatto);
            s.Canale.Print(1, bytes);
        }
        s.Canale.Close(1);
    }
    s.Fronte.Avvia("Explorer " + pagina, 3);
}

} // namespace morvella
