// SPDX-License-Identifier: MIT
#include "generatore.h"

#include <array>
#include <string_view>

namespace morvella::esame {

namespace {

using std::string;

class Generatore {
  public:
    Generatore(std::mt19937& caso, const Scelte& scelte) : caso_(caso), scelte_(scelte) {}

    Modulo Fai() {
        if (Una(3)) Testa();
        Metti("Attribute VB_Name = \"M\"");
        Metti("Option Explicit ' If, For_");
        if (Una(3)) Metti("' commento che continua _"), Metti("If a Then");
        Tipi();
        if (scelte_.Condizionale && Una(2)) {
            Metti("#If Win32 Then");
            Metti("Private Declare Sub Sleep Lib \"kernel32\" (ByVal ms As Long)");
            Metti("#Else");
            Tipi();
            Metti("#End If");
        }
        for (int i = 0; i < scelte_.Procedure; ++i) Procedura_(i);
        return std::move(m_);
    }

  private:
    std::size_t Quanto(std::size_t n) { return caso_() % n; }
    bool Una(std::size_t n) { return Quanto(n) == 0; }
    template <std::size_t N>
    string Uno(const std::array<std::string_view, N>& scelta) {
        return string(scelta[Quanto(N)]);
    }

    std::size_t Metti(const string& testo, Ruolo che = Ruolo::Altro, Blocco cosa = Blocco::Nessuno) {
        const std::size_t rientro = scelte_.RientriACaso ? Quanto(20) : 4 * livello_;
        const bool sinistra = testo[0] == '#' || testo.starts_with("Attribute") ||
                              (testo.size() > 3 && testo.find(": ") == 3 && testo[0] == 'L');
        const bool continua = !m_.Righe.empty() && m_.Righe.back().Testo.ends_with(" _");
        RigaModulo riga{
            .Testo = (sinistra ? "" : string(rientro, ' ')) + testo, .Che = che, .Cosa = cosa, .Capo = capo_};
        if (!dentro_.empty()) riga.Intorno = dentro_.back();
        const bool divide = che == Ruolo::Chiude || che == Ruolo::Else || che == Ruolo::Fine ||
                            testo.starts_with("Case ") || testo.starts_with("ElseIf ") ||
                            testo.starts_with("Else If ");
        riga.Rientro = scelte_.RientriACaso ? Quanto(20) : 4 * (livello_ + divide);
        riga.Intera = !continua && !senzaCase_;
        m_.Righe.push_back(std::move(riga));
        return m_.Righe.size() - 1;
    }

    void Coppia(std::size_t apre, std::size_t chiude) {
        m_.Righe[apre].Pari = chiude;
        m_.Righe[chiude].Pari = apre;
    }

    void Testa() {
        for (const char* riga :
             {"VERSION 5.00", "Begin VB.Form F ", "   Caption = \"If\"", "   BeginProperty Font ",
              "      Size = 8", "   EndProperty", "   Begin VB.Menu Next ", "   End", "End"})
            m_.Righe.push_back({.Testo = riga, .Capo = Fuori, .Intera = false});
    }

    void Tipi() {
        for (const Blocco cosa : {Blocco::Type, Blocco::Enum}) {
            if (Una(2)) continue;
            const string nome(NomeBlocco(cosa));
            const std::size_t capo =
                Metti((Una(2) ? "Private " : "") + nome + " T" + std::to_string(++nomi_), Ruolo::Capo, cosa);
            ++livello_;
            const bool insidie = Una(8); // members with the names of statements
            for (const char* membro : {insidie ? "Next" : "Next_", insidie ? "Loop" : "Codice", "Type", "a"})
                m_.Righe[Metti(membro + string(cosa == Blocco::Type ? " As Long" : ""))].Intera = false;
            --livello_;
            Coppia(capo, Metti("End " + nome, Ruolo::Fine, cosa));
            m_.Righe.back().Intera = false;
        }
    }

    void Procedura_(int numero) {
        static constexpr std::array<std::string_view, 5> prima{"", "Private ", "Public Static ", "Friend ",
                                                               "Static "};
        const Blocco cosa = std::array{Blocco::Sub, Blocco::Function, Blocco::Property}[Quanto(3)];
        const string parola(NomeBlocco(cosa));
        const string testa = Uno(prima) + parola +
                             (cosa == Blocco::Property ? (Una(2) ? " Get " : " Let ") : " ") + "P" +
                             std::to_string(numero);
        std::size_t capo = 0;
        if (scelte_.Sbilanciati && Una(2)) {
            Metti("#If a Then");
            Metti(testa + "(ByVal x As Long)");
            Metti("#Else");
            capo = Metti(testa + "(ByVal x As Integer)");
            Metti("#End If");
        } else {
            capo = Metti(testa + "(ByVal x As Long, _", Ruolo::Capo, cosa);
            Metti("    Optional y As String)");
        }
        capo_ = capo;
        m_.Righe[capo].Capo = capo;
        ++livello_;
        Metti("Dim a, b As Long, If_ As String");
        Corpo(0);
        --livello_;
        capo_ = Fuori;
        const std::size_t fine =
            Metti("End " + parola, m_.Righe[capo].Che == Ruolo::Capo ? Ruolo::Fine : Ruolo::Altro, cosa);
        m_.Righe[fine].Capo = capo;
        Coppia(capo, fine);
        if (Una(2)) m_.Righe.push_back({.Testo = "", .Capo = Fuori});
    }

