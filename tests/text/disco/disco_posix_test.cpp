// SPDX-License-Identifier: MIT
//
// The POSIX backend, on a directory of the machine's own disk.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "text/canali.h"
#include "text/numero_di.h"

namespace morvella {

namespace {

namespace fs = std::filesystem;
using prove::ErroreDi;
using prove::NumeroDi;

class DiscoPosix : public testing::Test {
  protected:
    void SetUp() override {
        std::string modello = fs::temp_directory_path() / "morvella-prova-XXXXXX";
        ASSERT_NE(::mkdtemp(modello.data()), nullptr);
        Radice = fs::canonical(modello).string();
        Prima = fs::current_path();
        fs::current_path(Radice);
        P = File.Aggancia(Gancio::Progetto, Radice);
    }
    void TearDown() override {
        fs::current_path(Prima);
        fs::remove_all(Radice);
    }

    void Metti(const std::string& nome, const std::string& bytes) const {
        std::ofstream(Radice + "/" + nome, std::ios::binary) << bytes;
    }
    std::string Leggi(const std::string& nome) const {
        std::ifstream file(Radice + "/" + nome, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return file ? bytes.str() : "<none>";
    }
    std::vector<std::string> Nomi(const std::string& dove = "") const {
        std::vector<std::string> nomi;
        for (const auto& voce : fs::directory_iterator(Radice + "/" + dove))
            nomi.push_back(voce.path().filename());
        std::sort(nomi.begin(), nomi.end());
        return nomi;
    }
    void Scrivi(Vista percorso, Vista testo) {
        Canale.OpenOutput(2, percorso);
        Canale.Print(2, testo);
        Canale.Close(2);
    }

    std::unique_ptr<Disco> Vero = DiscoReale();
    Archivio File{*Vero};
    Canali Canale{File};
    std::string Radice;
    Testo P;
    fs::path Prima;
};

TEST_F(DiscoPosix, ScriveELegge) {
    Scrivi(P + "\\a.txt", Chr(196) + "\n" + Chr(0));
    EXPECT_EQ(Leggi("a.txt"), std::string("\xC4\n\0\r\n", 5));
    Canale.OpenInput(1, P + "\\A.TXT");
    EXPECT_EQ(Canale.LineInput(1), Testo("\xC4\n\0", 3));
    EXPECT_TRUE(Canale.Eof(1));
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, "a.txt"), 0; }),
              55); // by way of the current directory
    Canale.Close(1);
    Scrivi("a.txt", "x");
    EXPECT_EQ(Leggi("a.txt"), "x\r\n"); // nothing of the longer text is left
}

TEST_F(DiscoPosix, DirectoryDelPrimoGennaio1970) {
    Metti("Form1.frm", "x");
    const timespec zero[2] = {{0, 0}, {0, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, Radice.c_str(), zero, 0), 0);
    EXPECT_EQ(File.Dir(P + "\\FORM1.FRM", 0), "Form1.frm"); // a change at 0 is a change too
}

TEST_F(DiscoPosix, FileGrande) {
    Testo bytes;
    for (int i = 0; bytes.size() < 5 * Canali::Blocco; ++i) bytes += CStr(i) + "\r\n";
    Metti("grande", bytes);
    Canale.OpenInput(1, P + "\\grande");
    Canale.OpenOutput(2, P + "\\copia");
    while (!Canale.Eof(1)) Canale.Print(2, Canale.LineInput(1));
    Canale.Close(1);
    Canale.Close(2);
    EXPECT_TRUE(Leggi("copia") == bytes);
    File.FileCopy(P + "\\GRANDE", P + "\\copia");
    EXPECT_TRUE(Leggi("copia") == bytes);
    EXPECT_EQ(File.FileLen("copia"), Len(bytes));
    Metti("vuoto", "");
    File.FileCopy(P + "\\vuoto", P + "\\copia");
    EXPECT_EQ(Leggi("copia"), "");
}

TEST_F(DiscoPosix, NomiEAccenti) {
    Metti("Perché.BAS", "1");
    EXPECT_EQ(File.Dir(P + "\\PERCH\xC9.bas", 0), "Perch\xE9.BAS");
    Scrivi(P + "\\PERCH\xC9.bas", "2");
    EXPECT_EQ(Leggi("Perché.BAS"), "2\r\n");
    Scrivi(P + "\\quantit\xE0.txt", "3");
    EXPECT_EQ(Nomi(), (std::vector<std::string>{"Perché.BAS", "quantità.txt"}));
    File.Kill(P + "\\perch\xE9.bas");
    Scrivi(P + "\\perch\xE9.bas", "4");
    EXPECT_EQ(Nomi(), (std::vector<std::string>{"perché.bas", "quantità.txt"}));
}

