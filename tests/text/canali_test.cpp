// SPDX-License-Identifier: MIT
#include "text/canali.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>

#include "sostegno/disco_finto.h"
#include "text/numero_di.h"

namespace morvella {

namespace {

using prove::DiscoFinto;
using prove::ErroreDi;
using prove::NumeroDi;

constexpr std::size_t Blocco = Canali::BloccoLetto;
constexpr std::size_t BloccoScritto = Canali::Blocco;
static_assert(Blocco % BloccoScritto == 0);

// A disk that gives few bytes at a time, so that every place of a file is once the end of what
// was read.
class DiscoAvaro : public DiscoFinto {
  public:
    std::size_t Boccone = 1;

    std::unique_ptr<FileAperto> ApriLettura(const std::string& percorso) override {
        return std::make_unique<FileAvaro>(DiscoFinto::ApriLettura(percorso), Boccone);
    }

  private:
    class FileAvaro : public FileAperto {
      public:
        FileAvaro(std::unique_ptr<FileAperto> intero, std::size_t boccone)
            : intero_(std::move(intero)), boccone_(boccone) {}
        std::size_t Leggi(char* dove, std::size_t n) override {
            return intero_->Leggi(dove, std::min(n, boccone_));
        }
        void Scrivi(const char* da, std::size_t n) override { intero_->Scrivi(da, n); }
        void Svuota() override { intero_->Svuota(); }
        void Chiudi() override { intero_->Chiudi(); }

      private:
        std::unique_ptr<FileAperto> intero_;
        std::size_t boccone_;
    };
};

struct Banco {
    DiscoAvaro Disco;
    Archivio File{Disco};
    Canali Canale{File};

    Banco() { Disco.Boccone = 1u << 30; }

