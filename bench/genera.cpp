// SPDX-License-Identifier: MIT
//
// genera: writes a synthetic project for the benchmarks into a directory.
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "progetti.h"

namespace fs = std::filesystem;
using namespace morvella::bench;

namespace {

constexpr const char* Uso =
    "genera DIR [--moduli N] [--righe N] [--seme N] [--show N] [--lunghezza N]\n"
    "genera DIR --aperti N [--profondi N]\n"
    "Writes a synthetic project, DIR/Sintetico.vbp, with N lines over all its modules\n"
    "and N .Show calls; with --lunghezza plain statements have at least N characters. The second form:\n"
    "one procedure that opens N blocks, of them at most --profondi at a time.\n";

long long Intero(const char* testo) {
    long long n = 0;
    const char* fine = testo + std::strlen(testo);
    const auto [dove, errore] = std::from_chars(testo, fine, n);
    if (errore != std::errc() || dove != fine || n < 0)
        throw std::invalid_argument(std::string("not a number: ") + testo);
    return n;
}

// Names here stay within the Latin-1 part of Windows-1252.
fs::path NomeSulDisco(const std::string& nome) {
    std::u8string utf8;
    for (const char c : nome) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80) utf8 += static_cast<char8_t>(0xC0 | (byte >> 6));
        utf8 += static_cast<char8_t>(byte >= 0x80 ? 0x80 | (byte & 0x3F) : byte);
    }
    return fs::path(utf8);
}

void Scrivi(const fs::path& file, const std::string& bytes) {
    std::ofstream fuori(file, std::ios::binary | std::ios::trunc);
    fuori.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    fuori.close();
    if (!fuori) throw std::runtime_error("cannot write " + file.string());
}

} // namespace

int main(int argc, char** argv) {
    try {
        Ricetta ricetta;
        fs::path directory;
        for (int i = 1; i < argc; ++i) {
            const std::string a = argv[i];
            const auto valore = [&] {
                if (i + 1 == argc) throw std::invalid_argument(a + " needs a value");
                return Intero(argv[++i]);
            };
            if (a == "--moduli") {
                ricetta.Moduli = valore();
            } else if (a == "--righe") {
                ricetta.Righe = valore();
            } else if (a == "--seme") {
                ricetta.Seme = static_cast<std::uint64_t>(valore());
            } else if (a == "--show") {
                ricetta.Show = valore();
            } else if (a == "--lunghezza") {
                ricetta.Lunghezza = valore();
            } else if (a == "--aperti") {
                ricetta.Aperti = valore();
            } else if (a == "--profondi") {
                ricetta.Profondi = valore();
            } else if (!a.starts_with("-") && directory.empty()) {
                directory = a;
            } else {
                throw std::invalid_argument("unknown: " + a);
            }
        }
        if (directory.empty() || ricetta.Moduli == 0)
            throw std::invalid_argument("no directory or no module");

        fs::create_directories(directory);
        std::string righe;
        for (long long i = 0; i < (ricetta.Aperti > 0 ? 1 : ricetta.Moduli); ++i) {
            const ModuloSintetico modulo = ricetta.Aperti > 0 ? FaiScala(ricetta) : FaiModulo(ricetta, i);
            Scrivi(directory / NomeSulDisco(modulo.Nome), modulo.Testo);
            if (!modulo.Companione.empty())
                Scrivi(directory / NomeSulDisco(modulo.NomeCompanione), modulo.Companione);
            righe += modulo.RigaVbp;
        }
        Scrivi(directory / "Sintetico.vbp", FaiVbp(righe));
        return 0;
    } catch (const std::invalid_argument& e) {
        std::fprintf(stderr, "genera: %s\n%s", e.what(), Uso);
        return 2;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "genera: %s\n", e.what());
        return 1;
    }
}
