// SPDX-License-Identifier: MIT
//
// The fault sweep: runs the real program with one call failing, for every call, and holds each run
// against the law:
//   - the sources are the same, bit for bit;
//   - where the good run ends with 0, 0 comes only with the tree of the good run;
//   - whatever else happens is told on standard error;
//   - no run ends by a signal or does not end;
//   - an interrupted call or a short transfer changes nothing;
//   - after a kill or a full disk a second run gives the tree of a clean one.
//
//   guasti PROGRAM LIBRARY WORKDIR [--scena NAME] [--modo MODE] [--passo N] [--da K]
//
// LIBRARY is precarica.cpp's. Every N-th point is tried (1: all of them), beginning with K. Prints a
// table; exit status 1 when the law was broken. --punto K tries this one and shows what it says.
#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

extern char** environ;

namespace fs = std::filesystem;

namespace {

// What lies below a directory: "F" and the bytes of a file, "L" and the target of a link, "D".
using Albero = std::map<std::string, std::string>;

std::string LeggiFile(const fs::path& file) {
    std::ifstream ingresso(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(ingresso), {}};
}

Albero Leggi(const fs::path& radice) {
    Albero albero;
    for (const auto& voce : fs::recursive_directory_iterator(radice)) {
        std::string& che = albero[voce.path().lexically_relative(radice).string()];
        if (voce.is_symlink())
            che = "L" + fs::read_symlink(voce.path()).string();
        else if (voce.is_directory())
            che = "D";
        else
            che = "F" + LeggiFile(voce.path());
    }
    return albero;
}

// Everything gets one date: pages show it.
constexpr std::time_t Data = 1000000000;

void Scrivi(const fs::path& radice, const Albero& albero) {
    fs::remove_all(radice);
    fs::create_directories(radice);
    const timespec data[] = {{Data, 0}, {Data, 0}};
    for (const auto& [nome, che] : albero) {
        const fs::path qui = radice / nome;
        if (che[0] == 'D') {
            fs::create_directories(qui);
        } else if (che[0] == 'L') {
            fs::create_symlink(che.substr(1), qui);
        } else {
            std::ofstream(qui, std::ios::binary) << che.substr(1);
            ::utimensat(AT_FDCWD, qui.c_str(), data, 0);
        }
    }
}

struct Esito {
    int Stato = -1;    // exit status; -1 when a signal ended it
    int Segnale = 0;   // that one; SIGALRM when it had to be stopped
    std::string Detto; // standard error
};

std::string PrimaDifferenza(const Albero& atteso, const Albero& avuto) {
    for (const auto& [nome, che] : atteso)
        if (const auto qui = avuto.find(nome); qui == avuto.end())
            return nome + " is missing";
        else if (qui->second != che)
            return nome + " differs";
    for (const auto& [nome, che] : avuto)
        if (!atteso.contains(nome)) return nome + " is left over";
    return {};
}

struct Scena {
    std::string Nome;
    std::vector<std::string> Argomenti; // "@" stands for the place of the run
    bool Pieno = false;                 // over the output of a run that went well
    bool Ostile = false;                // with links that lead out
};

const std::vector<Scena> Scene = {
    {"esegui",
     {"esegui", "--si", "--html", "--sottocartelle", "--programma", "@/programma", "@/progetto/Prova.vbp"}},
    {"struttura",
     {"struttura", "--controlla", "--rapporto", "@/rapporto.json", "--programma", "@/programma",
      "@/progetto/Prova.vbp"}},
    {"documenta", {"documenta", "--sottocartelle", "--programma", "@/programma", "@/progetto/Prova.vbp"}},
    {"opzioni", {"opzioni", "--programma", "@/programma", "--togli-commenti=si"}},
};

struct Conto {
    long Punti = 0, Detti = 0, Uguali = 0, Rotti = 0;
};

class Prova {
  public:
    Prova(std::string programma, std::string libreria, fs::path lavoro, const Scena& scena)
        : programma_(std::move(programma)),
          libreria_(std::move(libreria)),
          lavoro_(std::move(lavoro)),
          scena_(scena) {
        Prepara();
    }