    std::vector<Testo> Righe(const Testo& bytes, bool lf = false) {
        Disco.Metti("/p/in", bytes);
        Canale.FineRigaLf = lf;
        std::vector<Testo> righe;
        Canale.OpenInput(1, "\\p\\in");
        while (!Canale.Eof(1)) righe.emplace_back(Canale.LineInput(1));
        EXPECT_EQ(NumeroDi([&] { return Canale.LineInput(1); }), 62);
        Canale.Close(1);
        return righe;
    }
};

using Righe = std::vector<Testo>;

struct CasoRighe {
    Testo Bytes;
    Righe Attese;   // a CR or CR LF ends a line
    Righe AtteseLf; // an LF too
};

const CasoRighe CasiRighe[] = {
    {"", {}, {}},
    {"a", {"a"}, {"a"}},
    {"a\r\n", {"a"}, {"a"}}, // no further empty line
    {"a\r", {"a"}, {"a"}},
    {"a\r\nbcdefgh\r", {"a", "bcdefgh"}, {"a", "bcdefgh"}},
    {"a\r\nb", {"a", "b"}, {"a", "b"}},
    {"\r\n", {""}, {""}},
    {"\r\n\r\n", {"", ""}, {"", ""}},
    {"a\r\rb\n", {"a", "", "b\n"}, {"a", "", "b"}},
    {"a\rb\nc\r\n", {"a", "b\nc"}, {"a", "b", "c"}}, // a lone LF stays in the line
    {"\n", {"\n"}, {""}},
    {"a\n\rb", {"a\n", "b"}, {"a", "", "b"}},
    {"a\nb\n", {"a\nb\n"}, {"a", "b"}},
    {"a\r\n\nb", {"a", "\nb"}, {"a", "", "b"}},
    {"a\r\r\nb", {"a", "", "b"}, {"a", "", "b"}},
    {Testo("a\0b\x1A\tc\r\nd", 9), {Testo("a\0b\x1A\tc", 6), "d"}, {Testo("a\0b\x1A\tc", 6), "d"}},
};

TEST(Canali, LineInput) {
    for (const CasoRighe& c : CasiRighe) {
        Banco b;
        EXPECT_EQ(b.Righe(c.Bytes), c.Attese) << testing::PrintToString(c.Bytes);
        EXPECT_EQ(b.Righe(c.Bytes, true), c.AtteseLf) << testing::PrintToString(c.Bytes);
    }
}

// The rule told byte by byte, to hold against blocks that end anywhere.
Righe AManoRighe(const Testo& bytes, bool lf) {
    Righe righe;
    for (std::size_t i = 0; i < bytes.size();) {
        Testo riga;
        while (i < bytes.size() && bytes[i] != '\r' && !(lf && bytes[i] == '\n')) riga += bytes[i++];
        if (i < bytes.size() && bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n') ++i;
        ++i;
        righe.push_back(std::move(riga));
    }
    return righe;
}

TEST(Canali, LineInputOvunqueFiniscaIlBlocco) {
    constexpr char Lettere[] = {'a', 'b', '\r', '\n'};
    Banco b;
    for (std::size_t lungo = 1; lungo <= 6; ++lungo) {
        for (std::size_t quale = 0; quale < std::size_t{1} << (2 * lungo); ++quale) {
            Testo bytes;
            for (std::size_t i = 0; i < lungo; ++i) bytes += Lettere[(quale >> (2 * i)) & 3];
            for (const std::size_t boccone : {1, 2, 3, 1000}) {
                b.Disco.Boccone = boccone;
                for (const bool lf : {false, true})
                    ASSERT_EQ(b.Righe(bytes, lf), AManoRighe(bytes, lf))
                        << testing::PrintToString(bytes) << ' ' << boccone << ' ' << lf;
            }
        }
    }
}

TEST(Canali, LineInputAlBordoDelBlocco) {
    struct Caso {
        const char* Fine;
        Righe Altre; // after the long line
        Righe AltreLf;
    };
    const Caso casi[] = {
        {"\r\ny", {"y"}, {"y"}},  {"\ry", {"y"}, {"y"}}, {"\r\r\ny", {"", "y"}, {"", "y"}},
        {"\r\n\r\n", {""}, {""}}, {"\r\n", {}, {}},      {"", {}, {}},
    };
    for (const Caso& c : casi) {
        for (const std::size_t blocchi : {1, 2, 3, 4, 5}) {
            for (int oltre = -3; oltre <= 3; ++oltre) {
                const Testo lunga(blocchi * Blocco + static_cast<std::size_t>(oltre + 3) - 3, 'x');
                Banco b;
                Righe attese = c.Altre;
                attese.insert(attese.begin(), lunga);
                ASSERT_TRUE(b.Righe(lunga + c.Fine) == attese) << c.Fine << blocchi << ' ' << oltre;
                ASSERT_TRUE(b.Righe(lunga + c.Fine, true) == attese) << c.Fine << blocchi << ' ' << oltre;
                // The same with the line not at the front of the buffer.
                attese.insert(attese.begin(), "prima");
                ASSERT_TRUE(b.Righe("prima\r\n" + lunga + c.Fine) == attese) << c.Fine << blocchi;
            }
        }
    }
}

TEST(Canali, MolteRigheOltreIlBlocco) {
    Testo bytes;
    Righe attese;
    for (int i = 0; bytes.size() < 3 * Blocco; ++i) {
        attese.push_back(CStr(i) + Testo(static_cast<std::size_t>(i % 97), '.'));
        bytes += attese.back() + "\r\n";
    }
    Banco b;
    EXPECT_TRUE(b.Righe(bytes) == attese);
    EXPECT_TRUE(b.Righe(bytes, true) == attese);
}

TEST(Canali, FileConLfEUnaRigaSola) {
    Testo bytes;
    while (bytes.size() < 2 * Blocco) bytes += "una riga\n";
    Banco b;
    EXPECT_TRUE(b.Righe(bytes) == Righe{bytes});
    EXPECT_EQ(b.Righe(bytes, true).size(), bytes.size() / 9);
}

// Lines around the stride, with blanks around theirs, at any place of the memory; as many at a time as
// one likes.
TEST(Canali, LineInputTrimComeTrim) {
    Testo bytes;
    for (const std::size_t blanks : {0, 1, 4, 31, 32, 33, 63, 64, 65})
        for (const std::size_t testo : {0, 1, 2, 30, 31, 32, 33, 62, 63, 64, 65, 200})
            for (const std::size_t dietro : {0, 1, 40})
                for (const char* fine : {"\r\n", "\r", "\r\n\n"})
                    bytes += Testo(blanks, ' ') + Testo(testo, '\t') + Testo(dietro, ' ') + fine;
    bytes += "  ultima  ";
    for (const std::size_t boccone : {std::size_t{1}, std::size_t{50}, std::size_t{997}, Blocco}) {
        for (const bool lf : {false, true}) {
            const Righe attese = AManoRighe(bytes, lf);
            Banco b;
            b.Disco.Boccone = boccone;
            b.Disco.Metti("/p/in", bytes);
            b.Canale.FineRigaLf = lf;
            b.Canale.OpenInput(1, "\\p\\in");
            std::size_t presa = 0;
            for (std::size_t massimo = 1; presa < attese.size(); massimo = massimo % 40 + 1) {
                std::size_t date = 0;
                const std::size_t quante =
                    b.Canale.LineInputTrim(1, massimo, [&](const LineaLetta& riga, bool inMemoria) {
                        const Testo& attesa = attese.at(presa + date++);
                        EXPECT_EQ(riga.Intera(), attesa);
                        EXPECT_EQ(riga.Trimmata(), Trim(attesa));
                        if (!inMemoria) return;
                        const char dietro = riga.Testo[riga.Lunga];
                        EXPECT_TRUE(dietro == ' ' || dietro == '\r');
                    });
                ASSERT_GE(quante, 1u);
                ASSERT_LE(quante, massimo);
                ASSERT_EQ(quante, date);
                presa += quante;
                if (HasFailure()) return;
            }
            EXPECT_TRUE(b.Canale.Eof(1));
            EXPECT_EQ(NumeroDi([&] { b.Canale.LineInputTrim(1, 3, [](const LineaLetta&, bool) {}); }), 62);
        }
    }
}

TEST(Canali, LineInputTrimNonVaOltreIlMassimo) {
    Banco b;
    b.Disco.Metti("/p/in", "a\r\n b\r\nc \r\nd\r\n");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_FALSE(b.Canale.Eof(1));
    Righe righe;
    const auto prendi = [&](const LineaLetta& riga, bool) { righe.emplace_back(riga.Trimmata()); };
    EXPECT_EQ(b.Canale.LineInputTrim(1, 2, prendi), 2u);
    EXPECT_EQ(righe, (Righe{"a", "b"}));
    EXPECT_EQ(b.Canale.LineInput(1), "c ");
    EXPECT_EQ(b.Canale.LineInputTrim(1, 9, prendi), 1u); // whether an LF follows, only the file's end tells
    EXPECT_EQ(righe, (Righe{"a", "b", "d"}));
}

// Reads /p/in once and again; gives the number of blocks read the second time.
int RileggiContando(Banco& b, const std::function<void()>& frattanto) {
    int letture = 0;
    b.Disco.PrimaDiLeggere = [&](const std::string&) { ++letture; };
    for (int giro = 0; giro < 2; ++giro) {
        letture = 0;
        const std::string attese = b.Disco.Leggi("/p/in");
        b.Canale.OpenInput(1, "\\p\\in");
        Testo lette;
        while (!b.Canale.Eof(1)) lette += Testo(b.Canale.LineInput(1)) + "\r\n";
        b.Canale.Close(1);
        EXPECT_TRUE(lette == attese) << giro;
        if (giro == 0) frattanto();
    }
    b.Disco.PrimaDiLeggere = nullptr;
    return letture;
}

TEST(Canali, Ricomincia) {
    Banco b;
    EXPECT_EQ(NumeroDi([&] { b.Canale.Ricomincia(2); }), 52);
    b.Disco.Metti("/p/in", "x");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(NumeroDi([&] { b.Canale.Ricomincia(1); }), 52);
    // What waits for a block goes, and so does what has gone to the disk.
    for (const std::size_t quante : {1, 3, 20000}) {
        b.Canale.OpenOutput(2, "\\p\\out");
        for (std::size_t i = 0; i < quante; ++i) b.Canale.Print(2, "prima del principio");
        b.Canale.Ricomincia(2);
        if (quante == 20000) {
            EXPECT_EQ(b.Disco.Leggi("/p/out"), "");
        }
        b.Canale.Print(2, "dopo");
        b.Canale.Close(2);
        EXPECT_EQ(b.Disco.Leggi("/p/out"), "dopo\r\n");
    }
    // A file that cannot be emptied keeps all that was printed.
    Testo tutte;
    b.Canale.OpenOutput(2, "\\p\\out");
    for (std::size_t i = 0; i < 40000; ++i) {
        b.Canale.Print(2, CStr(static_cast<long long>(i)));
        tutte += CStr(static_cast<long long>(i)) + "\r\n";
    }
    b.Disco.Fallisci("Svuota", "out", 57, 1);
    EXPECT_EQ(NumeroDi([&] { b.Canale.Ricomincia(2); }), 57);
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), tutte);
}

TEST(Canali, DaStampare) {
    Banco b;
    EXPECT_EQ(b.Canale.DaStampare(2).Dove, nullptr);
    EXPECT_EQ(b.Canale.DaStampare(0).Dove, nullptr);
    EXPECT_EQ(b.Canale.DaStampare(8).Dove, nullptr);
    b.Canale.OpenOutput(2, "\\p\\out");
    b.Canale.Print(2, "uno");
    const auto spazio = b.Canale.DaStampare(2);
    EXPECT_EQ(spazio.Posto, Canali::Blocco - 5);
    std::memset(spazio.Dove, '#', 2 * Fetta);
    std::memcpy(spazio.Dove, "due\r\n", 5);
    b.Canale.Stampato(2, 5);
    b.Canale.Print(2, "tre");
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), "uno\r\ndue\r\ntre\r\n");
    EXPECT_EQ(b.Canale.DaStampare(2).Dove, nullptr);
}

