// SPDX-License-Identifier: MIT
//
// Whole runs. Every directory tests/casi/SUBSYSTEM/CASE is a case:
//   progetto/   what the user has; it holds one *.vbp, at any depth
//   progetto-da instead of progetto/: a directory of the repository that is the project; several
//               lines are directories laid one over the other (tests/sostegno/form-davanti puts a
//               form before modules, whose listings would be empty without one)
//   opzioni     the command line, one argument a line; the command is "riordina" unless the first
//               line names one
//   atteso/     the work directory afterwards, less what every run leaves alike: the marker OK.LOG,
//               the project file's copy, and X.txt, which is X.frm, X.bas or X.cls once more. These
//               are checked by rule (AttesoDiCaso), and byte for byte where atteso/ holds them
//   fuori/      files that the run writes below progetto/ but not in the work directory
//   esito       the exit status (0 when there is no such file), then texts that standard error
//               must hold, one a line
//   perche.md   what the case holds fast
// Beside the program lie the pictures that pages show. Pages name their own paths: in atteso/ the
// run's directory stands as "\caso", and copies of pictures are left out, though they must exist.
// Each case runs twice from the start and once more over its own output each time, in one process:
// all must give the same bytes, and nothing else below progetto/ may change. What a failed case
// wrote stays in the build directory; tests/promuovi takes it over.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "cli/programma.h"
#include "sostegno/alberi.h"
#include "sostegno/disco_orologio.h"

namespace fs = std::filesystem;

namespace morvella::prove {

namespace {

void Confronta(const Albero& atteso, const Albero& avuto, const std::string& che) {
    for (const std::string& diversa : Differenze(atteso, avuto)) ADD_FAILURE() << che << ": " << diversa;
}

class Caso : public testing::Test {
  public:
    explicit Caso(fs::path directory) : caso_(std::move(directory)) {}

    void TestBody() override {
        Passa("prima");
        Passa("seconda");
    }

  private:
    // One fresh copy of the project, run, looked at, run again over its output.
    void Passa(const std::string& quale) {
        const fs::path qui =
            fs::path(MORVELLA_CASI_USCITA) / caso_.parent_path().filename() / caso_.filename() / quale;
        const fs::path progetto = PreparaCaso(caso_, qui, MORVELLA_RADICE);
        Guarda(qui, progetto, quale);
        Guarda(qui, progetto, quale + ", di nuovo");
    }

    void Guarda(const fs::path& qui, const fs::path& progetto, const std::string& quale) {
        std::vector<std::string> argomenti = Righe(caso_ / "opzioni");
        const std::string comando = ComandoDiCaso(caso_);
        if (argomenti.empty() || argomenti.front() != comando) argomenti.insert(argomenti.begin(), comando);
        argomenti.insert(argomenti.begin() + 1, progetto.string());

        std::istringstream ingresso;
        std::ostringstream uscita;
        std::ostringstream errori;
        DiscoOrologio disco;
        cli::Ambiente ambiente{.Macchina = disco, .Ingresso = ingresso, .Uscita = uscita, .Errori = errori};
        ambiente.DirectoryProgramma = qui.string();
        fs::current_path(caso_); // files named in the options lie in the case
        const int stato = cli::Programma(argomenti, ambiente);
        fs::current_path(fs::path(MORVELLA_CASI_USCITA));

        const std::vector<std::string> esito = Righe(caso_ / "esito");
        EXPECT_EQ(stato, esito.empty() ? 0 : std::stoi(esito.front())) << quale << '\n' << errori.str();
        for (std::size_t i = 1; i < esito.size(); ++i)
            EXPECT_NE(errori.str().find(esito[i]), std::string::npos)
                << quale << ": «" << esito[i] << "» non sta in\n"
                << errori.str();

        const fs::path lavoro = progetto.parent_path() / "Appoggio";
        Albero scritto = LeggiAlbero(lavoro);
        // Where there is an index its pictures are there, as the pages spell them.
        for (const auto& [file, bytes] : Albero(scritto)) {
            if (fs::path(file).filename() != "Indice.Html") continue;
            for (const char* figura : Figure) {
                EXPECT_TRUE(fs::exists(lavoro / fs::path(file).parent_path() / figura)) << quale << file;
            }
        }
        SenzaLuogo(scritto, qui);
        Confronta(AttesoDiCaso(caso_, MORVELLA_RADICE), scritto, quale);
        Albero resto = SorgentiDiCaso(caso_, MORVELLA_RADICE);
        for (auto& [file, bytes] : LeggiAlbero(caso_ / "fuori")) resto[file] = bytes;
        Albero avuto = LeggiAlbero(qui / "progetto");
        SenzaLuogo(avuto, qui);
        const std::string davanti = lavoro.lexically_relative(qui / "progetto").generic_string() + "/";
        std::erase_if(avuto, [&](const auto& voce) {
            return voce.first.starts_with(davanti) && !resto.contains(voce.first);
        });
        Confronta(resto, avuto, quale + ", fuori da Appoggio");
    }

    fs::path caso_;
};

} // namespace

} // namespace morvella::prove

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const std::vector<fs::path> casi = morvella::prove::Casi(MORVELLA_CASI);
    if (casi.empty()) {
        std::fprintf(stderr, "no cases below %s\n", MORVELLA_CASI);
        return 1;
    }
    for (const fs::path& caso : casi)
        testing::RegisterTest(("casi_" + caso.parent_path().filename().string()).c_str(),
                              caso.filename().string().c_str(), nullptr, nullptr, __FILE__, __LINE__,
                              [caso]() -> testing::Test* { return new morvella::prove::Caso(caso); });
    // In a filter a "-" begins what is left out; in the name of a case it is only a hyphen.
    std::string filtro = GTEST_FLAG_GET(filter);
    std::replace(filtro.begin(), filtro.end(), '-', '?');
    GTEST_FLAG_SET(filter, filtro);
    const int esito = RUN_ALL_TESTS();
    if (!GTEST_FLAG_GET(list_tests) && testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        std::fprintf(stderr, "no case for %s\n", filtro.c_str());
        return 1;
    }
    return esito;
}