TEST_F(DiscoPosix, ViciniChePaionoUguali) {
    fs::create_directories(Radice + "/Prog");
    fs::create_directories(Radice + "/prog/appoggio");
    const Testo a = File.Aggancia(Gancio::Progetto, Radice + "/Prog") + "\\Appoggio";
    File.MkDir(a);
    File.AgganciaLavoro(a);
    Scrivi(File.Piega(a + "\\Form1.Txt"), "x");
    EXPECT_EQ(Nomi("Prog/Appoggio"), std::vector<std::string>{"form1.txt"});
    EXPECT_TRUE(Nomi("prog/appoggio").empty());
}

TEST_F(DiscoPosix, DirectoryCheWindows1252NonScrive) {
    fs::create_directories(Radice + "/プロジェクト");
    const Testo p = File.Aggancia(Gancio::Progetto, Radice + "/プロジェクト");
    File.MkDir(p + "\\Appoggio");
    File.AgganciaLavoro(p + "\\Appoggio");
    File.ChDir(p);
    Scrivi(File.Piega(p + "\\Appoggio\\Form1.Txt"), "x");
    EXPECT_EQ(Leggi("プロジェクト/Appoggio/form1.txt"), "x\r\n");
    EXPECT_EQ(File.FileLen("appoggio\\form1.txt"), 3);
}

TEST_F(DiscoPosix, DirectoryAlPostoDiUnFile) {
    fs::create_directories(Radice + "/dir");
    Metti("file", "x");
    const Testo dir = P + "\\dir";
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, dir), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, dir), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return File.FileCopy(P + "\\file", dir), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return File.FileCopy(dir, P + "\\x"), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return File.Kill(dir), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return File.MkDir(dir), 0; }), 75);
    // The disk itself says the same, should it change after the lookup.
    EXPECT_EQ(NumeroDi([&] { return Vero->ApriScrittura(Radice + "/dir"); }), 75);
    EXPECT_EQ(NumeroDi([&] { return Vero->CreaDirectory(Radice + "/dir"), 0; }), 75);
    EXPECT_EQ(Nomi(), (std::vector<std::string>{"dir", "file"}));
}

TEST_F(DiscoPosix, FileAlPostoDiUnaDirectory) {
    Metti("file", "x");
    const Testo sotto = P + "\\file\\sotto";
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, sotto), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, sotto), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return File.FileCopy(P + "\\file", sotto), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return File.MkDir(sotto), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return File.ChDir(P + "\\file"), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return Vero->ApriScrittura(Radice + "/file/sotto"); }), 76);
    EXPECT_EQ(NumeroDi([&] { return Vero->CreaDirectory(Radice + "/file/sotto"), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return Vero->CambiaDirectory(Radice + "/file"), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return Vero->CreaDirectory(Radice + "/manca/sotto"), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return Vero->CambiaDirectory(Radice + "/manca"), 0; }), 76);
    EXPECT_EQ(Leggi("file"), "x");
}

TEST_F(DiscoPosix, AssenzeDelDisco) {
    EXPECT_EQ(NumeroDi([&] { return Vero->ApriLettura(Radice + "/manca"); }), 53);
    EXPECT_EQ(NumeroDi([&] { return Vero->Cancella(Radice + "/manca"), 0; }), 53);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, P + "\\manca"), 0; }), 53);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, P + "\\manca\\x"), 0; }), 76);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, P + "\\manca\\x"), 0; }), 76);
    EXPECT_FALSE(Vero->Esamina(Radice + "/manca").Esiste());
    EXPECT_EQ(Vero->Esamina(Radice + "/manca").Errore, 0);
}