TEST(Canali, IlSecondoGiroNonRilegge) {
    Banco b;
    b.Disco.Metti("/p/in", "uno\r\ndue\r\n");
    EXPECT_EQ(RileggiContando(b, [] {}), 0);
    // Another file, a changed one, one that we may have changed: read anew.
    EXPECT_EQ(RileggiContando(b, [&] { b.Disco.Metti("/p/in", "tre\r\nsei\r\n"); }), 2);
    EXPECT_EQ(RileggiContando(b,
                              [&] {
                                  b.Canale.OpenOutput(2, "\\p\\in");
                                  b.Canale.Print(2, "tre");
                                  b.Canale.Print(2, "set");
                                  b.Canale.Close(2);
                              }),
              2);
    EXPECT_EQ(RileggiContando(b, [&] { b.File.FileCopy("\\p\\in", "\\p\\altro"); }), 2);
    // The channel's buffer was put to another use.
    EXPECT_EQ(RileggiContando(b,
                              [&] {
                                  b.Disco.Metti("/p/x", "x\r\n");
                                  b.Canale.OpenInput(1, "\\p\\x");
                                  b.Canale.Eof(1);
                                  b.Canale.Close(1);
                              }),
              2);
    // Not read to its end.
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_FALSE(b.Canale.Eof(1));
    b.Canale.Close(1);
    EXPECT_EQ(RileggiContando(b, [] {}), 0);
    // One byte more than the buffer holds.
    b.Disco.Metti("/p/in", Testo(Blocco / 2 - 2, 'x') + "\r\n" + Testo(Blocco / 2 - 3, 'y') + "\r\n");
    EXPECT_EQ(RileggiContando(b, [] {}), 0);
    b.Disco.Metti("/p/in", Testo(Blocco / 2 - 2, 'x') + "\r\n" + Testo(Blocco / 2 - 1, 'y') + "\r\n");
    EXPECT_GE(RileggiContando(b, [] {}), 2);
}