    void Corpo(int profondo) {
        for (std::size_t i = 1 + Quanto(4); i > 0; --i) {
            if (profondo < 5 && Quanto(100) < 38)
                Blocco_(profondo);
            else
                Frase();
        }
    }

    void Frase() {
        static constexpr std::array<std::string_view, 24> frasi{
            "a = b + 1",
            "If a Then b = 1",
            "If a Then b = 1 Else b = 2: a = 3",
            "If a Then: b = 1",
            "' If a Then",
            "' continua _",
            "Rem For i = 1 To 2: Next",
            "s = \"End Sub\" & \"\"\"For\"",
            "On Error Resume Next",
            "On Error GoTo Errore",
            "Call f(a, _",
            "d = #10:20:30 PM#: b = 1",
            "For i = 1 To 3: a = i: Next",
            "rs!Next = x.Loop",
            "Open f For Input As #1: Close #1",
            "100 a = b",
            "L"
            "bl: a = 1",
            "If a Then If b Then c Else d",
            "If a Then For i = 1 To 2: b: Next i",
            "Exit Sub",
            "Print #1, a: Print #1, b",
            "Select Case a: Case 1: b: Case Else: c: End Select",
            "Dim z As New Collection",
            "With a: .b = 1: End With"};
        const string frase = Uno(frasi);
        Metti(frase);
        if (frase == "' continua _") Metti("If a Then");
        if (frase == "Call f(a, _") Metti("If_, Then_)");
    }

    void Blocco_(int profondo) {
        if (scelte_.Condizionale && Una(12)) return Gruppo(profondo);
        static constexpr std::array blocchi{Blocco::If,    Blocco::If,     Blocco::If,
                                            Blocco::For,   Blocco::For,    Blocco::Do,
                                            Blocco::While, Blocco::Select, Blocco::With};
        const Blocco cosa = blocchi[Quanto(blocchi.size())];
        const string apre = [&]() -> string {
            switch (cosa) {
            case Blocco::If:
                return Uno(std::array<std::string_view, 3>{"If a Then", "If a And (b = \"Then\") Then ' vero",
                                                           "If x.Then > 1 Then"});
            case Blocco::For:
                return Uno(std::array<std::string_view, 2>{"For i = 1 To 10 Step 2", "For Each v In c"});
            case Blocco::Do: return Uno(std::array<std::string_view, 2>{"Do While a", "Do"});
            case Blocco::While: return "While Not rs.EOF";
            case Blocco::Select: return "Select Case a + b";
            default: return "With frmMain.Lista";
            }
        }();
        const std::size_t prima = Metti(apre, Ruolo::Apre, cosa);
        dentro_.push_back(cosa);
        if (cosa == Blocco::Select) {
            senzaCase_ = true;
            m_.Righe[prima].Mezzo = m_.Righe.size();
            for (std::size_t i = 1 + Quanto(3); i > 0; --i) {
                Metti(i == 1 ? "Case Else" : "Case 1, \"a\" To \"b\"");
                senzaCase_ = false;
                ++livello_;
                Corpo(profondo + 1);
                --livello_;
            }
        } else {
            ++livello_;
            Corpo(profondo + 1);
            --livello_;
        }
        if (cosa == Blocco::If) {
            const std::size_t mezzo = m_.Righe.size();
            if (Una(4)) {
                Metti(Una(2) ? "ElseIf b Then" : "Else If b Then");
                ++livello_, Corpo(profondo + 1), --livello_;
            }
            if (Una(2)) {
                Metti(Una(4) ? "Else ' no" : "Else", Ruolo::Else, cosa);
                ++livello_, Corpo(profondo + 1), --livello_;
            }
            if (m_.Righe.size() > mezzo) m_.Righe[prima].Mezzo = mezzo;
        }
        const string chiude = cosa == Blocco::For && Una(2) ? "Next i"
                              : cosa == Blocco::Do          ? "Loop Until b"
                                                            : string(Chiusura(cosa));
        Coppia(prima, Metti(chiude, Ruolo::Chiude, cosa));
        dentro_.pop_back();
    }

    void Gruppo(int profondo) {
        Metti("#If a Then");
        Corpo(profondo + 1);
        if (Una(2)) Metti("#Else"), Corpo(profondo + 1);
        Metti("#End If");
        if (!scelte_.Sbilanciati || Quanto(2)) return;
        Metti("#If b Then"), Metti("If a Then"), Metti("#Else"), Metti("If b Then"), Metti("#End If");
        Corpo(profondo + 1);
        Metti("End If");
    }