TEST_F(DiscoPosix, SenzaDiritti) {
    if (::geteuid() == 0) GTEST_SKIP() << "permissions do not bind this user";
    fs::create_directories(Radice + "/chiusa");
    Metti("chiusa/file", "x");
    Metti("muto", "x");
    fs::permissions(Radice + "/muto", fs::perms::none);
    fs::permissions(Radice + "/chiusa", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, P + "\\muto"), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, P + "\\muto"), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, P + "\\chiusa\\nuovo"), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return File.MkDir(P + "\\chiusa\\nuova"), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return File.Kill(P + "\\chiusa\\file"), 0; }), 75);
    fs::permissions(Radice + "/chiusa", fs::perms::none);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, P + "\\chiusa\\file"), 0; }), 75);
    EXPECT_EQ(File.Dir(P + "\\chiusa\\file", 0), "");
    fs::permissions(Radice + "/chiusa", fs::perms::owner_all);
    EXPECT_EQ(Leggi("chiusa/file"), "x");
}

TEST_F(DiscoPosix, TuboEDispositivo) {
    // Neither a file nor a directory: nothing waits on it, and nothing is written to it.
    ASSERT_EQ(::mkfifo((Radice + "/tubo").c_str(), 0666), 0);
    EXPECT_EQ(Vero->Esamina(Radice + "/tubo").Tipo, TipoVoce::Altro);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, P + "\\tubo"), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, P + "\\tubo"), 0; }), 75);
    EXPECT_EQ(NumeroDi([&] { return File.FileCopy(P + "\\tubo", P + "\\x"), 0; }), 75);
    EXPECT_EQ(File.Dir(P + "\\tubo", 0), "");
    EXPECT_EQ(File.Dir(P + "\\tubo", 16), "");
    EXPECT_EQ(File.Dir(P + "\\*.*", 0), "");
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, "\\dev\\null"), 0; }), 75);
}

TEST_F(DiscoPosix, DispositivoPieno) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "this machine has no /dev/full";
    const auto pieno = Vero->ApriScrittura("/dev/full");
    EXPECT_EQ(NumeroDi([&] { return pieno->Scrivi("x", 1), 0; }), 61);
    Metti("file", "x");
    EXPECT_EQ(NumeroDi([&] { return Vero->Copia(Radice + "/file", "/dev/full"), 0; }), 61);
}

// Files of this process may not grow beyond so many bytes.
class Limite {
  public:
    explicit Limite(rlim_t bytes) : segnale_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &prima_);
        const rlimit limite{bytes, prima_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limite);
    }
    ~Limite() {
        ::setrlimit(RLIMIT_FSIZE, &prima_);
        std::signal(SIGXFSZ, segnale_);
    }
    Limite(const Limite&) = delete;
    Limite& operator=(const Limite&) = delete;

  private:
    rlimit prima_{};
    void (*segnale_)(int);
};

TEST_F(DiscoPosix, DiscoPieno) {
    const Testo riga(998, 'x');
    Testo tutto;
    while (tutto.size() < 2 * Canali::Blocco) tutto += riga + "\r\n";
    Metti("sorgente", tutto);
    for (const std::size_t limite : {std::size_t{0}, std::size_t{1}, Canali::Blocco, Canali::Blocco + 1,
                                     tutto.size() - 1, tutto.size() + 1}) {
        int errori = 0;
        int copia = 0;
        {
            const Limite stretto(limite);
            Canale.OpenOutput(2, P + "\\out");
            for (std::size_t i = 0; i < tutto.size() / 1000; ++i) {
                const int numero = NumeroDi([&] { return Canale.Print(2, riga), 0; });
                if (numero != 0) errori += numero == 61 ? 1 : 100;
                if (numero != 0) break;
            }
            const int numero = NumeroDi([&] { return Canale.Close(2), 0; });
            if (numero != 0) errori += numero == 61 ? 1 : 100;
            copia = NumeroDi([&] { return File.FileCopy(P + "\\sorgente", P + "\\copia"), 0; });
        }
        EXPECT_EQ(errori, limite < tutto.size() ? 1 : 0) << limite; // once, and never in silence
        EXPECT_EQ(copia, limite < tutto.size() ? 61 : 0) << limite;
        EXPECT_TRUE(Leggi("out") == tutto.substr(0, limite)) << limite;
        EXPECT_TRUE(Leggi("sorgente") == tutto);
    }
}