TEST(Canali, IlSecondoGiroNonRiapre) {
    // On a disk that tells of changed rights a file that is unchanged in all is not opened again.
    Banco b;
    b.Disco.Metti("/p/in", "uno\r\n");
    const auto leggi = [&](Vista attesa) { // gives the number of calls to the disk
        const int prima = b.Disco.ChiamateFatte();
        b.Canale.OpenInput(1, "\\p\\in");
        EXPECT_EQ(b.Canale.LineInput(1), attesa);
        EXPECT_TRUE(b.Canale.Eof(1));
        b.Canale.Close(1);
        return b.Disco.ChiamateFatte() - prima;
    };
    EXPECT_EQ(leggi("uno"), 4); // opened, read to its end in two steps, closed
    EXPECT_EQ(leggi("uno"), 2); // this disk tells nothing: opened and closed
    b.Disco.Cambiato = 1;
    EXPECT_EQ(leggi("uno"), 4);
    EXPECT_EQ(leggi("uno"), 0);
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, "\\p\\in"), 0; }), 55); // open all the same
    EXPECT_EQ(b.Canale.LineInput(1), "uno");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.LineInput(1), 0; }), 62);
    b.Canale.Close(1);
    b.Disco.Cambiato = 2; // rights, say
    b.Disco.Fallisci("ApriLettura", "/in", 75, 1);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\in"), 0; }), 75);
    EXPECT_EQ(leggi("uno"), 4);
    EXPECT_EQ(leggi("uno"), 0);
    b.Disco.Cancella("/p/in");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\in"), 0; }), 53);
    b.Disco.Metti("/p/in", "due\r\n");
    EXPECT_EQ(leggi("due"), 4);
}

// Random text of lines of about `media` bytes, with all kinds of line ends and some hits.
Testo TestoACaso(std::uint32_t seme, std::size_t quanti, std::size_t media) {
    std::uint32_t n = seme;
    const auto caso = [&](std::uint32_t fino) { return (n = n * 1664525 + 1013904223) / 65536 % fino; };
    Testo bytes;
    while (bytes.size() < quanti) {
        const std::uint32_t lunga = caso(static_cast<std::uint32_t>(2 * media + 1));
        for (std::uint32_t i = 0; i < lunga; ++i) bytes += "abS.wo\n h"[caso(9)];
        if (caso(20) == 0) bytes.append(".Show");
        if (caso(20) == 0) bytes.append(".Sho\rw");
        constexpr const char* Fini[] = {"\r\n", "\r\n", "\r\n", "\r", "\r\r\n", "\r\n\n"};
        bytes += Fini[caso(6)];
    }
    return bytes + (seme % 2 == 0 ? "fine" : "fine\r");
}

TEST(Canali, SaltaSenzaNonSaltaNulla) {
    for (std::uint32_t seme = 1; seme <= 60; ++seme) {
        const std::size_t media = seme % 3 == 0 ? 2 : seme % 3 == 1 ? 30 : 300;
        const Testo bytes = TestoACaso(seme, seme % 10 == 0 ? 2 * Blocco : 3000, media);
        const Righe tutte = AManoRighe(bytes, false);
        for (const std::size_t boccone : {std::size_t{100}, std::size_t{131}, std::size_t{1000}, Blocco}) {
            Banco b;
            b.Disco.Boccone = boccone;
            b.Disco.Metti("/p/in", bytes);
            b.Canale.OpenInput(1, "\\p\\in");
            std::size_t quale = 0;
            std::size_t saltate = 0;
            for (;;) {
                const Lungo salto = b.Canale.SaltaSenza(1, ".Show");
                ASSERT_GE(salto, 0);
                for (Lungo i = 0; i < salto; ++i, ++quale, ++saltate) {
                    ASSERT_LT(quale, tutte.size());
                    ASSERT_EQ(InStr(1, tutte[quale], ".Show"), 0) << seme << ' ' << boccone << ' ' << quale;
                }
                if (b.Canale.Eof(1)) break;
                ASSERT_LT(quale, tutte.size());
                ASSERT_EQ(b.Canale.LineInput(1), tutte[quale]) << seme << ' ' << boccone << ' ' << quale;
                ++quale;
            }
            ASSERT_EQ(quale, tutte.size()) << seme << ' ' << boccone;
            if (boccone == Blocco && media < 100) {
                EXPECT_GT(saltate, 0u) << seme;
            }
        }
    }
}

