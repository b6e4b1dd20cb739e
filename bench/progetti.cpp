// SPDX-License-Identifier: MIT
#include "progetti.h"

#include <algorithm>
#include <array>
#include <random>
#include <stdexcept>
#include <string_view>

namespace morvella::bench {

namespace {

using Vista = std::string_view;

enum class Genere { Form, Modulo, Classe };

// Windows-1252: \xE0 à, \xE8 è, \xEC ì, \xF2 ò, \xF9 ù.
constexpr std::array<Vista, 10> Temi = {"Ordini",  "Clienti", "Fornitori", "Articoli", "Magazzino",
                                        "Fatture", "Listino", "Stampe",    "Archivio", "Quantit\xE0"};
constexpr std::array<Vista, 12> Variabili = {"Totale",   "Indice",  "Riga",   "Prezzo", "Codice", "Sconto",
                                             "Giacenza", "Importo", "Numero", "Conta",  "Esito",  "Riporto"};
constexpr std::array<Vista, 10> Commenti = {
    "' verifica che la quantit\xE0 sia disponibile",
    "' attenzione: l'importo \xE8 gi\xE0 al netto dello sconto",
    "' da rivedere quando ci sar\xE0 il nuovo listino",
    "'----------------------------------------",
    "'* campo obbligatorio, perci\xF2 si controlla prima",
    "' ricalcola il totale della riga",
    "Rem vecchio calcolo, non pi\xF9 usato",
    "' se l'articolo non c'\xE8 si esce",
    "'",
    "' luned\xEC: prova di stampa",
};
constexpr std::array<Vista, 6> Controlli = {"TextBox",  "Label",    "CommandButton",
                                            "CheckBox", "ComboBox", "Frame"};

class Scrittore {
  public:
    Scrittore(const Ricetta& ricetta, long long i, long long righe, long long show)
        : lunghezza_(ricetta.Lunghezza),
          righe_(righe),
          show_(show),
          caso_(ricetta.Seme * 1000003 + static_cast<std::uint64_t>(i)) {}

    // From 0 to n - 1. The library's distributions differ from one platform to the next.
    long long Caso(long long n) {
        return static_cast<long long>(caso_() % static_cast<std::uint64_t>(std::max(n, 1LL)));
    }
    bool Forse(int percento) { return Caso(100) < percento; }
    template <std::size_t N>
    Vista Uno(const std::array<Vista, N>& fra) {
        return fra[static_cast<std::size_t>(Caso(static_cast<long long>(N)))];
    }

    long long Restano() const { return righe_ - fatte_; }
    bool MancanoShow() const { return showFatti_ < show_; }
    std::string Preso() { return std::move(testo_); }

    void Riga(int livello, std::initializer_list<Vista> pezzi) {
        testo_.append(static_cast<std::size_t>(livello) * 4, ' ');
        for (const Vista pezzo : pezzi) testo_ += pezzo;
        testo_ += "\r\n";
        ++fatte_;
    }
    void Riga(int livello, Vista testo) { Riga(livello, {testo}); }
    std::string Numero(long long n) { return std::to_string(Caso(n)); }

    void TestaForm(const std::string& nome, bool companione);
    void TestaClasse(const std::string& nome);
    void TestaModulo(const std::string& nome);
    void Codice(Genere genere);

  private:
    void Attributi(const std::string& nome, bool form);
    void Controllo(const std::string& nome, long long i);
    void Procedura(Genere genere, long long righe);
    void Corpo(long long righe, int livello);
    void Costrutto(long long righe, int livello);
    void Istruzione(int livello);
    void Semplice(int livello);