TEST_F(DiscoPosix, ProtettoAttraversoUnCollegamento) {
    fs::create_directories(Radice + "/Appoggio");
    Metti("Fonte.bas", "fonte");
    Metti("altro", "altro");
    fs::create_hard_link(Radice + "/Fonte.bas", Radice + "/Appoggio/duro.txt");
    fs::create_symlink("../Fonte.bas", Radice + "/Appoggio/molle.txt");
    fs::create_directory_symlink(".", Radice + "/giro");
    File.Proteggi({P + "\\fonte.bas"});
    for (const char* nome : {"Fonte.bas", "FONTE.BAS", "Appoggio\\duro.txt", "Appoggio\\MOLLE.txt",
                             "giro\\giro\\fonte.bas", "Appoggio\\..\\fonte.bas"}) {
        const Testo percorso = P + "\\" + nome;
        EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, percorso), 0; }), 70) << nome;
        EXPECT_EQ(NumeroDi([&] { return File.FileCopy(P + "\\altro", percorso), 0; }), 70) << nome;
        EXPECT_EQ(NumeroDi([&] { return File.Kill(percorso), 0; }), 70) << nome;
        EXPECT_EQ(Leggi("Fonte.bas"), "fonte");
        File.FileCopy(P + "\\fonte.bas", percorso); // onto itself: left as it is
        EXPECT_EQ(Leggi("Fonte.bas"), "fonte");
    }
    // The row itself may be a link: then what it leads to is protected.
    File.Proteggi({P + "\\Appoggio\\molle.txt"});
    EXPECT_EQ(NumeroDi([&] { return File.Kill(P + "\\Fonte.bas"), 0; }), 70);
}

TEST_F(DiscoPosix, ApertoAttraversoUnCollegamento) {
    Metti("a", "a\r\n");
    fs::create_hard_link(Radice + "/a", Radice + "/b");
    fs::create_symlink("a", Radice + "/c");
    Canale.OpenInput(1, P + "\\a");
    for (const char* nome : {"\\a", "\\b", "\\c"}) {
        EXPECT_EQ(NumeroDi([&] { return Canale.OpenOutput(2, P + nome), 0; }), 55) << nome;
        EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(2, P + nome), 0; }), 55) << nome;
    }
    EXPECT_EQ(Leggi("a"), "a\r\n");
}

TEST_F(DiscoPosix, CollegamentoAlNulla) {
    fs::create_symlink("manca", Radice + "/appeso");
    fs::create_symlink("anello", Radice + "/anello");
    EXPECT_EQ(File.Dir(P + "\\appeso", 0), "");
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, P + "\\appeso"), 0; }), 53);
    EXPECT_EQ(NumeroDi([&] { return File.Kill(P + "\\appeso"), 0; }), 53);
    EXPECT_EQ(File.Dir(P + "\\anello", 16), "");
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, P + "\\anello"), 0; }), 53);
    EXPECT_EQ(NumeroDi([&] { return Canale.OpenInput(1, P + "\\anello\\x"), 0; }), 76);
}

TEST_F(DiscoPosix, AncheCome) {
    Metti("Pagina.Html", "x");
    File.AncheCome(P + "\\pagina.html", "PAGINA.HTML");
    EXPECT_EQ(Leggi("PAGINA.HTML"), "x");
    File.AncheCome(P + "\\Pagina.Html", "Pagina.Html"); // it is called so already
    File.AncheCome(P + "\\manca", "MANCA");             // it is not there
    EXPECT_EQ(Nomi(), (std::vector<std::string>{"PAGINA.HTML", "Pagina.Html"}));
    Scrivi(P + "\\Pagina.Html", "y"); // both names are of one file
    EXPECT_EQ(Leggi("PAGINA.HTML"), "y\r\n");
}

TEST_F(DiscoPosix, PuntoPuntoNelTestoENonNelCollegamento) {
    fs::create_directories(Radice + "/lontano/qui");
    Metti("file", "vicino");
    Metti("lontano/file", "lontano, davvero");
    fs::create_directory_symlink("lontano/qui", Radice + "/link");
    EXPECT_EQ(File.FileLen(P + "\\link\\..\\file"), 6);
}

TEST_F(DiscoPosix, CambiatoDaAltri) {
    // Times of the test's own: the disk's clock may tick too slowly to tell two changes apart.
    const auto segna = [&](long nanosecondi) {
        const timespec tempi[2] = {{1000, nanosecondi}, {1000, nanosecondi}};
        ASSERT_EQ(::utimensat(AT_FDCWD, Radice.c_str(), tempi, 0), 0);
    };
    segna(1);
    EXPECT_EQ(File.Dir(P + "\\UNO.txt", 0), "");
    Metti("Uno.txt", "1");
    segna(2);
    EXPECT_EQ(File.Dir(P + "\\UNO.txt", 0), "Uno.txt");
    fs::rename(Radice + "/Uno.txt", Radice + "/due.txt");
    segna(3);
    EXPECT_EQ(File.Dir(P + "\\UNO.txt", 0), "");
    EXPECT_EQ(File.Dir(P + "\\DUE.txt", 0), "due.txt");
}