TEST(Canali, SaltaSenzaCasi) {
    Banco b;
    EXPECT_EQ(NumeroDi([&] { return b.Canale.SaltaSenza(1, ".Show"); }), 52);
    b.Disco.Metti("/p/in", "");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(b.Canale.SaltaSenza(1, ".Show"), 0);
    b.Canale.Close(1);
    // Where an LF ends a line too, the lines are counted one by one.
    b.Disco.Metti("/p/in", TestoACaso(1, 3000, 10));
    b.Canale.FineRigaLf = true;
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(b.Canale.SaltaSenza(1, ".Show"), 0);
}

TEST(Canali, EofNonConsuma) {
    Banco b;
    b.Disco.Metti("/p/in", "a\r\nb");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_FALSE(b.Canale.Eof(1));
    EXPECT_FALSE(b.Canale.Eof(1));
    EXPECT_EQ(b.Canale.LineInput(1), "a");
    EXPECT_FALSE(b.Canale.Eof(1));
    EXPECT_EQ(b.Canale.LineInput(1), "b");
    EXPECT_TRUE(b.Canale.Eof(1));
    EXPECT_TRUE(b.Canale.Eof(1));
}

TEST(Canali, BufferNonTieneIlFileDiPrima) {
    Banco b;
    EXPECT_EQ(b.Righe("lunga lunga\r\nresto").size(), 2u);
    b.Disco.Metti("/p/in", "uno\r\ndue\r\n");
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(b.Canale.LineInput(1), "uno"); // "due" is read and not given
    b.Canale.Close(1);
    EXPECT_EQ(b.Righe("x"), Righe{"x"});
    EXPECT_EQ(b.Righe(""), Righe{});
}

TEST(Canali, Print) {
    struct Caso {
        const char* Nome;
        void (*Scrivi)(Canali&);
        Testo Atteso;
    };
    const Caso casi[] = {
        {"nulla", [](Canali&) {}, ""},
        {"testo", [](Canali& c) { c.Print(2, "a"); }, "a\r\n"},
        {"vuoto", [](Canali& c) { c.Print(2, ""); }, "\r\n"},
        {"crlf", [](Canali& c) { c.Print(2, "a\r\n"); }, "a\r\n\r\n"}, // as it stands
        {"lf", [](Canali& c) { c.Print(2, "a\nb"); }, "a\nb\r\n"},
        {"pezzi", [](Canali& c) { c.Print(2, "a", "", "b ", "c"); }, "ab c\r\n"},
        {"nessun pezzo", [](Canali& c) { c.Print(2); }, "\r\n"},
        {"byte 196", [](Canali& c) { c.Print(2, Chr(196) + Chr(0) + Chr(255)); }, Testo("\xC4\0\xFF\r\n", 5)},
        {"due", [](Canali& c) { c.Print(2, "1"), c.Print(2, "2"); }, "1\r\n2\r\n"},
    };
    for (const Caso& caso : casi) {
        Banco b;
        b.Canale.OpenOutput(2, "\\p\\out");
        caso.Scrivi(b.Canale);
        b.Canale.Close(2);
        EXPECT_EQ(b.Disco.Leggi("/p/out"), caso.Atteso) << caso.Nome;
    }
}

TEST(Canali, PrintAlBordoDelBlocco) {
    for (int oltre = -4; oltre <= 4; ++oltre) {
        const Testo testo(BloccoScritto - 4 + static_cast<std::size_t>(oltre + 4), 'x');
        Banco b;
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Canale.Print(2, testo);           // alone in the buffer
        b.Canale.Print(2, "a", testo, "b"); // after something
        b.Canale.Print(2, "c");
        b.Canale.Print(2, testo + testo + testo);
        b.Canale.Close(2);
        ASSERT_TRUE(b.Disco.Leggi("/p/out") ==
                    testo + "\r\na" + testo + "b\r\nc\r\n" + testo + testo + testo + "\r\n")
            << oltre;
    }
}

TEST(Canali, PrintPezziDiOgniLunghezza) {
    // Short pieces are copied in strides: each length, at the front and after another.
    Testo attese;
    Banco b;
    b.Canale.OpenOutput(2, "\\p\\out");
    for (std::size_t n = 0; n <= 150; ++n) {
        Testo pezzo;
        for (std::size_t i = 0; i < n; ++i) pezzo += static_cast<char>('A' + (i * 7 + n) % 57);
        b.Canale.Print(2, pezzo);
        b.Canale.Print(2, "<", pezzo, Vista(), Vista(pezzo).substr(n / 2), ">");
        attese += pezzo + "\r\n<" + pezzo + pezzo.substr(n / 2) + ">\r\n";
    }
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), attese);
}

