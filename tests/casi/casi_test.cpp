// SPDX-License-Identifier: MIT
//
// Whole runs. A case is tests/casi/SUBSYSTEM/CASE with
//   progetto/   what the user has; it holds one *.vbp, at any depth
//   progetto-da in the place of progetto/: a directory of the repository that is the project;
//               with more lines than one, directories laid over it in their order
//               (listing/form-davanti puts a form in front of modules, whose listings would be
//               empty without one)
//   opzioni     the command line, one argument a line; without a command among them the
//               subsystem's own (rewriter: riordina)
//   atteso/     the whole work directory afterwards
//   fuori/      files that the run writes below progetto/ but not in the work directory
//   esito       the exit status (0 when there is no such file), then texts that standard
//               error must hold, one a line
//   perche.md   what the case holds fast
// Beside the program lie the pictures that pages show. Pages name their own paths: in atteso/ the
// run's directory stands as "\caso", and the pictures' copies, which are looked at, do not stand.
// Each case runs twice from its start and once more over its own output, in one process: all
// three must give the same bytes, and nothing else below progetto/ may have changed. What a
// failed case wrote stays in the build directory; tests/promuovi takes it over.
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
    explicit Caso(fs::path directory)
        : caso_(std::move(directory)), progetto_(ProgettoDiCaso(caso_, MORVELLA_RADICE)) {}

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
        const bool comando = !argomenti.empty() && argomenti.front().front() != '-';
        if (!comando) argomenti.insert(argomenti.begin(), "riordina");
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
        Confronta(LeggiAlbero(caso_ / "atteso"), scritto, quale);
        Albero resto;
        for (const fs::path& strato : progetto_)
            for (auto& [file, bytes] : LeggiAlbero(strato)) resto[file] = bytes;
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
    std::vector<fs::path> progetto_;
};

} // namespace

} // namespace morvella::prove

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    std::vector<fs::path> casi;
    for (const auto& sottosistema : fs::directory_iterator(MORVELLA_CASI))
        if (sottosistema.is_directory())
            for (const auto& caso : fs::directory_iterator(sottosistema.path()))
                if (fs::exists(caso.path() / "progetto") || fs::exists(caso.path() / "progetto-da"))
                    casi.push_back(caso.path());
    std::sort(casi.begin(), casi.end());
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
    return RUN_ALL_TESTS();
}
