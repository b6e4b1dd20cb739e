// SPDX-License-Identifier: MIT
//
// The page of one module: its frame, and the scans that fill it as the source is read.
#include "docs/docs.h"
#include "docs/righe.h"

namespace morvella {

namespace {

// A page's lines, in order. "@" is a placeholder; slips and unbalanced tags are meant.
// clang-format off
constexpr Vista TestaPagina[] = {
    "<html>",
    "",
    "<head>",
    "<title>@</title>",
    R"(<meta http-equiv="Content-Type" content="text/html; charset=iso-8859-1">)",
    R"(<meta name="GENERATOR">)",
    "</head>",
    "",
    R"(<body background="BLULETHR.GIF" style="font-family: Arial; font-size: 12">)",
    R"(  <TABLE BORDER CELLSPACING=1 BORDERCOLOR="#000000" CELLPADDING=4 WIDTH=651>)",
    R"(  <TR><TD WIDTH="33%" VALIGN="TOP">)",
    R"(  <P><B><FONT FACE="Arial" SIZE=2>Procedura</B></FONT></TD>)",
    R"(  <TD WIDTH="33%" VALIGN="TOP">)",
    R"(  <B><FONT FACE="Arial" SIZE=2><P>Data Creazione</B></FONT></TD>)",
    R"(  <TD WIDTH="33%" VALIGN="TOP">)",
    R"(  <B><FONT FACE="Arial" SIZE=2><P>Grandezza form</B></FONT></TD>)",
    "  </TR>",
};

constexpr Vista Riepilogo[] = {
    R"(  <TR><TD WIDTH="33%" VALIGN="TOP">)",
    R"(  <B><FONT FACE="Arial"><P>&nbsp;@</B></FONT></TD>)",
    R"(  <TD WIDTH="3%" VALIGN="TOP">)",
    R"(  <B><FONT FACE="Arial"><P>@</B></FONT></TD>)",
    R"(  <TD WIDTH="33%" VALIGN="TOP">)",
    R"(  <B><FONT FACE="Arial"><P>@</B></FONT></TD>)",
    "  </TR>",
    "  </TABLE>",
};

constexpr Vista TestaSezione[] = {
    "        <br>",
    "        <HR>",
    "      <b><font size=\"3\">"
        "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;"
        "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;"
        "@</font><br>", // the <b> stays open
    "        <HR>",
    "        <br>",
};

constexpr Vista RigaMenu[] = {
    R"(    <table border="0" width="58%">)",
    "      <tr>",
    R"(        <td width="50%"><big><font face="Arial">@</font></big></td>)",
    R"(        <td width="50%"><big><font face="Arial">@</font></big></td>)",
    "      </tr>",
    "    </table>",
};

constexpr Vista RigaControllo[] = {
    R"(<table border="0" width="100%">)",
    "  <tr>",
    R"(<td width="100%"><strong>Nome Data @</strong><br>)",
    "<strong>Database Name @</strong><br>",
    "<strong>RecordSource @</strong></td>",
    "</tr>",
    "</table>",
};

constexpr Vista ApreProcedura = R"(  <table border="0" width="100%">)";
constexpr Vista ApreSub = R"( <table border="0" width="100%">)"; // one blank where the others have two
constexpr Vista RigaProcedura[] = {
    "      <tr>",
    R"(        <td width="100%"><strong> @</strong></td>)",
    "      </tr>",
    "    </table>",
};

constexpr Vista SenzaMenu[] = {
    "  <tr>",
    "    <td width=\"100%\"><p align=\"center\"><big><strong>nella presente&nbsp; procedura non sono stati rilevati men\xF9</strong></big></td>",
    "  </tr>",
};

constexpr Vista Banda[] = {
    R"(         <p align="center"><img src="Dario.gif"width="429"height="124")",
    R"~(alt="Dario.gif (37133 byte)"></p>)~",
};

constexpr Vista MostratiTesta[] = {
    R"~(<p align="center"><img src="p2.gif" width="429" height="39" alt="p2.gif (13802 byte)"></p>)~",
    R"(<div align="center"><center>)",
    R"(              <table border="0" width="50%">)",
    "  <tr>",
    R"(    <td width="100%"><p align="left"><big><strong>)",
};

constexpr Vista MostratiCoda[] = {
    "</strong></big></td>",
    "  </tr>",
    "</table>",
    "</center></div>",
};

// The last two lines have the byte 13 in place of quotes: meant.
constexpr Vista Rilettura[] = {
    R"(<p align="center"><br><br> <strong>Rilettura del  @... </strong> </p>)",
    "<p align=\rcenter\r>&nbsp;</p>",
    "<p align=\rcenter\r><a href=\rIndice.Html\r><img border=\r0\r src=\rhome.GIF\r alt=\rTorna alla pagina iniziale\r width=\r102\r height=\r43\r></a></p>",
};

constexpr Vista Fine[] = {
    "</body>",
    "</html>",
};
// clang-format on

// The pass over a source that fills the page from the summary to the end of the procedure list.
class Scansione {
  public:
    Scansione(Stato& s, ValoriPendenti& pendenti) : s_(s), p_(pendenti) {}