TEST(Canali, PrintRiga) {
    // The line from a channel's memory or from elsewhere, of each length, and what stands in front.
    Testo bytes;
    for (std::size_t n = 0; n <= 150; ++n) bytes += Testo(n, static_cast<char>('a' + n % 26)) + "\r\n";
    Banco b;
    b.Disco.Metti("/p/in", bytes);
    b.Canale.OpenInput(1, "\\p\\in");
    b.Canale.OpenOutput(2, "\\p\\out");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.PrintRiga(1, bytes), 0; }), 52);
    Testo attese;
    TestoLargo davanti;
    for (std::size_t n = 0; n <= 150; ++n) {
        const Vista letta = b.Canale.LineInput(1);
        davanti.assign(n, '.');
        b.Canale.PrintRiga(2, letta, davanti, "|");
        b.Canale.PrintRiga(2, Testo(letta), "", davanti);
        b.Canale.PrintRiga(2, letta);
        b.Canale.Print(2, davanti, "!");
        const Testo punti(n, '.');
        attese += punti + "|" + Testo(letta) + "\r\n" + punti + Testo(letta) + "\r\n" + Testo(letta) +
                  "\r\n" + punti + "!\r\n";
    }
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), attese);
    // At the border of a block.
    const Testo lunga(BloccoScritto, 'z');
    const Testo riga("riga");
    for (std::size_t meno = 0; meno <= 80; ++meno) {
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Canale.Print(2, Vista(lunga).substr(meno));
        b.Canale.PrintRiga(2, riga, davanti);
        b.Canale.Close(2);
        ASSERT_TRUE(b.Disco.Leggi("/p/out") == lunga.substr(meno) + "\r\n" + Testo(150, '.') + "riga\r\n")
            << meno;
    }
}

TEST(Canali, PrintPezzi) {
    Banco b;
    const Testo lungo(BloccoScritto + 1, 'x');
    const Vista pezzi[] = {"a", "", lungo, "b\r\n"};
    EXPECT_EQ(NumeroDi([&] { return b.Canale.PrintPezzi(2, pezzi), 0; }), 52);
    b.Canale.OpenOutput(2, "\\p\\out");
    b.Canale.PrintPezzi(2, pezzi);
    b.Canale.Print(2, "c");
    b.Canale.Close(2);
    EXPECT_TRUE(b.Disco.Leggi("/p/out") == "a" + lungo + "b\r\nc\r\n"); // the end is among the pieces
}

TEST(Canali, PrintDaUnaRigaLetta) {
    // A line is a look into the buffer of channel 1 and goes as it is to channel 2.
    Testo bytes;
    for (int i = 0; bytes.size() < 2 * Blocco; ++i) bytes += "riga " + CStr(i) + "\r\n";
    Banco b;
    b.Disco.Metti("/p/in", bytes);
    b.Canale.OpenInput(1, "\\p\\in");
    b.Canale.OpenOutput(2, "\\p\\out");
    while (!b.Canale.Eof(1)) b.Canale.Print(2, b.Canale.LineInput(1));
    b.Canale.Close(1);
    b.Canale.Close(2);
    EXPECT_TRUE(b.Disco.Leggi("/p/out") == bytes);
}

TEST(Canali, OpenOutputVuotaSubito) {
    Banco b;
    b.Disco.Metti("/p/out", "di prima");
    b.Canale.OpenOutput(2, "\\p\\out");
    EXPECT_EQ(b.Disco.Leggi("/p/out"), "");
    b.Canale.Close(2);
    EXPECT_EQ(b.Disco.Leggi("/p/out"), "");
}

TEST(Canali, Numero52) {
    Banco b;
    b.Disco.Metti("/p/in", "a\r\n");
    for (const int n : {1, 2, 7}) {
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(n); }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.LineInput(n); }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Print(n, "a"), 0; }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Close(n), 0; }), 0) << n; // no error
    }
    for (const int n : {-1, 0, 8, 1000}) {
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(n, "\\p\\in"), 0; }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(n, "\\p\\out"), 0; }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(n); }), 52) << n;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Close(n), 0; }), 0) << n;
        EXPECT_FALSE(b.Canale.Aperto(n));
    }
    EXPECT_FALSE(b.Disco.Esiste("/p/out"));
    b.Canale.OpenInput(1, "\\p\\in");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Print(1, "a"), 0; }), 52); // open the other way
    b.Canale.OpenOutput(2, "\\p\\out");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.LineInput(2); }), 52);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(2); }), 52);
    b.Canale.Close(1);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(1); }), 52); // closed again
    EXPECT_EQ(b.Disco.Leggi("/p/in"), "a\r\n");
}

TEST(Canali, OpenInputErrori) {
    Banco b;
    b.Disco.Metti("/p/in", "a");
    b.Disco.Metti("/p/guasto", "a");
    b.Disco.FaiDirectory("/p/dir");
    b.Disco.Fallisci("Esamina", "/guasto", 75);
    struct Caso {
        const char* Percorso;
        int Numero;
    };
    constexpr Caso Casi[] = {
        {"\\p\\manca", 53},  {"\\p\\manca\\in", 76}, {"\\manca\\in", 76},
        {"\\p\\in\\in", 76}, {"\\p\\in\\x\\in", 76}, {"\\p\\dir", 75},
        {"\\p\\guasto", 75}, {"\\p\\dir\\in", 53},   {"manca", 53},
    };
    for (const Caso& c : Casi) {
        const Errore e = ErroreDi([&] { return b.Canale.OpenInput(1, c.Percorso), 0; });
        EXPECT_EQ(e.Numero, c.Numero) << c.Percorso;
        EXPECT_EQ(e.File, c.Percorso);
        EXPECT_FALSE(b.Canale.Aperto(1)) << c.Percorso;
    }
    b.Canale.OpenInput(1, "\\p\\in"); // the number is free still
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\manca"), 0; }), 55); // the number first
    EXPECT_EQ(b.Canale.LineInput(1), "a");
}