TEST_F(DiscoPosix, DirectoryCorrente) {
    fs::create_directories(Radice + "/Sub");
    File.ChDir(P + "\\SUB");
    EXPECT_EQ(fs::current_path(), Radice + "/Sub"); // of the whole process
    EXPECT_EQ(Vero->DirectoryCorrente(), Radice + "/Sub");
    std::string lunga = Radice;
    for (int i = 0; i < 4; ++i) lunga += "/" + std::string(150, 'x');
    fs::create_directories(lunga);
    Vero->CambiaDirectory(lunga);
    EXPECT_EQ(Vero->DirectoryCorrente(), lunga);
    Vero->CambiaDirectory(Radice);
}

TEST_F(DiscoPosix, DataDiUnFile) {
    const char* zona = std::getenv("TZ");
    const std::string prima = zona ? zona : "";
    Metti("file", "");
    const auto segna = [&](std::time_t secondi) {
        const timespec tempi[2] = {{secondi, 0}, {secondi, 999999999}};
        ASSERT_EQ(::utimensat(AT_FDCWD, (Radice + "/file").c_str(), tempi, 0), 0);
    };
    ::setenv("TZ", "XXX-1", 1); // local time: an hour ahead
    ::tzset();
    segna(946684800); // 2000-01-01, 00:00:00 in Greenwich
    EXPECT_EQ(File.FileDateTime(P + "\\FILE"), "01/01/2000 01:00:00");
    segna(946684800 - 3600);
    EXPECT_EQ(File.FileDateTime(P + "\\FILE"), "01/01/2000"); // midnight here
    if (zona)
        ::setenv("TZ", prima.c_str(), 1);
    else
        ::unsetenv("TZ");
    ::tzset();
}

TEST_F(DiscoPosix, Orologio) {
    const std::time_t prima = std::time(nullptr);
    const Istante ora = Vero->Adesso();
    const std::time_t dopo = std::time(nullptr);
    std::tm tm{};
    tm.tm_year = ora.Anno - 1900;
    tm.tm_mon = ora.Mese - 1;
    tm.tm_mday = ora.Giorno;
    tm.tm_hour = ora.Ora;
    tm.tm_min = ora.Minuto;
    tm.tm_sec = ora.Secondo;
    tm.tm_isdst = -1;
    const std::time_t detto = std::mktime(&tm);
    EXPECT_GE(detto, prima);
    EXPECT_LE(detto, dopo);
    EXPECT_EQ(File.Date().size(), 10u);
    EXPECT_EQ(File.Time().size(), 8u);
}

// With a PATH of the test's own directory, put back at the end.
class DiscoPosixAvvia : public DiscoPosix {
  protected:
    void SetUp() override {
        DiscoPosix::SetUp();
        const char* dove = std::getenv("PATH");
        Percorsi = dove ? dove : "";
        ::setenv("PATH", ("/manca::.:" + Radice).c_str(), 1);
    }
    void TearDown() override {
        ::setenv("PATH", Percorsi.c_str(), 1);
        DiscoPosix::TearDown();
    }
    void Programma(const std::string& nome, const std::string& script) const {
        Metti(nome, script);
        fs::permissions(Radice + "/" + nome, fs::perms::owner_all);
    }
    int Apri() {
        return NumeroDi([&] { return File.Shell("Explorer " + P + "\\x.html", 3), 0; });
    }
    static bool SenzaFigli() { return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD; }
    // A pipe beside the program: reader and writer wait for each other.
    void Tubo(const std::string& nome) const { ASSERT_EQ(::mkfifo((Radice + "/" + nome).c_str(), 0666), 0); }

    std::string Percorsi;
};

TEST_F(DiscoPosixAvvia, Argomento) {
    // With a program of the desktop in place: it gets the file's own path as one argument.
    Programma("xdg-open", "#!/bin/sh\nprintf '%s' \"$#|$1\" > \"$0.detto\"\n");
    Tubo("xdg-open.detto");
    Metti("Con blank perché.log", "");
    File.Shell("Notepad.exe " + P + "\\CON BLANK PERCH\xC9.LOG", 3);
    EXPECT_EQ(Leggi("xdg-open.detto"), "1|" + Radice + "/Con blank perché.log");
}