    std::mt19937& caso_;
    const Scelte& scelte_;
    Modulo m_;
    std::size_t livello_ = 0;
    std::size_t capo_ = Fuori;
    std::vector<Blocco> dentro_;
    bool senzaCase_ = false;
    int nomi_ = 0;
};

// Where a module was cut open or a line put in, the numbers after it move.
std::uint32_t Numero(std::size_t indice, std::size_t cambiata, int spostate) {
    const auto n = static_cast<std::int64_t>(indice) + 1 +
                   (indice > cambiata || (spostate > 0 && indice == cambiata) ? spostate : 0);
    return static_cast<std::uint32_t>(n);
}

} // namespace

std::string Modulo::Testo() const {
    string s;
    for (const RigaModulo& r : Righe) s += r.Testo + "\r\n";
    return s;
}

Modulo Genera(std::mt19937& caso, const Scelte& scelte) { return Generatore(caso, scelte).Fai(); }

Guasto Pianta(std::mt19937& caso, const Modulo& modulo) {
    const auto nome = [&](std::size_t capo) {
        const string& t = modulo.Righe[capo].Testo;
        const std::size_t fine = t.find('(');
        return t.substr(t.rfind(' ', fine) + 1, fine - t.rfind(' ', fine) - 1);
    };
    const auto rientro = [](const string& t) {
        return string(t.find_first_not_of(' ') == t.npos ? 0 : t.find_first_not_of(' '), ' ');
    };
    for (;;) {
        const std::size_t i = caso() % modulo.Righe.size();
        const RigaModulo& r = modulo.Righe[i];
        const auto come = caso() % 4;
        Modulo altro = modulo;
        const auto posto = altro.Righe.begin() + static_cast<std::ptrdiff_t>(i);
        Guasto g;
        if (r.Capo != Fuori && r.Che != Ruolo::Fine && r.Che != Ruolo::Capo) g.Procedura = nome(r.Capo);
        const string che =
            std::array{"", "apertura", "chiusura", "Else", "capo", "fine"}[static_cast<std::size_t>(r.Che)];
        if (come == 0) { // removed; an Else may go
            if (r.Che == Ruolo::Altro || r.Che == Ruolo::Else) continue;
            if (r.Che == Ruolo::Capo && r.Testo.ends_with("_")) altro.Righe[i + 1].Testo = "'";
            g.Nome = "tolta " + che;
            altro.Righe.erase(posto);
            g.Righe = {Numero(r.Pari, i, -1)};
            if (r.Mezzo != 0) g.Righe.push_back(Numero(r.Mezzo, i, -1));
        } else if (come == 1) { // doubled
            if (r.Che == Ruolo::Altro || r.Testo.ends_with("_")) continue;
            g.Nome = "doppia " + che;
            altro.Righe.insert(posto, RigaModulo(r));
            g.Righe = {static_cast<std::uint32_t>(i + 1), static_cast<std::uint32_t>(i + 2)};
        } else if (come == 2) { // exchanged
            static constexpr std::array chiusure{"End If", "Next", "Loop", "Wend", "End Select", "End With"};
            static constexpr std::array fini{"End Sub", "End Function", "End Property", "End Type",
                                             "End Enum"};
            if (r.Che != Ruolo::Chiude && r.Che != Ruolo::Fine) continue;
            const string nuova = r.Che == Ruolo::Chiude ? chiusure[caso() % 6] : fini[caso() % 5];
            if (nuova == Chiusura(r.Cosa) || r.Cosa == Blocco::Property) continue;
            g.Nome = "scambiata " + che;
            posto->Testo = rientro(r.Testo) + nuova;
            g.Righe = {static_cast<std::uint32_t>(i + 1)};
        } else { // put in before the line
            static constexpr std::array nuove{
                "End If",       "Next",      "Loop",           "Wend",         "End Select",
                "End With",     "If a Then", "For k = 1 To 2", "Do",           "With c",
                "Else",         "Case 3",    "End Sub",        "End Function", "Private Sub Nuova()",
                "Select Case q"};
            if (r.Capo == Fuori || r.Che == Ruolo::Capo || !r.Intera) continue;
            const string nuova = nuove[caso() % nuove.size()];
            if (nuova == "Else" && (r.Intorno == Blocco::If || r.Che == Ruolo::Else))
                continue; // may be legal there
            if (nuova == "Case 3" && (r.Intorno == Blocco::Select || r.Intorno == Blocco::Nessuno)) {
                if (r.Intorno == Blocco::Select) continue;
            }
            g.Nome = "messa " + nuova;
            altro.Righe.insert(posto, RigaModulo{.Testo = string(r.Rientro, ' ') + nuova});
            g.Righe = {static_cast<std::uint32_t>(i + 1)};
            g.Procedura = nome(r.Capo);
            // At the depth of the procedure itself the two halves are each as good as the other.
            if (nuova.starts_with("End Sub") || nuova.starts_with("End Fun")) {
                g.Righe.push_back(Numero(modulo.Righe[r.Capo].Pari, i, 1));
                g.Procedura.clear();
            }
            if (nuova.starts_with("Private"))
                g.Righe.push_back(static_cast<std::uint32_t>(r.Capo + 1)), g.Procedura.clear();
        }
        g.Testo = altro.Testo();
        return g;
    }
}

} // namespace morvella::esame