TEST(Canali, OpenOutputErrori) {
    Banco b;
    b.Disco.Metti("/p/file", "a");
    b.Disco.Metti("/p/guasto", "a");
    b.Disco.FaiDirectory("/p/dir");
    b.Disco.Fallisci("Esamina", "/guasto", 75);
    const auto prima = b.Disco.TuttiIFile();
    struct Caso {
        const char* Percorso;
        int Numero;
    };
    constexpr Caso Casi[] = {
        {"\\p\\manca\\out", 76}, {"\\p\\manca\\sotto\\out", 76},
        {"\\manca\\out", 76},    {"\\p\\file\\out", 76},
        {"\\p\\dir", 75},        {"\\p\\guasto", 75},
    };
    for (const Caso& c : Casi) {
        const Errore e = ErroreDi([&] { return b.Canale.OpenOutput(2, c.Percorso), 0; });
        EXPECT_EQ(e.Numero, c.Numero) << c.Percorso;
        EXPECT_EQ(e.File, c.Percorso);
        EXPECT_FALSE(b.Canale.Aperto(2)) << c.Percorso;
    }
    EXPECT_EQ(b.Disco.TuttiIFile(), prima); // nothing made, nothing emptied
}

TEST(Canali, NumeriDelDisco) {
    // What the disk says at the very call goes out with the system's own path.
    for (const int numero : {7, 57, 61, 70, 71, 75, 76}) {
        Banco b;
        b.Disco.Metti("/p/in", "a");
        b.Disco.Fallisci("ApriLettura", "/in", numero, 1);
        b.Disco.Fallisci("ApriScrittura", "/out", numero, 1);
        Errore e = ErroreDi([&] { return b.Canale.OpenInput(1, "\\P\\IN"), 0; });
        EXPECT_EQ(e.Numero, numero);
        EXPECT_EQ(e.File, "\\P\\IN");
        e = ErroreDi([&] { return b.Canale.OpenOutput(2, "\\p\\out"), 0; });
        EXPECT_EQ(e.Numero, numero);
        EXPECT_EQ(e.File, "\\p\\out");
        EXPECT_FALSE(b.Canale.Aperto(1) || b.Canale.Aperto(2));
        b.Canale.OpenInput(1, "\\p\\in");
        b.Canale.OpenOutput(2, "\\p\\out");
    }
}

TEST(Canali, LetturaGuasta) {
    Banco b;
    b.Disco.Metti("/p/in", Testo(Blocco, 'x') + "\r\n");
    b.Canale.OpenInput(1, "\\p\\in");
    b.Disco.Fallisci("Leggi", "/in", 57, 1);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Eof(1); }), 57);
    EXPECT_FALSE(b.Canale.Eof(1)); // the next attempt reads
    b.Disco.Fallisci("Leggi", "/in", 57, 1);
    const Errore e = ErroreDi([&] { return b.Canale.LineInput(1); }); // in the middle of a line
    EXPECT_EQ(e.Numero, 57);
    EXPECT_EQ(e.File, "\\p\\in");
    EXPECT_TRUE(b.Canale.LineInput(1) == Testo(Blocco, 'x')); // nothing of it was lost
}

TEST(Canali, ErroreDiChiusura) {
    for (const int numero : {57, 61}) {
        Banco b;
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Canale.Print(2, "a");
        b.Disco.Fallisci("Chiudi", "/out", numero, 1);
        const Errore e = ErroreDi([&] { return b.Canale.Close(2), 0; });
        EXPECT_EQ(e.Numero, numero);
        EXPECT_EQ(e.File, "\\p\\out");
        EXPECT_FALSE(b.Canale.Aperto(2)); // it is closed all the same
        EXPECT_EQ(NumeroDi([&] { return b.Canale.Close(2), 0; }), 0);
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Canale.Print(2, "b");
        b.Canale.Close(2);
        EXPECT_EQ(b.Disco.Leggi("/p/out"), "b\r\n"); // and nothing of before is left over
    }
}