    long long lunghezza_;
    long long righe_;
    long long show_;
    long long showFatti_ = 0;
    long long fatte_ = 0;
    long long procedure_ = 0;
    std::string testo_;
    std::mt19937_64 caso_;
};

void Scrittore::Attributi(const std::string& nome, bool form) {
    Riga(0, {"Attribute VB_Name = \"", nome, "\""});
    Riga(0, "Attribute VB_GlobalNameSpace = False");
    Riga(0, {"Attribute VB_Creatable = ", form ? "False" : "True"});
    Riga(0, {"Attribute VB_PredeclaredId = ", form ? "True" : "False"});
    Riga(0, "Attribute VB_Exposed = False");
}

// Ten lines.
void Scrittore::Controllo(const std::string& nome, long long i) {
    const Vista tipo = Uno(Controlli);
    Riga(0, {"   Begin VB.", tipo, " ctl", std::to_string(i), " "});
    Riga(0, {"      Caption         =   \"&", Uno(Temi), " di ", nome, "\""});
    Riga(0, {"      Height          =   ", Numero(2000)});
    Riga(0, {"      Index           =   ", Numero(10)});
    Riga(0, {"      Left            =   ", Numero(9000)});
    Riga(0, {"      TabIndex        =   ", std::to_string(i)});
    Riga(0, {"      Top             =   ", Numero(7000)});
    Riga(0, "      Visible         =   0   'False");
    Riga(0, {"      Width           =   ", Numero(5000)});
    Riga(0, "   End");
}

void Scrittore::TestaForm(const std::string& nome, bool companione) {
    Riga(0, "VERSION 5.00");
    Riga(0, {"Begin VB.Form ", nome, " "});
    Riga(0, {"   Caption         =   \"Gestione ", Uno(Temi), "\""});
    Riga(0, {"   ClientHeight    =   ", Numero(9000)});
    Riga(0, {"   ClientWidth     =   ", Numero(9000)});
    if (companione) Riga(0, {"   Icon            =   \"", nome, ".frx\":0000"});
    Riga(0, "   LinkTopic       =   \"Form1\"");
    Riga(0, "   StartUpPosition =   3  'Windows Default");
    const long long controlli = std::min((righe_ - RigheMinime) / 40, 30LL);
    for (long long i = 0; i < controlli; ++i) Controllo(nome, i);
    Riga(0, "End");
    Attributi(nome, true);
    Riga(0, "Option Explicit");
}

void Scrittore::TestaClasse(const std::string& nome) {
    Riga(0, "VERSION 1.0 CLASS");
    Riga(0, "BEGIN");
    Riga(0, "  MultiUse = -1  'True");
    Riga(0, "  Persistable = 0  'NotPersistable");
    Riga(0, "END");
    Attributi(nome, false);
    Riga(0, "Option Explicit");
    Riga(0, "Private m_Importo As Double");
}

void Scrittore::TestaModulo(const std::string& nome) {
    Riga(0, {"Attribute VB_Name = \"", nome, "\""});
    Riga(0, "Option Explicit");
    Riga(0, "Public Const Iva = 22");
    Riga(0, "Private Declare Function GetTickCount Lib \"kernel32\" () As Long");
    Riga(0, {"Public Type Tipo", nome});
    Riga(1, "Codice As String * 10");
    Riga(1, "Quantita As Long");
    Riga(0, "End Type");
    Riga(0, "");
}

void Scrittore::Semplice(int livello) {
    const Vista a = Uno(Variabili);
    const Vista b = Uno(Variabili);
    switch (Caso(12)) {
    case 0: Riga(livello, {a, " = ", b, " + ", Numero(100)}); break;
    case 1: Riga(livello, {a, " = ", b, " * (1 - ", Uno(Variabili), " / 100)"}); break;
    case 2: Riga(livello, {"Me.txt", a, ".Text = Format(", b, ", \"#,##0.00\")"}); break;
    case 3: Riga(livello, {"Call Aggiorna", a, "(", b, ", ", Numero(50), ", True)"}); break;
    case 4:
        Riga(livello, {"MsgBox \"La quantit\xE0 di \" & ", a, " & \" non \xE8 valida\", vbExclamation"});
        break;
    case 5:
        Riga(livello, {"Set rs", a, " = db.OpenRecordset(\"SELECT * FROM ", b, " WHERE Id = \" & ", a, ")"});
        break;
    case 6: Riga(livello, {"rs", a, ".MoveNext"}); break;
    case 7: Riga(livello, {a, " = Trim$(rs", b, "!Descrizione & \"\")   ' pu\xF2 essere Null"}); break;
    case 8: Riga(livello, {"Print #1, ", a, "; Tab(20); ", b}); break;
    case 9: Riga(livello, {a, "(", b, ") = ", Numero(1000), ": ", b, " = ", b, " + 1"}); break;
    case 10: Riga(livello, "DoEvents"); break;
    default: Riga(livello, {"lst", a, ".AddItem ", b, " & vbTab & ", Uno(Variabili)}); break;
    }
}

void Scrittore::Istruzione(int livello) {
    // The calls are spread over the first nine tenths, so that all of them fit.
    if (MancanoShow() && showFatti_ * (righe_ * 9 / 10) <= show_ * fatte_) {
        ++showFatti_;
        Riga(livello, {"frm", Uno(Temi), ".Show", Forse(50) ? " vbModal" : ""});
        return;
    }
    const long long quale = Caso(100);
    if (quale < 8) {
        Riga(0, "");
    } else if (quale < 18) {
        Riga(livello, Uno(Commenti));
    } else if (quale < 19) {
        Riga(livello, {"If ", Uno(Variabili), " = 0 Then Exit Sub"});
    } else if (lunghezza_ > 0) {
        std::string lunga(Uno(Variabili));
        lunga += " = \"";
        while (static_cast<long long>(lunga.size()) + 1 < lunghezza_) lunga.append(Uno(Temi)).append(" ");
        Riga(livello, {lunga, "\""});
    } else {
        Semplice(livello);
    }
}

// At least 3 lines.
void Scrittore::Costrutto(long long righe, int livello) {
    const Vista a = Uno(Variabili);
    const Vista b = Uno(Variabili);
    const long long dentro = righe - 2;
    switch (Caso(7)) {
    case 0:
        Riga(livello, {"For ", a, " = 1 To ", b});
        Corpo(dentro, livello + 1);
        Riga(livello, {"Next ", a});
        break;
    case 1:
        Riga(livello, {"For Each ", a, " In Me.Controls"});
        Corpo(dentro, livello + 1);
        Riga(livello, "Next");
        break;
    case 2:
        Riga(livello, {"Do While Not rs", a, ".EOF"});
        Corpo(dentro, livello + 1);
        Riga(livello, "Loop");
        break;
    case 3:
        Riga(livello, {"With grd", a});
        Corpo(dentro, livello + 1);
        Riga(livello, "End With");
        break;
    case 4: {
        Riga(livello, {"Select Case ", a});
        long long restano = dentro;
        while (restano > 0) {
            const long long questo = std::min(restano, 2 + Caso(6));
            Riga(livello, {"    Case ", questo == restano ? "Else" : Numero(100)});
            Corpo(questo - 1, livello + 2);
            restano -= questo;
        }
        Riga(livello, "End Select");
        break;
    }
    default: {
        Riga(livello, {"If ", a, " > ", Numero(500), " And ", b, " <> \"\" Then"});
        const long long altrimenti = dentro >= 3 && Forse(45) ? 1 + Caso(dentro - 2) : 0;
        Corpo(dentro - altrimenti, livello + 1);
        if (altrimenti > 0) {
            Riga(livello, Forse(25) ? "ElseIf Esito Then" : "Else");
            Corpo(altrimenti - 1, livello + 1);
        }
        Riga(livello, "End If");
    }
    }
}

void Scrittore::Corpo(long long righe, int livello) {
    while (righe > 0) {
        if (righe >= 3 && livello < 7 && Forse(24)) {
            const long long questo = 3 + Caso(std::min(righe, 24LL) - 2);
            Costrutto(questo, livello);
            righe -= questo;
        } else {
            Istruzione(livello);
            --righe;
        }
    }
}

// At least 4 lines.
void Scrittore::Procedura(Genere genere, long long righe) {
    const std::string nome = std::string(Uno(Variabili)) + std::to_string(++procedure_);
    const Vista ambito = Forse(50) ? "Private" : "Public";
    const long long forma = Caso(genere == Genere::Classe ? 4 : 3);
    Vista fine = "End Sub";
    if (forma == 2) {
        Riga(0, {ambito, " Function Calcola", nome, "(ByVal Codice As String, Riga As Long) As Double"});
        fine = "End Function";
    } else if (forma == 3) {
        Riga(0, {"Public Property Get ", nome, "() As Double"});
        fine = "End Property";
    } else if (genere == Genere::Form) {
        Riga(0, {"Private Sub cmd", nome, "_Click()"});
    } else {
        Riga(0, {ambito, " Sub Aggiorna", nome, "(ByVal Codice As String)"});
    }
    Riga(1, {"Dim ", Uno(Variabili), " As Long, rs", Uno(Variabili), " As Recordset"});
    Corpo(righe - 4, 1);
    Riga(0, fine);
    Riga(0, "");
}

void Scrittore::Codice(Genere genere) {
    while (Restano() >= 4) {
        const long long chieste = 10 + Caso(51);
        const bool tutte = Restano() - chieste < 10;
        Procedura(genere, tutte ? std::min(Restano(), 60LL) : chieste);
    }
    while (Restano() > 0) Riga(0, "' fine del modulo");
    if (MancanoShow()) throw std::invalid_argument("so many .Show calls do not fit into the lines");
}

long long Parte(long long totale, long long moduli, long long i) {
    return totale / moduli + (i < totale % moduli ? 1 : 0);
}

std::string Byte(Scrittore& s, long long quanti) {
    std::string bytes;
    for (long long i = 0; i < quanti; ++i) bytes += static_cast<char>(s.Caso(256));
    return bytes;
}

} // namespace

ModuloSintetico FaiModulo(const Ricetta& ricetta, long long i) {
    const long long righe = Parte(ricetta.Righe, ricetta.Moduli, i);
    const long long show = Parte(ricetta.Show < 0 ? ricetta.Righe / 200 : ricetta.Show, ricetta.Moduli, i);
    if (righe < RigheMinime) throw std::invalid_argument("a module needs at least 40 lines");
    Scrittore s(ricetta, i, righe, show);

    std::string numero = std::to_string(i + 1);
    if (numero.size() < 4) numero.insert(0, 4 - numero.size(), '0');
    // Of twenty modules eight are forms, seven modules, five classes; one alone is a form.
    const long long posto = i % 20;
    const Genere genere = posto % 5 < 2                  ? Genere::Form
                          : posto % 5 < 4 && posto != 13 ? Genere::Modulo
                                                         : Genere::Classe;
    const Vista tema = Temi[static_cast<std::size_t>(i) % Temi.size()];
    ModuloSintetico m;
    const auto nomina = [&](Vista davanti, Vista dietro) {
        std::string nome = std::string(davanti).append(tema).append(numero);
        m.Nome = nome + std::string(dietro);
        return nome;
    };
    switch (genere) {
    case Genere::Form: {
        const std::string nome = nomina("frm", ".frm");
        m.RigaVbp = "Form=" + m.Nome + "\r\n";
        if (i % 3 == 0) {
            m.NomeCompanione = nome + ".frx";
            m.Companione = Byte(s, 300 + s.Caso(20000));
        }
        s.TestaForm(nome, !m.Companione.empty());
        break;
    }
    case Genere::Modulo: {
        const std::string nome = nomina("mod", ".bas");
        m.RigaVbp = "Module=" + nome + "; " + m.Nome + "\r\n";
        s.TestaModulo(nome);
        break;
    }
    case Genere::Classe: {
        const std::string nome = nomina("cls", ".cls");
        m.RigaVbp = "Class=" + nome + "; " + m.Nome + "\r\n";
        s.TestaClasse(nome);
        break;
    }
    }
    s.Codice(genere);
    m.Testo = s.Preso();
    return m;
}

ModuloSintetico FaiScala(const Ricetta& ricetta) {
    Scrittore s(ricetta, 0, 0, 0);
    const long long profondi = ricetta.Profondi > 0 ? ricetta.Profondi : ricetta.Aperti;
    s.Riga(0, "Private Sub Scala()");
    long long livello = 0;
    for (long long i = 0; i < ricetta.Aperti; ++i) {
        if (livello == profondi)
            for (; livello > 0; --livello) s.Riga(0, "End If");
        s.Riga(0, "If a Then");
        ++livello;
    }
    s.Riga(0, "End Sub");
    return {.Nome = "frmScala.frm", // the code of a form begins with its first line
            .RigaVbp = "Form=frmScala.frm\r\n",
            .Testo = s.Preso(),
            .Companione = {},
            .NomeCompanione = {}};
}

std::string FaiVbp(const std::string& righeModuli) {
    return "Type=Exe\r\nReference=*\\G{00025E01-0000-0000-C000-000000000046}#5.0#0#DAO360.DLL#DAO\r\n" +
           righeModuli +
           "Startup=\"Sub Main\"\r\nName=\"Sintetico\"\r\nTitle=\"Progetto sintetico\"\r\n"
           "MajorVer=1\r\nMinorVer=0\r\nCompilationType=0\r\n";
}

} // namespace morvella::bench