    long Punti(const std::string& modo) {
        const fs::path conta = lavoro_ / "conta";
        Scrivi(lavoro_ / "qui", inizio_);
        Corri(modo, 0, conta);
        return std::atol(LeggiFile(conta).c_str());
    }

    Conto Passa(const std::string& modo, long da, long passo) {
        Conto conto;
        const long punti = Punti(modo);
        for (long k = da; k <= punti; k += passo) {
            ++conto.Punti;
            std::string detto;
            const std::string rotta = Prova1(modo, k, detto);
            if (!rotta.empty()) {
                if (conto.Rotti++ < 10)
                    std::printf("  BROKEN %s%s --modo %s --punto %ld: %s\n", scena_.Nome.c_str(), Come(),
                                modo.c_str(), k, rotta.c_str());
            } else {
                ++(detto.empty() ? conto.Uguali : conto.Detti);
            }
        }
        return conto;
    }

    // One point. What was broken, "" for nothing; `detto` is what the run said when it ended otherwise.
    std::string Prova1(const std::string& modo, long punto, std::string& detto) {
        Scrivi(lavoro_ / "qui", inizio_);
        const Esito esito = Corri(modo, punto, {});
        const bool ucciso = modo == "uccidi" && esito.Segnale == SIGKILL;
        if (esito.Segnale == SIGALRM) return "it does not end";
        if (esito.Segnale != 0 && !ucciso) return "ended by signal " + std::to_string(esito.Segnale);
        Albero avuto = Leggi(lavoro_ / "qui");
        for (const auto& [nome, che] : fonti_)
            if (const auto qui = avuto.find(nome); qui == avuto.end() || qui->second != che)
                return "the source " + nome + " was changed";
        const std::string diversa = PrimaDifferenza(buono_, avuto);
        const bool come = esito.Stato == buona_.Stato;
        if (modo == "EINTR" || modo == "corto")
            return !come ? "status " + std::to_string(esito.Stato) + ": " + esito.Detto : diversa;
        // With another status than 0 the good run tells something; this one has to tell something else.
        if (come && !diversa.empty() && (buona_.Stato == 0 || esito.Detto == buona_.Detto))
            return "silent: " + diversa;
        if (!come && !ucciso) {
            detto = esito.Detto;
            if (esito.Stato == 0) return "status 0 in the place of " + std::to_string(buona_.Stato);
            if (detto.empty()) return "status " + std::to_string(esito.Stato) + " without a word";
            if (modo == "memoria" && esito.Stato != 1)
                return "status " + std::to_string(esito.Stato) + " for an allocation: " + detto;
        }
        if (modo == "uccidi" || modo == "pieno") {
            detto = "again";
            const Esito seconda = Corri({}, 0, {});
            if (seconda.Stato != buona_.Stato)
                return "the second run ends with " + std::to_string(seconda.Stato);
            // Folders that the first run made count at the second.
            avuto = Leggi(lavoro_ / "qui");
            const std::string resta = PrimaDifferenza(buono_, avuto);
            if (!resta.empty() && avuto != dueVolte_) return "after the second run " + resta;
        }
        return {};
    }

    const char* Come() const { return scena_.Pieno ? " --pieno" : scena_.Ostile ? " --ostile" : ""; }

  private:
    void Prepara();
    void CorriBene();
    Esito Corri(const std::string& modo, long punto, const fs::path& conta);