TEST_F(DiscoPosixAvvia, Errore53) {
    EXPECT_EQ(NumeroDi([&] { return File.Shell("Notepad.exe " + P + "\\x.log", 3), 0; }), 53);
    fs::create_directory(Radice + "/xdg-open");
    EXPECT_EQ(Apri(), 53);
    fs::remove(Radice + "/xdg-open");
    Programma("xdg-open", "#!" + Radice + "/manca\n"); // found, and yet it cannot run
    EXPECT_EQ(Apri(), 53);
    ::setenv("PATH", "", 1); // what lies in the current directory, which is the project's, is not meant
    Programma("xdg-open", "#!/bin/sh\n");
    EXPECT_EQ(Apri(), 53);
    ::setenv("PATH", (":.:" + fs::path(Radice).filename().string()).c_str(), 1);
    EXPECT_EQ(Apri(), 53);
    EXPECT_TRUE(SenzaFigli()); // what failed is not left behind
}

TEST_F(DiscoPosixAvvia, NonLasciaNessuno) {
    // Returns while the program runs on, in a session of its own and as nobody's child here: there
    // is none to be waited for, neither now nor when it ends.
    Programma("xdg-open", "#!/bin/sh\n"
                          "read -r via < \"$0.via\"\n"
                          "read -r pid nome stato padre gruppo sessione resto < /proc/$$/stat\n"
                          "echo \"$padre $sessione\" > \"$0.detto\"\n");
    Tubo("xdg-open.via");
    Tubo("xdg-open.detto");
    EXPECT_EQ(Apri(), 0);
    EXPECT_TRUE(SenzaFigli());
    Metti("xdg-open.via", "\n"); // it was waiting for this
    std::istringstream detto(Leggi("xdg-open.detto"));
#ifdef __linux__
    pid_t padre = 0;
    pid_t sessione = 0;
    detto >> padre >> sessione;
    EXPECT_FALSE(detto.fail());
    EXPECT_NE(padre, ::getpid());
    EXPECT_NE(sessione, ::getsid(0));
#endif
    Programma("xdg-open", "#!/bin/sh\nprintf x > \"$0.fatto\"\n");
    Tubo("xdg-open.fatto");
    const int fatti = ::open((Radice + "/xdg-open.fatto").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(fatti, 0);
    for (int i = 0; i < 30; ++i) EXPECT_EQ(Apri(), 0);
    char byte = 0;
    for (int i = 0; i < 30; ++i) EXPECT_EQ(::read(fatti, &byte, 1), 1);
    ::close(fatti);
    EXPECT_TRUE(SenzaFigli());
}

// A reader of this program's output does not wait for the program that was started.
TEST_F(DiscoPosixAvvia, NonTieneLUscita) {
    Programma("xdg-open", "#!/bin/sh\n"
                          "read -r via < \"$0.via\"\n"
                          "echo scritto; echo scritto >&2; read -r riga; echo \"$?\" > \"$0.detto\"\n");
    Tubo("xdg-open.via");
    Tubo("xdg-open.detto");
    int tubo[2];
    ASSERT_EQ(::pipe(tubo), 0);
    const int uscita = ::dup(1);
    const int errori = ::dup(2);
    ::dup2(tubo[1], 1);
    ::dup2(tubo[1], 2);
    ::close(tubo[1]);
    const int esito = Apri();
    ::dup2(uscita, 1);
    ::dup2(errori, 2);
    ::close(uscita);
    ::close(errori);
    EXPECT_EQ(esito, 0);
    char byte = 0;
    EXPECT_EQ(::read(tubo[0], &byte, 1), 0); // the end, at once: nobody holds the other side
    ::close(tubo[0]);
    Metti("xdg-open.via", "\n");
    EXPECT_EQ(Leggi("xdg-open.detto"), "1\n"); // there is nothing to read either
}

TEST_F(DiscoPosix, Scrivibile) {
    Metti("file", "x");
    fs::permissions(Radice + "/file", fs::perms::owner_all);
    fs::create_directory(Radice + "/sua");
    fs::create_directory_symlink(Radice + "/sua", Radice + "/legame");
    fs::permissions(Radice + "/sua", fs::perms::owner_read | fs::perms::owner_exec);
    const auto prima = fs::last_write_time(Radice);
    EXPECT_TRUE(Vero->Scrivibile(Radice));
    EXPECT_TRUE(Vero->Scrivibile(Radice + "/"));
    EXPECT_FALSE(Vero->Scrivibile(Radice + "/assente"));
    EXPECT_FALSE(Vero->Scrivibile(Radice + "/file"));
    EXPECT_FALSE(Vero->Scrivibile(Radice + "/file/sotto"));
    EXPECT_FALSE(Vero->Scrivibile(""));
    EXPECT_EQ(Nomi(), (std::vector<std::string>{"file", "legame", "sua"})); // no trace
    EXPECT_EQ(fs::last_write_time(Radice), prima);
}

// Permissions do not bind root, so root tries as a user who owns nothing.
TEST_F(DiscoPosix, ScrivibileSecondoIPermessi) {
    const bool root = ::geteuid() == 0;
    fs::create_directory(Radice + "/sua");
    fs::create_directory(Radice + "/di-tutti");
    fs::permissions(Radice + "/sua", fs::perms(0555));
    fs::permissions(Radice + "/di-tutti", fs::perms(0777));
    fs::permissions(Radice, fs::perms(0755));
    if (root && ::seteuid(65534) != 0) GTEST_SKIP() << "root cannot become another user here";
    const bool sua = Vero->Scrivibile(Radice + "/sua");
    const bool diTutti = Vero->Scrivibile(Radice + "/di-tutti");
    if (root) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    EXPECT_FALSE(sua);
    EXPECT_TRUE(diTutti);
}

TEST_F(DiscoPosix, SecondoGiroSenzaPiuDiritti) {
    // The second pass over a file does not open it; a right lost in between shows all the same.
    const std::string file = Radice + "/file";
    Metti("file", "uno\r\n");
    fs::permissions(Radice, fs::perms(0755));
    fs::permissions(file, fs::perms(0444));
    const bool root = ::geteuid() == 0;
    const auto leggi = [&] {
        if (root && ::seteuid(65534) != 0) return -1;
        const int numero = NumeroDi([&] {
            Canale.OpenInput(1, P + "\\file");
            EXPECT_EQ(Canale.LineInput(1), "uno");
            EXPECT_TRUE(Canale.Eof(1));
            return 0;
        });
        Canale.Close(1);
        if (root && ::seteuid(0) != 0) return -2;
        return numero;
    };
    const int prima = leggi();
    if (prima == -1) GTEST_SKIP() << "root cannot become another user here";
    EXPECT_EQ(prima, 0);
    EXPECT_EQ(leggi(), 0);
    const auto cambiato = [&] {
        struct stat st {};
        ::stat(file.c_str(), &st);
        return std::pair(st.st_ctim.tv_sec, st.st_ctim.tv_nsec);
    };
    const auto allora = cambiato();
    do // until the disk's clock has ticked
        fs::permissions(file, fs::perms::none);
    while (cambiato() == allora);
    EXPECT_EQ(leggi(), 75);
    fs::permissions(file, fs::perms(0444));
    EXPECT_EQ(leggi(), 0);
}

TEST_F(DiscoPosix, DataLontana) {
    // Nanoseconds since 1970 would not fit into 64 bits.
    Metti("file", "");
    constexpr std::time_t Allora = 10428566400; // in 2300, June: no time zone moves the year
    const timespec tempi[2] = {{Allora, 0}, {Allora, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, (Radice + "/file").c_str(), tempi, 0), 0);
    struct stat st {};
    ASSERT_EQ(::stat((Radice + "/file").c_str(), &st), 0);
    if (st.st_mtime != Allora) GTEST_SKIP() << "this disk keeps no such times";
    EXPECT_EQ(Vero->UltimaModifica(Vero->Esamina(Radice + "/file")).Anno, 2300);
}

TEST_F(DiscoPosix, DirectoryUtente) {
    struct Variabile { // as it was, at the end
        const char* Nome;
        std::optional<std::string> Prima;
        explicit Variabile(const char* nome) : Nome(nome) {
            if (const char* valore = std::getenv(nome)) Prima = valore;
        }
        ~Variabile() { Prima ? ::setenv(Nome, Prima->c_str(), 1) : ::unsetenv(Nome); }
        void Vale(const char* valore) const { valore ? ::setenv(Nome, valore, 1) : ::unsetenv(Nome); }
    } const dati("XDG_DATA_HOME"), casa("HOME");
    const struct {
        const char *Dati, *Casa, *Attesa;
    } casi[] = {
        {nullptr, "/home/utente", "/home/utente/.local/share/morvella"},
        {"", "/home/utente", "/home/utente/.local/share/morvella"},
        {"/dati", "/home/utente", "/dati/morvella"},
        {"/dati/", nullptr, "/dati/morvella"},
        {"dati", "/home/utente", "/home/utente/.local/share/morvella"}, // not a whole path
        {nullptr, "/", "/.local/share/morvella"},
        {nullptr, nullptr, ""},
        {"dati", "", ""},
    };
    for (const auto& caso : casi) {
        dati.Vale(caso.Dati);
        casa.Vale(caso.Casa);
        EXPECT_EQ(Vero->DirectoryUtente(), caso.Attesa) << (caso.Dati ? caso.Dati : "-");
    }
}

TEST_F(DiscoPosix, SenzaPercorsiCorti) {
    char buffer[8] = "";
    EXPECT_FALSE(Vero->HaPercorsiCorti());
    EXPECT_EQ(Vero->GetShortPathNameA(Radice, buffer, sizeof buffer), 0u);
    EXPECT_TRUE(Vero->DistingueMaiuscole());
}

TEST_F(DiscoPosix, Unita) {
    const std::vector<Unita> unita = Vero->ElencaUnita();
    ASSERT_FALSE(unita.empty());
    EXPECT_EQ(unita[0], (Unita{"C:", "/", "/"}));
    for (std::size_t i = 0; i < unita.size(); ++i) {
        EXPECT_EQ(unita[i].Lettera, std::string(1, static_cast<char>('C' + i)) + ":");
        EXPECT_EQ(Vero->Esamina(unita[i].Directory).Tipo, TipoVoce::Directory) << unita[i].Directory;
        EXPECT_EQ(Vero->DirectoryUnita(unita[i].Lettera), unita[i].Directory);
        if (i > 1) {
            EXPECT_LT(unita[i - 1].Directory, unita[i].Directory);
        }
    }
    EXPECT_EQ(Vero->DirectoryUnita("c:"), "/");
    EXPECT_EQ(NumeroDi([&] { return Vero->DirectoryUnita("A:"); }), 71);
    EXPECT_EQ(NumeroDi([&] { return Vero->DirectoryUnita(""); }), 71);
}

TEST_F(DiscoPosix, ElencaFile) {
    Metti("Prova.vbp", "");
    Metti("altra.VBP", "");
    Metti("Form1.frm", "");
    fs::create_directory(Radice + "/d.vbp");
    fs::create_symlink("Prova.vbp", Radice + "/legame.vbp"); // as good as what it leads to
    fs::create_symlink("manca.vbp", Radice + "/rotto.vbp");
    ASSERT_EQ(::mkfifo((Radice + "/tubo.vbp").c_str(), 0600), 0);
    EXPECT_EQ(File.ElencaFile(P, ".vbp"), (std::vector<Testo>{"altra.VBP", "legame.vbp", "Prova.vbp"}));
    EXPECT_EQ(NumeroDi([&] { return File.ElencaFile(P + "\\manca", ".vbp"), 0; }), 76);
    // Names of any bytes: copied as they are.
    fs::create_directory(Radice + "/altri");
    for (const std::string nome : {"Ж.vbp", "grezz\xE0.vbp"}) Metti("altri/" + nome, "x");
    fs::create_directory(Radice + "/altri/Appoggio");
    for (const Testo& nome : File.ElencaFile(P + "\\altri", ".vbp"))
        File.FileCopy(P + "\\altri\\" + nome, P + "\\altri\\Appoggio\\" + nome);
    EXPECT_EQ(Nomi("altri/Appoggio"), (std::vector<std::string>{"grezz\xE0.vbp", "Ж.vbp"}));
    if (::geteuid() == 0) return; // whom nothing is closed to
    fs::permissions(Radice + "/d.vbp", fs::perms::owner_exec);
    EXPECT_EQ(NumeroDi([&] { return File.ElencaFile(P + "\\d.vbp", ".vbp"), 0; }), 75);
    fs::permissions(Radice + "/d.vbp", fs::perms::owner_all);
}

} // namespace

} // namespace morvella