    /// Examines the line in Riga, untrimmed. May read one line on.
    void EsaminaRiga();
    bool MenuTrovati() const { return menuTrovati_; }
    /// In the code, after its heading: only procedure heads matter from here on.
    bool SoloProcedure() const { return statoTesta_ == 7 && procIntestate_; }

  private:
    void Testa(bool& scritta, Vista titolo) {
        if (!scritta) ScriviRighe<TestaSezione>(s_, 2, titolo);
        scritta = true;
    }
    void CercaMenu();
    void CercaControlli();
    void ProvaAttribute();
    void Procedura();

    Stato& s_;
    ValoriPendenti& p_;
    int statoTesta_ = 5; // 5 the file's head, 6 in transit, 7 code; independent of s.StatoTesta
    bool menuTrovati_ = false;
    bool daoIntestato_ = false;
    bool adoIntestato_ = false;
    bool procIntestate_ = false;
};

void Scansione::EsaminaRiga() {
    // A bare prefix: a control's property "Options" ends the head too.
    if (statoTesta_ < 7 && IniziaPer(Trim(s_.Riga), "option")) statoTesta_ = 7;
    if (statoTesta_ <= 5) {
        CercaMenu(); // may read one line on, which the next two then see
        CercaControlli();
        ProvaAttribute();
    }
    if (statoTesta_ == 6) statoTesta_ = 7;
    if (statoTesta_ == 7 && !IniziaPer(s_.Riga, "attribute vb")) Procedura();
}

void Scansione::CercaMenu() {
    const Lungo trovato = InStr(1, s_.Riga, "Begin VB.Menu");
    if (trovato == 0) return;
    Testa(menuTrovati_, "Menu presenti nell'applicazione");
    const Testo nome = LCase(Mid(s_.Riga, trovato + 13, Len(s_.Riga)));
    s_.Riga = s_.Canale.LineInput(1); // without a test for the end of the file, and not counted
    // Without the marker the caption is the line from its 20th byte on, whatever it is.
    const Lungo segno = InStr(1, s_.Riga, "Caption         =   ");
    ScriviRighe<RigaMenu>(s_, 2, nome, Trim(Mid(s_.Riga, segno + 20, Len(s_.Riga))));
}

// The first test that holds ends the chain. The cuts differ on purpose: some values keep their
// leading blanks and "=".
void Scansione::CercaControlli() {
    const Vista t = Trim(s_.Riga);
    const Lungo tutta = Len(s_.Riga);
    if (Mid(t, 1, 13) == "Begin VB.Data") {
        p_.NomeData = Mid(t, 14, tutta);
        Testa(daoIntestato_, "DATABASE DAO");
    } else if (Mid(t, 1, 12) == "DatabaseName") {
        p_.DatabaseData = Mid(t, 13, tutta);
    } else if (Mid(t, 1, 12) == "RecordSource" && p_.NomeAdo.empty()) {
        p_.RecordData = Mid(t, 13, tutta);
        ScriviRighe<RigaControllo>(s_, 2, p_.NomeData, p_.DatabaseData, p_.RecordData);
        p_.RecordData.clear();
        p_.DatabaseData.clear();
        p_.NomeData.clear();
    } else if (Mid(t, 1, 22) == "Begin MSAdodcLib.Adodc") {
        Testa(adoIntestato_, "DATABASE ADO");
        p_.NomeAdo = Trim(Mid(t, 23, tutta));
    } else if (Mid(t, 1, 17) == "OLEDBString     =") {
        p_.OledbAdo = Trim(Mid(t, 19, tutta));
    } else if (Mid(t, 1, 17) == "RecordSource    =") {
        p_.RecordAdo = Mid(t, 19, tutta);
        ScriviRighe<RigaControllo>(s_, 2, p_.NomeAdo, p_.OledbAdo, p_.RecordAdo);
        p_.RecordAdo.clear();
        p_.OledbAdo.clear();
        p_.NomeAdo.clear();
    }
}

// The second test sees an Option Explicit only on the line after a Begin VB.Menu: any other has
// already ended the head.
void Scansione::ProvaAttribute() {
    if (Mid(s_.Riga, 1, 9) == "Attribute" ||
        (statoTesta_ == 5 && Mid(Trim(s_.Riga), 1, 15) == "Option Explicit"))
        ++statoTesta_;
}

// The procedure list does not use the classifier: six prefixes and no others, so a Sub without
// Private or Public is left out.
void Scansione::Procedura() {
    Testa(procIntestate_, "Procedure interne");
    s_.Riga = Trim(s_.Riga);
    Vista apre;
    if (IniziaPer(s_.Riga, "private type") || IniziaPer(s_.Riga, "public type")) {
        apre = ApreProcedura;
    } else if (IniziaPer(s_.Riga, "private sub") || IniziaPer(s_.Riga, "public sub")) {
        apre = ApreSub;
        s_.Margine = Space(5);
        s_.StoriaBlocchi.AggiungiDue("01", 2);
    } else if (IniziaPer(s_.Riga, "private function") || IniziaPer(s_.Riga, "public function")) {
        apre = ApreProcedura;
        s_.Margine = Space(5);
        s_.StoriaBlocchi.AggiungiDue("02", 2);
    } else {
        return;
    }
    s_.Canale.Print(2, apre);
    ScriviRighe<RigaProcedura>(s_, 2, s_.Riga);
}

// Marks where in a slice a line may begin with "private" or "public" after blanks. A filter for
// speed: false positives are harmless, misses are not.
Segni CercaPrivatePublic(const char* p) {
    Segni trovati = 0;
    for (Segni forse = DoveParola(p, 'p', 'v', 'l'); forse != 0; forse &= forse - 1) // "priv", "publ"
        if (static_cast<unsigned char>(p[static_cast<std::ptrdiff_t>(PrimoSegno(forse)) - 1]) <= ' ')
            trovati |= forse & (~forse + 1);
    return trovati;
}

// The forms shown, in order. The closing lines are written even without any: meant.
void ScriviMostrati(Stato& s) {
    if (!s.ElencoShow.Resto().empty()) ScriviRighe<MostratiTesta>(s, 2);
    for (;;) {
        const Vista resto = s.ElencoShow.Resto();
        const Lungo fine = InStr(1, resto, "\r");
        if (fine == 0) break;
        const Vista voce = Mid(resto, 1, fine - 1);
        const Testo coda = Len(voce) < 54 ? Space(54 - Len(voce)) + "<br> " : "";
        s.Canale.Print(2, "          ", "'", voce, coda);
        s.ElencoShow.Presi += static_cast<std::size_t>(fine);
    }
    ScriviRighe<MostratiCoda>(s, 2);
}

} // namespace

void ScriviPagina(Stato& s, const Testo& voce, ValoriPendenti& pendenti) {
    s.Canale.OpenInput(1, s.FileSorgente);
    s.Canale.OpenOutput(2, s.FileUscita);
    ScriviRighe<TestaPagina>(s, 2, s.FileUscita);
    // The row itself is the path, relative to the current directory: meant.
    const Testo quando = s.File.FileDateTime(voce);
    const Vista data = Mid(quando, 1, InStr(1, quando, " ") - 1); // error 5 at midnight: meant
    const Testo misura = CStr(s.File.FileLen(voce));
    ScriviRighe<Riepilogo>(s, 2, voce, data, misura);

    Scansione scansione(s, pendenti);
    for (;;) {
        if (scansione.SoloProcedure()) AvanzaBarra(s, s.Progress, s.Canale.SaltaRighe(1, CercaPrivatePublic));
        if (s.Canale.Eof(1)) break;
        AvanzaBarra(s, s.Progress);
        s.Riga = s.Canale.LineInput(1);
        scansione.EsaminaRiga();
    }
    if (!scansione.MenuTrovati()) ScriviRighe<SenzaMenu>(s, 2);
    ScriviRighe<Banda>(s, 2);
    ScriviMostrati(s);
    ScriviRighe<Rilettura>(s, 2, s.File.Date());
    s.Canale.Close(1);
    ScriviRighe<Fine>(s, 2);
    s.Canale.Close(2);
}

} // namespace morvella