    std::string programma_;
    std::string libreria_;
    fs::path lavoro_;
    Scena scena_;
    Albero inizio_;   // what each run begins with
    Albero fonti_;    // what no run may touch
    Albero buono_;    // what the good run leaves
    Albero dueVolte_; // what a second good run leaves
    Esito buona_;
};

void Prova::Prepara() {
    const std::string form =
        "VERSION 5.00\r\nBegin VB.Form Uno\r\n   Caption = \"Uno\"\r\n"
        "   Begin VB.Menu mnuFile\r\n      Caption = \"&File\"\r\n   End\r\nEnd\r\n"
        "Attribute VB_Name = \"Uno\"\r\nAttribute VB_Exposed = False\r\n"
        "Option Explicit\r\nPrivate Sub mnuFile_Click()\r\nDue.Show\r\nIf x Then\r\nBeep\r\n"
        "End If\r\nEnd Sub\r\n";
    Albero progetto = {
        {"Prova.vbp", "FType=Exe\r\nForm=Alfa.frm\r\nModule=M; M.bas\r\nClass=C; sub\\C.cls\r\n"
                      "Module=Z; Z\xF9.bas\r\nStartup=\"Uno\"\r\n"},
        {"Alfa.frm", "F" + form},
        {"Alfa.frx", std::string("F\0\x01\xFF", 4)},
        {"M.bas", "FAttribute VB_Name = \"M\"\r\nSub M()\r\nFor i = 1 To 2\r\nNext\r\nEnd Sub\r\n"},
        {"Z\xC3\xB9.bas", "FAttribute VB_Name = \"Z\"\r\nPublic Sub Z()\r\nWhile x\r\nWend\r\nEnd Sub\r\n"},
        {"sub", "D"},
        {"sub/C.cls", "FVERSION 1.0 CLASS\r\nAttribute VB_Name = \"C\"\r\nAttribute VB_Exposed = False\r\n"
                      "Private Sub C()\r\nEnd Sub\r\n"},
    };
    if (scena_.Ostile) { // the way to an output leads to a source, by a link and by a second name
        progetto["Appoggio"] = "D";
        progetto["Appoggio/sub"] = "L../sub";
        progetto["Appoggio/m.txt"] = "L../M.bas";
        progetto["Appoggio/Z\xC3\xB9.log"] = "L../Z\xC3\xB9.bas";
    }
    inizio_ = {{"progetto", "D"}, {"programma", "D"}};
    for (const auto& [nome, che] : progetto) {
        inizio_["progetto/" + nome] = che;
        if (nome.find("Appoggio") == std::string::npos) fonti_["progetto/" + nome] = che;
    }
    for (const char* figura :
         {"p2.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF", "A01.jpg", "A02.jpg", "A03.jpg"})
        inizio_[std::string("programma/") + figura] = std::string("F") + figura;
    CorriBene();
    if (scena_.Pieno) {
        inizio_ = buono_;
        CorriBene();
    }
    std::printf("%s%s ends with %d, %zu files\n", scena_.Nome.c_str(), Come(), buona_.Stato, buono_.size());
}

void Prova::CorriBene() {
    Scrivi(lavoro_ / "qui", inizio_);
    buona_ = Corri({}, 0, {});
    buono_ = Leggi(lavoro_ / "qui");
    Corri({}, 0, {});
    dueVolte_ = Leggi(lavoro_ / "qui");
}

Esito Prova::Corri(const std::string& modo, long punto, const fs::path& conta) {
    std::vector<std::string> parole = {programma_};
    for (std::string parola : scena_.Argomenti) {
        if (parola[0] == '@') parola.replace(0, 1, (lavoro_ / "qui").string());
        parole.push_back(parola);
    }
    std::vector<std::string> ambiente = {"LD_PRELOAD=" + libreria_,
                                         "GUASTI_ORA=" + std::to_string(Data),
                                         "TZ=UTC",
                                         "HOME=" + lavoro_.string(),
                                         "LC_ALL=C.UTF-8",
                                         "PATH=/nonexistent"};
    if (!modo.empty()) ambiente.push_back("GUASTI_MODO=" + modo);
    if (punto > 0) ambiente.push_back("GUASTI_PUNTO=" + std::to_string(punto));
    if (!conta.empty()) ambiente.push_back("GUASTI_CONTA=" + conta.string());
    const auto puntatori = [](std::vector<std::string>& testi) {
        std::vector<char*> p;
        for (std::string& testo : testi) p.push_back(testo.data());
        p.push_back(nullptr);
        return p;
    };
    const std::string errori = (lavoro_ / "errori").string();
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    posix_spawn_file_actions_addopen(&azioni, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&azioni, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&azioni, 2, errori.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t figlio = 0;
    const int nato = ::posix_spawn(&figlio, programma_.c_str(), &azioni, nullptr, puntatori(parole).data(),
                                   puntatori(ambiente).data());
    posix_spawn_file_actions_destroy(&azioni);
    if (nato != 0) {
        std::fprintf(stderr, "guasti: %s does not start\n", programma_.c_str());
        std::exit(2);
    }
    // A run takes some milliseconds. One that has used this much of the processor does not end; how
    // long a busy machine takes for it does not matter.
    Esito esito;
    int stato = 0;
    for (int attese = 0; ::waitpid(figlio, &stato, WNOHANG) == 0; ++attese) {
        if (attese > 60000) {
            ::kill(figlio, SIGKILL);
            ::waitpid(figlio, &stato, 0);
            esito.Segnale = SIGALRM;
            return esito;
        }
        ::usleep(attese < 200 ? 100 : 1000);
    }
    if (WIFSIGNALED(stato))
        esito.Segnale = WTERMSIG(stato);
    else
        esito.Stato = WEXITSTATUS(stato);
    esito.Detto = LeggiFile(errori);
    return esito;
}

} // namespace

int main(int argc, char** argv) try {
    if (argc < 4) {
        std::fputs("guasti PROGRAM LIBRARY WORKDIR [--scena NAME] [--pieno | --ostile] [--modo MODE] "
                   "[--passo N] [--da K] [--punto K]\n",
                   stderr);
        return 2;
    }
    std::string solaScena;
    std::string soloModo;
    long passo = 1;
    long da = 1;
    long punto = 0;
    bool soloPieno = false;
    bool soloOstile = false;
    for (int i = 4; i < argc; ++i) {
        const std::string opzione = argv[i];
        const char* valore = i + 1 < argc ? argv[i + 1] : "";
        if (opzione == "--pieno") {
            soloPieno = true;
            continue;
        }
        if (opzione == "--ostile") {
            soloOstile = true;
            continue;
        }
        ++i;
        if (opzione == "--scena")
            solaScena = valore;
        else if (opzione == "--modo")
            soloModo = valore;
        else if (opzione == "--passo")
            passo = std::atol(valore);
        else if (opzione == "--da")
            da = std::atol(valore);
        else if (opzione == "--punto")
            punto = std::atol(valore);
        else {
            std::fprintf(stderr, "guasti: %s?\n", opzione.c_str());
            return 2;
        }
    }
    const fs::path lavoro = fs::absolute(argv[3]);
    fs::create_directories(lavoro);
    std::vector<Scena> scene;
    for (const Scena& scena : Scene) {
        if (!solaScena.empty() && scena.Nome != solaScena) continue;
        if (!soloPieno && !soloOstile) scene.push_back(scena);
        Scena piena = scena;
        piena.Pieno = true;
        if (!soloOstile) scene.push_back(piena);
        Scena ostile = scena;
        ostile.Ostile = true;
        if (!soloPieno && scena.Nome != "opzioni") scene.push_back(ostile);
    }
    Conto tutto;
    for (const Scena& scena : scene) {
        Prova prova(argv[1], fs::absolute(argv[2]).string(), lavoro, scena);
        for (const char* modo : {"EIO", "ENOSPC", "EACCES", "EMFILE", "ENOMEM", "EINTR", "corto", "uccidi",
                                 "pieno", "memoria"}) {
            if (!soloModo.empty() && soloModo != modo) continue;
            if (punto > 0) {
                std::string detto;
                const std::string rotta = prova.Prova1(modo, punto, detto);
                std::printf("%s\n%s\n", rotta.empty() ? "the law is kept" : rotta.c_str(), detto.c_str());
                return rotta.empty() ? 0 : 1;
            }
            const Conto conto = prova.Passa(modo, da, passo);
            std::printf("%-10s %-9s %-8s %6ld points, %6ld told, %6ld equal, %4ld broken\n",
                        scena.Nome.c_str(), prova.Come(), modo, conto.Punti, conto.Detti, conto.Uguali,
                        conto.Rotti);
            std::fflush(stdout);
            tutto.Punti += conto.Punti;
            tutto.Detti += conto.Detti;
            tutto.Uguali += conto.Uguali;
            tutto.Rotti += conto.Rotti;
        }
    }
    std::printf("all: %ld points, %ld told, %ld equal, %ld broken\n", tutto.Punti, tutto.Detti, tutto.Uguali,
                tutto.Rotti);
    return tutto.Punti == 0 || tutto.Rotti > 0 ? 1 : 0;
} catch (const std::exception& e) {
    std::fprintf(stderr, "guasti: %s\n", e.what());
    return 2;
}