TEST(Canali, DiscoPienoNonSiPerdeInSilenzio) {
    const Testo riga(998, 'x');
    Testo tutto;
    while (tutto.size() < 3 * BloccoScritto) tutto += riga + "\r\n";
    const std::size_t spazi[] = {0,
                                 1,
                                 500,
                                 BloccoScritto - 1,
                                 BloccoScritto,
                                 BloccoScritto + 1,
                                 2 * BloccoScritto,
                                 3 * BloccoScritto,
                                 tutto.size() - 2,
                                 tutto.size() - 1,
                                 tutto.size(),
                                 tutto.size() + 1};
    for (const std::size_t spazio : spazi) {
        Banco b;
        b.Canale.OpenOutput(2, "\\p\\out");
        b.Disco.SpazioLibero = spazio;
        int errori = 0;
        bool chiuso = false;
        const auto conta = [&](auto&& statement) {
            const Errore e = ErroreDi(statement);
            if (e.Numero == 0) return true;
            EXPECT_EQ(e.Numero, 61);
            EXPECT_EQ(e.File, "\\p\\out");
            ++errori;
            return false;
        };
        for (std::size_t i = 0; i < tutto.size() / 1000; ++i)
            if (!conta([&] { return b.Canale.Print(2, riga), 0; })) break;
        if (errori == 0 && spazio < tutto.size()) chiuso = true; // then Close has to tell
        conta([&] { return b.Canale.Close(2), 0; });
        EXPECT_EQ(errori, spazio < tutto.size() ? 1 : 0) << spazio << (chiuso ? " Close" : " Print");
        EXPECT_TRUE(b.Disco.Leggi("/p/out") == tutto.substr(0, std::min(spazio, tutto.size()))) << spazio;
        EXPECT_FALSE(b.Canale.Aperto(2));
    }
}

TEST(Canali, DiscoPienoDettoDaClose) {
    // A text smaller than a block reaches the disk at Close: there it is first known.
    Banco b;
    b.Canale.OpenOutput(2, "\\p\\out");
    b.Disco.SpazioLibero = 0;
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Print(2, "a"), 0; }), 0);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.Close(2), 0; }), 61);
}

TEST(Canali, Numero55PerNumero) {
    Banco b;
    b.Disco.Metti("/p/a", "a");
    b.Disco.Metti("/p/b", "b");
    b.Canale.OpenInput(1, "\\p\\a");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\b"), 0; }), 55);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(1, "\\p\\b"), 0; }), 55);
    EXPECT_EQ(b.Disco.Leggi("/p/b"), "b");
    EXPECT_EQ(b.Canale.LineInput(1), "a"); // the channel is as it was
    b.Canale.OpenOutput(2, "\\p\\c");
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, "\\p\\d"), 0; }), 55);
    EXPECT_FALSE(b.Disco.Esiste("/p/d"));
    b.Canale.Close(1);
    b.Canale.OpenInput(1, "\\p\\b");
}

TEST(Canali, Numero55PerFileComunqueScritto) {
    for (const char* percorso :
         {"\\p\\Testo.txt", "\\p\\TESTO.TXT", "/p/testo.txt", "\\P\\.\\Testo.txt", "\\p\\x\\..\\Testo.txt",
          "\\p\\\\Testo.txt", "Testo.txt", "..\\p\\testo.TXT"}) {
        Banco b;
        b.Disco.Metti("/p/Testo.txt", "a\r\n");
        b.Canale.OpenInput(1, "\\p\\Testo.txt");
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(2, percorso), 0; }), 55) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, percorso), 0; }), 55) << percorso;
        EXPECT_FALSE(b.Canale.Aperto(2));
        EXPECT_EQ(b.Disco.Leggi("/p/Testo.txt"), "a\r\n") << percorso; // not emptied
        b.Canale.Close(1);

        b.Disco.Metti("/p/Testo.txt", "a\r\n");
        b.Canale.OpenOutput(2, "\\p\\Testo.txt");
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, percorso), 0; }), 55) << percorso;
        EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(7, percorso), 0; }), 55) << percorso;
        b.Canale.Print(2, "b");
        b.Canale.Close(2);
        EXPECT_EQ(b.Disco.Leggi("/p/Testo.txt"), "b\r\n");
        b.Canale.OpenInput(1, percorso); // closed: free again
    }
}

TEST(Canali, Numero55PerFileNuovo) {
    Banco b;
    b.Canale.OpenOutput(2, "\\p\\nuovo.txt"); // it was not there when it was opened
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(1, "\\p\\NUOVO.txt"), 0; }), 55);
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenInput(1, "\\p\\NUOVO.txt"), 0; }), 55);
}

TEST(Canali, Numero70FileProtetto) {
    Banco b;
    b.Disco.Metti("/p/Fonte.bas", "a\r\n");
    b.File.Proteggi({"\\p\\Fonte.bas"});
    const Errore e = ErroreDi([&] { return b.Canale.OpenOutput(2, "\\p\\fonte.BAS"), 0; });
    EXPECT_EQ(e.Numero, 70);
    EXPECT_EQ(e.File, "\\p\\fonte.BAS");
    EXPECT_EQ(b.Disco.Leggi("/p/Fonte.bas"), "a\r\n");
    b.Canale.OpenInput(1, "\\p\\Fonte.bas"); // reading is what it is there for
    EXPECT_EQ(NumeroDi([&] { return b.Canale.OpenOutput(2, "\\p\\Fonte.bas"), 0; }), 70); // not 55
    EXPECT_EQ(b.Canale.LineInput(1), "a");
}

} // namespace

} // namespace morvella
