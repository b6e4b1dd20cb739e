// SPDX-License-Identifier: MIT
//
// Whole runs. A case is tests/casi/SUBSYSTEM/CASE with
//   progetto/   what the user has; it holds one *.vbp, at any depth
//   progetto-da in the place of progetto/: a directory of the repository that is the project
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
#include <fstream>
#include <map>
#include <sstream>

#include "cli/programma.h"
#include "sostegno/disco_orologio.h"
#include "text/archivio.h"

namespace fs = std::filesystem;

namespace morvella::prove {

namespace {

using Albero = std::map<std::string, std::string>; // path below a directory, bytes

std::string LeggiTutto(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> Righe(const fs::path& file) {
    std::vector<std::string> righe;
    std::ifstream in(file);
    for (std::string riga; std::getline(in, riga);)
        if (!riga.empty()) righe.push_back(riga);
    return righe;
}

Albero LeggiAlbero(const fs::path& radice) {
    Albero albero;
    if (!fs::exists(radice)) return albero;
    for (const auto& voce : fs::recursive_directory_iterator(radice))
        if (voce.is_regular_file())
            albero[voce.path().lexically_relative(radice).generic_string()] = LeggiTutto(voce.path());
    return albero;
}

constexpr const char* Figure[] = {"p2.gif", "Dario.gif", "BLULETHR.GIF", "home.GIF"};

bool EFigura(const std::string& file) {
    const std::string nome = LCase(fs::path(file).filename().string());
    return std::any_of(std::begin(Figure), std::end(Figure),
                       [&](const char* figura) { return nome == LCase(figura); });
}

// What a run wrote, as a case keeps it.
void SenzaLuogo(Albero& albero, const fs::path& qui) {
    const std::string luogo = Archivio::TestoDiPercorso(qui.generic_string()) + "\\";
    for (auto& [file, bytes] : albero)
        if (file.ends_with(".Html"))
            for (std::size_t i = bytes.find(luogo); i != std::string::npos; i = bytes.find(luogo, i + 1))
                bytes.replace(i, luogo.size(), "\\caso\\");
    std::erase_if(albero, [](const auto& voce) { return EFigura(voce.first) && voce.second == "figura"; });
}

std::string ConSegni(const std::string& bytes) {
    std::string testo;
    for (const char c : bytes) {
        char segno[8];
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 32 && byte < 127 && c != '\\') {
            testo += c;
        } else {
            std::snprintf(segno, sizeof segno, "\\x%02X", byte);
            testo += segno;
        }
    }
    return testo;
}

// The line of `bytes` around `posto`.
std::string RigaA(const std::string& bytes, std::size_t posto) {
    const std::size_t da = posto == 0 ? std::string::npos : bytes.rfind('\n', posto - 1);
    const std::size_t inizio = da == std::string::npos ? 0 : da + 1;
    return ConSegni(bytes.substr(inizio, std::min(bytes.find('\n', posto), bytes.size()) - inizio));
}

void Confronta(const Albero& atteso, const Albero& avuto, const std::string& che) {
    for (const auto& [file, bytes] : atteso) {
        const auto trovato = avuto.find(file);
        if (trovato == avuto.end()) {
            ADD_FAILURE() << che << ": manca " << file;
            continue;
        }
        if (trovato->second == bytes) continue;
        const auto diverso =
            std::mismatch(bytes.begin(), bytes.end(), trovato->second.begin(), trovato->second.end());
        const auto posto = static_cast<std::size_t>(diverso.first - bytes.begin());
        ADD_FAILURE() << che << ": " << file << " riga "
                      << 1 + std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(posto),
                                        '\n')
                      << " byte " << posto << "\n  atteso \"" << RigaA(bytes, posto) << "\"\n  avuto  \""
                      << RigaA(trovato->second, posto) << '"';
    }
    for (const auto& [file, bytes] : avuto)
        if (!atteso.contains(file)) ADD_FAILURE() << che << ": in piu' " << file;
}

class Caso : public testing::Test {
  public:
    explicit Caso(fs::path directory) : caso_(std::move(directory)), progetto_(caso_ / "progetto") {
        if (fs::exists(caso_ / "progetto-da"))
            progetto_ = fs::path(MORVELLA_RADICE) / Righe(caso_ / "progetto-da").at(0);
    }

    void TestBody() override {
        Passa("prima");
        Passa("seconda");
    }

  private:
    // One fresh copy of the project, run, looked at, run again over its output.
    void Passa(const std::string& quale) {
        const fs::path qui =
            fs::path(MORVELLA_CASI_USCITA) / caso_.parent_path().filename() / caso_.filename() / quale;
        fs::remove_all(qui);
        fs::create_directories(qui);
        fs::copy(progetto_, qui / "progetto", fs::copy_options::recursive);
        for (const char* figura : Figure) std::ofstream(qui / figura) << "figura";
        Guarda(qui, quale);
        Guarda(qui, quale + ", di nuovo");
    }

    void Guarda(const fs::path& qui, const std::string& quale) {
        fs::path progetto;
        for (const auto& voce : fs::recursive_directory_iterator(qui / "progetto"))
            if (voce.path().extension() == ".vbp" && voce.path().parent_path().filename() != "Appoggio")
                progetto = voce.path();
        ASSERT_FALSE(progetto.empty()) << caso_;

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
        Albero resto = LeggiAlbero(progetto_);
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
    fs::path progetto_;
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
