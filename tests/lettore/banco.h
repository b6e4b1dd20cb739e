// SPDX-License-Identifier: MIT
// tests/lettore/banco.h
//
// Listings written by hand, and a directory to keep them in.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "lettore/struttura.h"
#include "shell/state.h"

namespace morvella::lettore::prove {

/// A line of a listing in its bytes, from UTF-8: connectors in code page 437, "·" for a blank, all
/// else in Windows-1252.
inline std::string G(std::string_view scritta) {
    static const std::pair<std::string_view, char> segni[] = {
        {"│", '\xB3'}, {"║", '\xBA'}, {"└", '\xC0'}, {"├", '\xC3'}, {"─", '\xC4'},
        {"╚", '\xC8'}, {"╔", '\xC9'}, {"═", '\xCD'}, {"┌", '\xDA'}, {"·", ' '}};
    std::string riga;
    while (!scritta.empty()) {
        std::size_t n = 1;
        while (n < scritta.size() && (static_cast<unsigned char>(scritta[n]) & 0xC0) == 0x80) ++n;
        const std::string_view carattere = scritta.substr(0, n);
        scritta.remove_prefix(n);
        const auto* connettore = std::find_if(std::begin(segni), std::end(segni),
                                              [&](const auto& s) { return s.first == carattere; });
        if (connettore != std::end(segni))
            riga += connettore->second;
        else
            riga += *Bytes1252DaUtf8(carattere);
    }
    return riga;
}

inline const std::string Errore11 = std::string(11, ' ') + Testo(ErroreGenerico);

/// The five lines of a head's box, with a field of 11 bytes and a margin of 3.
inline std::vector<std::string> Riquadro(const std::string& numero, const std::string& testa) {
    const std::string p(14, ' ');
    const std::string stelle = p + std::string(101, '*');
    const std::string vuoto = p + "*" + std::string(99, ' ') + "*";
    return {stelle, vuoto, numero + "     " + p + "  " + testa, vuoto, stelle};
}

inline std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

/// A procedure without a fault, one left open, and one without a box that was left open too.
///
///    0 box, its head in line 2      12 Next i          20 If a Then b = 1 (open)
///    5 Dim                          13 End Sub         21 error line
///    6 For, 7 If, 8 Exit For        14 empty           22 End Function, 23 comment
///    9 Else, 10 Print, 11 End If    15 box, head in 17  24 Friend Sub, 26 error line, 27 End Sub
inline std::vector<std::string> Esempio() {
    return Riquadro("000003", "Private Sub Prova(n As Integer)") +
           std::vector<std::string>{G("000004     ···Dim i As Integer"),
                                    G("000005     ···╔═>For i = 1 To n"),
                                    G("000006     ···║··┌─>If i = 2 Then"),
                                    G("000007     <<═════════Exit For"),
                                    G("000008     ···║··├─>Else"),
                                    G("000009     ···║··│··Print \"Perché\", i"),
                                    G("000010     ···║··└─>End If"),
                                    G("000011     ···╚═>Next i"),
                                    G("000012     ···End Sub"),
                                    G("000013     ")} +
           Riquadro("000014", "Public Function Somma() As Long") +
           std::vector<std::string>{G("000015     ···┌─>If a Then b = 1"),
                                    Errore11,
                                    G("000016     ······End Function"),
                                    G("000017     ···' PERCHÉ no"),
                                    G("000018     ···Friend Sub Amica()"),
                                    G("000019     ···┌─>If c Then d"),
                                    Errore11,
                                    G("000020     ······End Sub")};
}

/// Lines with their ends.
inline std::string Unite(const std::vector<std::string>& righe, const std::string& fine = "\r\n") {
    std::string tutte;
    for (const std::string& riga : righe) tutte += riga + fine;
    return tutte;
}

/// A directory that goes with the test.
class Cartella {
  public:
    Cartella() : cartella_(Nuova()) {}
    ~Cartella() {
        std::error_code guasto;
        std::filesystem::remove_all(cartella_, guasto);
    }
    Cartella(const Cartella&) = delete;
    Cartella& operator=(const Cartella&) = delete;

    std::filesystem::path Percorso(const std::string& nome) const { return cartella_ / nome; }
    std::filesystem::path Scrivi(const std::string& nome, const std::string& bytes) const {
        std::ofstream file(Percorso(nome), std::ios::binary);
        if (!file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush())
            throw std::runtime_error("no room for a test");
        return Percorso(nome);
    }

  private:
    static std::filesystem::path Nuova() {
        std::random_device caso;
        std::filesystem::path dove;
        do {
            dove = std::filesystem::temp_directory_path() / ("morvella-lettore-" + std::to_string(caso()));
        } while (!std::filesystem::create_directory(dove));
        return dove;
    }
    std::filesystem::path cartella_;
};

} // namespace morvella::lettore::prove
