// SPDX-License-Identifier: MIT
#include "sostegno/alberi.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "text/disco/archivio.h"

namespace fs = std::filesystem;

namespace morvella::prove {

namespace {

std::string LeggiTutto(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool EFigura(const std::string& file) {
    const std::string nome = LCase(fs::path(file).filename().string());
    return std::any_of(std::begin(Figure), std::end(Figure),
                       [&](const char* figura) { return nome == LCase(figura); });
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

constexpr const char* Marca = "Ok! Directory Creata, ora mettiamoci al lavoro ...\r\n";

// The path of a project's file below its directory, "" where there is none.
std::string ProgettoIn(const Albero& albero) {
    for (const auto& [file, bytes] : albero)
        if (file.ends_with(".vbp") && fs::path(file).parent_path().filename() != "Appoggio") return file;
    return "";
}

} // namespace

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

void SenzaLuogo(Albero& albero, const fs::path& qui) {
    const std::string luogo = Archivio::TestoDiPercorso(qui.generic_string()) + "\\";
    for (auto& [file, bytes] : albero)
        if (file.ends_with(".Html"))
            for (std::size_t i = bytes.find(luogo); i != std::string::npos; i = bytes.find(luogo, i + 1))
                bytes.replace(i, luogo.size(), "\\caso\\");
    std::erase_if(albero, [](const auto& voce) { return EFigura(voce.first) && voce.second == "figura"; });
}

std::vector<std::string> Differenze(const Albero& atteso, const Albero& avuto) {
    std::vector<std::string> diverse;
    for (const auto& [file, bytes] : atteso) {
        const auto trovato = avuto.find(file);
        if (trovato == avuto.end()) {
            diverse.push_back("manca " + file);
            continue;
        }
        if (trovato->second == bytes) continue;
        const auto diverso =
            std::mismatch(bytes.begin(), bytes.end(), trovato->second.begin(), trovato->second.end());
        const auto posto = static_cast<std::size_t>(diverso.first - bytes.begin());
        const auto righe =
            1 + std::count(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(posto), '\n');
        diverse.push_back(file + " riga " + std::to_string(righe) + " byte " + std::to_string(posto) +
                          "\n  atteso \"" + RigaA(bytes, posto) + "\"\n  avuto  \"" +
                          RigaA(trovato->second, posto) + '"');
    }
    for (const auto& [file, bytes] : avuto)
        if (!atteso.contains(file)) diverse.push_back("in piu' " + file);
    return diverse;
}

std::vector<fs::path> ProgettoDiCaso(const fs::path& caso, const fs::path& radice) {
    if (!fs::exists(caso / "progetto-da")) return {caso / "progetto"};
    std::vector<fs::path> strati;
    for (const std::string& strato : Righe(caso / "progetto-da")) strati.push_back(radice / strato);
    return strati;
}

Albero SorgentiDiCaso(const fs::path& caso, const fs::path& radice) {
    Albero sorgenti;
    for (const fs::path& strato : ProgettoDiCaso(caso, radice))
        for (auto& [file, bytes] : LeggiAlbero(strato)) sorgenti[file] = std::move(bytes);
    return sorgenti;
}

std::vector<fs::path> Casi(const fs::path& casi) {
    std::vector<fs::path> trovati;
    for (const auto& sottosistema : fs::directory_iterator(casi))
        if (sottosistema.is_directory())
            for (const auto& caso : fs::directory_iterator(sottosistema.path()))
                if (caso.is_directory()) trovati.push_back(caso.path());
    std::sort(trovati.begin(), trovati.end());
    return trovati;
}

std::string ComandoDiCaso(const fs::path& caso) {
    const std::vector<std::string> opzioni = Righe(caso / "opzioni");
    return opzioni.empty() || opzioni.front().front() == '-' ? "riordina" : opzioni.front();
}

Albero AttesoDiCaso(const fs::path& caso, const fs::path& radice) {
    Albero atteso = LeggiAlbero(caso / "atteso");
    const Albero sorgenti = SorgentiDiCaso(caso, radice);
    const std::string progetto = ProgettoIn(sorgenti);
    const std::string lavoro = (fs::path(progetto).parent_path() / "Appoggio/").generic_string();
    for (const auto& [file, bytes] : sorgenti)
        if (file.starts_with(lavoro)) return atteso;
    atteso.emplace("OK.LOG", Marca); // emplace: what atteso/ holds itself stays
    if (ComandoDiCaso(caso) != "documenta")
        atteso.emplace(fs::path(progetto).filename().string(), sorgenti.at(progetto));
    for (const auto& [file, bytes] : Albero(atteso)) {
        const fs::path modulo(file);
        if (modulo.extension() == ".frm" || modulo.extension() == ".bas" || modulo.extension() == ".cls")
            atteso.emplace(fs::path(modulo).replace_extension(".txt").generic_string(), bytes);
    }
    return atteso;
}

fs::path PreparaCaso(const fs::path& caso, const fs::path& qui, const fs::path& radice) {
    fs::remove_all(qui);
    fs::create_directories(qui);
    for (const fs::path& strato : ProgettoDiCaso(caso, radice))
        fs::copy(strato, qui / "progetto",
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    for (const char* figura : Figure) std::ofstream(qui / figura) << "figura";
    const std::string progetto = ProgettoIn(LeggiAlbero(qui / "progetto"));
    if (!progetto.empty()) return qui / "progetto" / progetto;
    throw std::runtime_error("no project in " + caso.string());
}

} // namespace morvella::prove
