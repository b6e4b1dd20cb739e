// SPDX-License-Identifier: MIT
//
// The tool's own help page.
#include "docs/banco.h"

namespace morvella {

namespace {

using namespace prove;

// clang-format off
constexpr Vista Righe[] = {
    "<html>",
    "<html>",
    "<head>",
    "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">",
    "<meta name=\"GENERATOR\" content=\"Microsoft FrontPage 4.0\">",
    "<meta name=\"ProgId\" content=\"FrontPage.Editor.Document\">",
    "<title>tavolerio</title>",
    "</head>",
    "<body>",
    "<table border=\"0\" width=\"100%\">",
    "  <tr>",
    "<div align=\"center\">",
    "  <center>",
    "<table border=\"0\" width=\"96%\">",
    "  <tr>",
    "    <td width=\"42%\" bgcolor=\"#FFFF00\" align=\"left\"><a href=\"mailto:vorn@morvella.example\">&nbsp;vorn@morvella.example</a></td>",
    "    <td width=\"58%\" bgcolor=\"#FFFF00\" align=\"left\">",
    "      <p align=\"right\">Programma by Dario Fenzoni - Roma 2003</td>",
    "  </tr>",
    "  <tr>",
    "    <td width=\"100%\" bgcolor=\"#99CCFF\" colspan=\"2\" valign=\"top\" align=\"left\">",
    "      <p align=\"center\">&nbsp;<b><font size=\"4\" face=\"Tahoma\">Programma : Morvella",
    "      codice di Visual Basic",
    "      </font></b>",
    "      </p>",
    "      <p align=\"center\">&nbsp;</p>",
    "    </td>",
    "  </tr>",
    "  <tr>",
    "    <td width=\"42%\" bgcolor=\"#99CCFF\" valign=\"middle\" align=\"left\">",
    "      <p align=\"center\"><font size=\"4\" face=\"Tahoma\"><b><img border=\"0\" src=\"A01.jpg\" width=\"333\" height=\"201\">",
    "      <br>",
    "      </b>",
    "      </font><font face=\"Tahoma\" size=\"1\"><b><br>",
    "      (Prima di eseguire Morvella.exe)</b></font>",
    "    </td>",
    "    <td width=\"58%\" bgcolor=\"#99CCFF\" valign=\"middle\" align=\"left\">",
    "      <p align=\"center\"><font size=\"4\" face=\"Tahoma\"><b><img border=\"0\" src=\"A02.jpg\" width=\"398\" height=\"278\">",
    "      <br>",
    "      </b>",
    "      </font><font face=\"Tahoma\" size=\"1\"><b>(Dopo aver eseguito Morvella.Exe)<br>",
    "      </b></font>",
    "    </td>",
    "  </tr>",
    "  <tr>",
    "    <td width=\"100%\" bgcolor=\"#99CCFF\" colspan=\"2\" valign=\"top\" align=\"left\">",
    "      <font face=\"Arial\"><br>",
    "      Dopo aver selezionato un progetto da identare, questo programma legge il",
    "      codice dei form, Moduli e classi contenuti nel progetto stesso ed esegue",
    "      una corretta identazione, comunicando inoltre se in un form manca un",
    "      codice di chiusura (End if, Next ect) che causa un errore alla procedura",
    "      stessa.<br>",
    "      <img border=\"0\" src=\"A03.jpg\" align=\"right\" width=\"205\" height=\"238\"><br>",
    "      Oltre a riscrivere completamente il codice dei form, classi e moduli, \xE8",
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
    "      all'interno della directory del progetto, creando un'apposita directory <b>&quot;..\\Appoggio&quot;",
    "      </b>nella quale scrive tanti file Txt e Log. Dopo la completa elaborazione,",
    "      la procedura copia il file progetto dalla directory sorgente a quella",
    "      nuova dove vi sono i files rigenerati e identati. Pertanto non si",
    "      modificano assolutamente gli originali ma si crea un progetto parallelo in",
    "      una nuova directory. Questo d\xE0 modo al programmatore di verificare",
    "      l'esattezza del codice, dopo di che lo stesso, trasferir\xE0 il codice",
    "      rigenerato nella directory originale. Il programma \xE8 stato attentamente",
    "      testato e riscrive tutte le righe di codice presenti in ogni modulo,",
    "      classe, form ed ha la possibilit\xE0 di poter inserire in ogni testa una",
    "      intestazione precedentemente inserita dal programmatore nel pannello",
    "      opzioni, oppure pu\xF2 eliminare nella trascrizione, tutte le righe di",
    "      commento e tutti i commenti superflui scritti sulle righe stesse di",
    "      codice.</font>",
    "      <p>&nbsp;</p>",
    "    </td>",
    "  </tr>",
    "  <tr>",
    "    <td width=\"100%\" bgcolor=\"#FFFF00\" colspan=\"2\" align=\"left\">&nbsp;</td>",
    "  </tr>",
    "  <tr>",
    "    <td width=\"100%\" bgcolor=\"#99CCFF\" colspan=\"2\" align=\"left\">&nbsp;</td>",
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

int Aiuto(Banco& b) {
    return NumeroDi([&] {
        MnuHelpHtml_Click(b.S);
        return 0;
    });
}

TEST(Aiuto, Intera) {
    static_assert(std::size(Righe) == 94);
    Banco b;
    ASSERT_EQ(Aiuto(b), 0);
    const std::string pagina = b.Disco.Leggi("/prog/tavolerio.htm");
    std::size_t da = 0;
    for (std::size_t i = 0; i < std::size(Righe); ++i) {
        const std::size_t fine = pagina.find("\r\n", da);
        ASSERT_NE(fine, std::string::npos) << i + 1;
        EXPECT_EQ(pagina.substr(da, fine - da), Righe[i]) << i + 1;
        da = fine + 2;
    }
    EXPECT_EQ(da, pagina.size());
    EXPECT_EQ(pagina.size(), 4081U);
    EXPECT_TRUE(pagina.starts_with("<html>\r\n<html>\r\n<head>\r\n"));

    std::map<unsigned char, int> alti;
    for (const char c : pagina)
        if (static_cast<unsigned char>(c) >= 128) ++alti[static_cast<unsigned char>(c)];
    EXPECT_EQ(alti, (std::map<unsigned char, int>{{0xE0, 3}, {0xE8, 2}, {0xF2, 1}})); // à, è, ò

    const std::size_t prima = pagina.find("mailto:vorn@morvella.example\"");
    ASSERT_NE(prima, std::string::npos);
    EXPECT_NE(pagina.find("&nbsp;vorn@morvella.example</a>", prima), std::string::npos);
}

TEST(Aiuto, Apertura) {
    Banco b;
    b.Disco.CambiaDirectory("/p");
    for (int volta = 1; volta <= 2; ++volta) {
        b.Disco.Chiamate.clear();
        ASSERT_EQ(Aiuto(b), 0);
        EXPECT_EQ(b.Fronte.Processi,
                  std::vector<Testo>(static_cast<std::size_t>(volta), "Explorer \\prog\\tavolerio.htm"));
        EXPECT_EQ(b.Fronte.StileProcesso, 3);
        EXPECT_EQ(b.Disco.Chiamate.empty(), volta == 2); // the second writes nothing
    }
    EXPECT_EQ(b.Disco.DirectoryCorrente(), "/p");
    EXPECT_TRUE(b.Fronte.Box_.empty());
}

// A page that is there stays, whatever stands in it and however it is spelled.
TEST(Aiuto, GiaPresente) {
    for (const char* nome : {"/prog/tavolerio.htm", "/prog/TAVOLERIO.HTM"})
        for (const char* bytes : {"", "mia"}) {
            Banco b;
            b.Disco.Metti(nome, bytes);
            ASSERT_EQ(Aiuto(b), 0);
            EXPECT_EQ(b.Disco.Leggi(nome), bytes);
            EXPECT_EQ(b.Fronte.Processi.size(), 1U);
            EXPECT_EQ(b.Disco.TuttiIFile().size(), 5U); // and the four pictures
        }
}

TEST(Aiuto, NonScrivibile) {
    Banco b;
    b.Disco.Fallisci("ApriScrittura", "tavolerio.htm", 75);
    EXPECT_EQ(Aiuto(b), 75);
    EXPECT_TRUE(b.Fronte.Processi.empty());
    Banco d; // a directory in its place is no page
    d.Disco.FaiDirectory("/prog/tavolerio.htm");
    EXPECT_EQ(Aiuto(d), 75);
}

} // namespace

} // namespace morvella
