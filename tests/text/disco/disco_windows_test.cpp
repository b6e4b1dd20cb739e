// SPDX-License-Identifier: MIT
//
// The Windows backend, on the machine's own disk: what its errors come to, hidden files, names
// in any script, long paths, the current directory of each drive. Another program's hold on a
// file is a second handle here, for which the rules are the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>

#include "text/disco/utf16.h"
#include "text/primitive.h"

namespace fs = std::filesystem;

namespace morvella {

namespace {

int Numero(const std::function<void()>& f) {
    try {
        f();
    } catch (const Errore& e) {
        return e.Numero;
    }
    return 0;
}

class DiscoWindowsProva : public testing::Test {
  protected:
    DiscoWindowsProva() {
        wchar_t temporanea[MAX_PATH + 1];
        ::GetTempPathW(MAX_PATH + 1, temporanea);
        radice_ = fs::path(temporanea) / (L"morvella" + std::to_wstring(::GetCurrentProcessId()) + L"-" +
                                          std::to_wstring(::GetTickCount64()));
        fs::create_directories(radice_);
        qui_ = PercorsoDaUtf16(radice_.wstring());
        prima_ = fs::current_path();
        fs::current_path(radice_.root_path());
    }
    ~DiscoWindowsProva() override {
        fs::current_path(prima_);
        for (const auto& voce : fs::directory_iterator(radice_))
            ::SetFileAttributesW(voce.path().c_str(), FILE_ATTRIBUTE_NORMAL);
        std::error_code errore;
        fs::remove_all(radice_, errore);
    }

    void Scrivi(const std::string& nome, const std::string& bytes) {
        const auto file = disco_->ApriScrittura(qui_ + "/" + nome);
        file->Scrivi(bytes.data(), bytes.size());
        file->Chiudi();
    }
    std::string Leggi(const std::string& nome) {
        const auto file = disco_->ApriLettura(qui_ + "/" + nome);
        std::string bytes(100, '\0');
        bytes.resize(file->Leggi(bytes.data(), bytes.size()));
        return bytes;
    }
    std::wstring Largo(const std::string& nome) const { return (radice_ / Utf16DaUtf8(nome)).wstring(); }
    void Attributi(const std::string& nome, DWORD attributi) {
        ASSERT_TRUE(::SetFileAttributesW(Largo(nome).c_str(), attributi));
    }

    fs::path radice_;
    fs::path prima_;
    std::string qui_;
    std::unique_ptr<Disco> disco_ = DiscoReale();
};

TEST_F(DiscoWindowsProva, NomiInOgniScrittura) {
    for (const std::string nome : {"quantit\xC3\xA0.txt", "\xE3\x83\x97\xE3\x83\xAD.txt"}) {
        Scrivi(nome, "abc");
        EXPECT_TRUE(fs::exists(Largo(nome))) << nome;
        EXPECT_EQ(Leggi(nome), "abc") << nome;
        EXPECT_EQ(disco_->Elenca(qui_), std::vector<std::string>{nome});
        disco_->Cancella(qui_ + "/" + nome);
        EXPECT_FALSE(disco_->Esamina(qui_ + "/" + nome).Esiste()) << nome;
    }
    EXPECT_FALSE(disco_->Esamina(qui_ + "/quantit\xE0.txt").Esiste()); // no UTF-8: no name at all
}

TEST_F(DiscoWindowsProva, UnNomeInAltreMaiuscoleELoStessoFile) {
    Scrivi("Uno.txt", "1");
    Scrivi("Due.txt", "2");
    const Scheda uno = disco_->Esamina(qui_ + "/Uno.txt");
    EXPECT_EQ(uno.Tipo, TipoVoce::File);
    EXPECT_EQ(uno.Bytes, 1u);
    EXPECT_EQ(uno.Chi, disco_->Esamina(qui_ + "/uNO.TXT").Chi);
    EXPECT_FALSE(uno.Chi == disco_->Esamina(qui_ + "/Due.txt").Chi);
    Scrivi("UNO.TXT", "nuovo"); // keeps its spelling
    EXPECT_EQ(Leggi("Uno.txt"), "nuovo");
    std::vector<std::string> nomi = disco_->Elenca(qui_);
    std::sort(nomi.begin(), nomi.end());
    EXPECT_EQ(nomi, (std::vector<std::string>{"Due.txt", "Uno.txt"}));
    EXPECT_FALSE(disco_->DistingueMaiuscole());
}

TEST_F(DiscoWindowsProva, NumeriDegliErrori) {
    Scrivi("x", "");
    disco_->CreaDirectory(qui_ + "/d");
    EXPECT_EQ(Numero([&] { disco_->ApriLettura(qui_ + "/manca"); }), ErrFileAssente);
    EXPECT_EQ(Numero([&] { disco_->ApriLettura(qui_ + "/manca/x"); }), ErrPercorso);
    EXPECT_EQ(Numero([&] { disco_->ApriLettura(qui_ + "/x/y"); }), ErrPercorso);
    EXPECT_EQ(Numero([&] { disco_->ApriLettura(qui_ + "/d"); }), ErrAccesso);
    EXPECT_EQ(Numero([&] { disco_->ApriScrittura(qui_ + "/d"); }), ErrAccesso);
    EXPECT_EQ(Numero([&] { disco_->ApriScrittura(qui_ + "/manca/x"); }), ErrPercorso);
    EXPECT_EQ(Numero([&] { disco_->ApriScrittura(qui_ + "/a?b"); }), ErrNumeroFile);
    EXPECT_EQ(Numero([&] { disco_->CreaDirectory(qui_ + "/d"); }), ErrAccesso);
    EXPECT_EQ(Numero([&] { disco_->CreaDirectory(qui_ + "/x"); }), ErrAccesso);
    EXPECT_EQ(Numero([&] { disco_->CreaDirectory(qui_ + "/manca/d"); }), ErrPercorso);
    EXPECT_EQ(Numero([&] { disco_->CambiaDirectory(qui_ + "/manca"); }), ErrPercorso);
    EXPECT_EQ(Numero([&] { disco_->CambiaDirectory(qui_ + "/x"); }), ErrPercorso);
    EXPECT_EQ(Numero([&] { disco_->Cancella(qui_ + "/manca"); }), ErrFileAssente);
    EXPECT_EQ(Numero([&] { disco_->Cancella(qui_ + "/d"); }), ErrAccesso);
    EXPECT_EQ(Numero([&] { disco_->Copia(qui_ + "/manca", qui_ + "/y"); }), ErrFileAssente);
    EXPECT_FALSE(disco_->Esamina(qui_ + "/y").Esiste());
    EXPECT_EQ(Numero([&] { disco_->Copia(qui_ + "/x", qui_ + "/manca/y"); }), ErrPercorso);
    EXPECT_EQ(Numero([&] { disco_->Elenca(qui_ + "/manca"); }), ErrPercorso);
    EXPECT_EQ(Numero([&] { disco_->Avvia("manca-davvero.exe", qui_ + "/x", 3); }), ErrFileAssente);
    const Scheda niente = disco_->Esamina(qui_ + "/x/y");
    EXPECT_FALSE(niente.Esiste());
    EXPECT_EQ(niente.Errore, 0);
    EXPECT_FALSE(disco_->Esamina(qui_ + "/\tx").Esiste());
    EXPECT_EQ(disco_->Esamina(qui_ + "/\tx").Errore, 0);
}

TEST_F(DiscoWindowsProva, UnDispositivoNonEUnFile) {
    EXPECT_NE(disco_->Esamina(qui_ + "/nul").Tipo, TipoVoce::File);
    EXPECT_NE(Numero([&] { disco_->ApriScrittura("nul"); }), 0);
}

TEST_F(DiscoWindowsProva, SolaLettura) {
    Scrivi("sola", "1");
    Scrivi("altra", "22");
    Attributi("sola", FILE_ATTRIBUTE_READONLY);
    const HANDLE lecito =
        ::CreateFileW(Largo("sola").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (lecito != INVALID_HANDLE_VALUE) {
        ::CloseHandle(lecito);
        GTEST_SKIP() << "here even a read-only file can be written"; // Wine, run by root
    }
    EXPECT_EQ(Numero([&] { disco_->ApriScrittura(qui_ + "/sola"); }), ErrAccesso);
    EXPECT_EQ(Numero([&] { disco_->Copia(qui_ + "/altra", qui_ + "/sola"); }), ErrAccesso);
    EXPECT_EQ(Numero([&] { disco_->Cancella(qui_ + "/sola"); }), ErrAccesso);
    EXPECT_EQ(Leggi("sola"), "1");
    // The copy of a read-only file is a plain one: the next run writes over it.
    disco_->Copia(qui_ + "/sola", qui_ + "/copia");
    disco_->Copia(qui_ + "/altra", qui_ + "/copia");
    EXPECT_EQ(Leggi("copia"), "22");
}

TEST_F(DiscoWindowsProva, IlFileDiUnAltro) {
    Scrivi("preso", "1");
    const HANDLE altro =
        ::CreateFileW(Largo("preso").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(altro, INVALID_HANDLE_VALUE);
    EXPECT_EQ(Numero([&] { disco_->ApriLettura(qui_ + "/preso"); }), ErrPermesso);
    EXPECT_EQ(Numero([&] { disco_->ApriScrittura(qui_ + "/preso"); }), ErrPermesso);
    EXPECT_EQ(Numero([&] { disco_->Cancella(qui_ + "/preso"); }), ErrPermesso);
    EXPECT_EQ(disco_->Esamina(qui_ + "/preso").Tipo, TipoVoce::File); // it can be seen all the same
    ::CloseHandle(altro);
    EXPECT_EQ(Leggi("preso"), "1");
}

TEST_F(DiscoWindowsProva, UnFileApertoQuiNonSiCancella) {
    Scrivi("aperto", "1");
    const auto file = disco_->ApriLettura(qui_ + "/aperto");
    EXPECT_EQ(Numero([&] { disco_->Cancella(qui_ + "/aperto"); }), ErrPermesso);
}

TEST_F(DiscoWindowsProva, DirNonVedeINascosti) {
    Archivio archivio(*disco_);
    const Testo qui = archivio.Aggancia(Gancio::Progetto, qui_);
    Scrivi("nascosto", "1");
    Attributi("nascosto", FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(archivio.Dir(qui + "\\nascosto", 0), "");
    EXPECT_EQ(archivio.Dir(qui + "\\nascosto", 16), "");
    EXPECT_EQ(archivio.Dir(qui + "\\*.*", 0), "");
    Canali canali(archivio);
    canali.OpenInput(1, qui + "\\nascosto"); // but who knows the name can read it
    EXPECT_EQ(canali.LineInput(1), "1");
    canali.Close(1);
    Attributi("nascosto", FILE_ATTRIBUTE_SYSTEM);
    EXPECT_EQ(archivio.Dir(qui + "\\nascosto", 0), "");
    Attributi("nascosto", FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(archivio.Dir(qui + "\\NASCOSTO", 0), "NASCOSTO"); // the name as it was asked
    EXPECT_EQ(archivio.Dir(qui + "\\*.*", 0), "nascosto");
}

TEST_F(DiscoWindowsProva, PercorsiLunghi) {
    std::string percorso = qui_;
    for (int i = 0; i < 5; ++i) {
        percorso += "/" + std::string(60, static_cast<char>('a' + i));
        disco_->CreaDirectory(percorso);
    }
    ASSERT_GT(percorso.size(), 300u);
    const auto file = disco_->ApriScrittura(percorso + "/x");
    file->Scrivi("abc", 3);
    file->Chiudi();
    disco_->Copia(percorso + "/x", percorso + "/../y");
    EXPECT_EQ(disco_->Esamina(percorso + "/x").Bytes, 3u);
    EXPECT_EQ(disco_->Elenca(percorso), std::vector<std::string>{"x"});
    char buffer[1000];
    const unsigned long n = disco_->GetShortPathNameA(percorso + "/x", buffer, sizeof buffer);
    ASSERT_GT(n, 3u);
    EXPECT_EQ(buffer[1], ':'); // without the prefix of long paths
    disco_->Cancella(percorso + "/x");
    disco_->Cancella(percorso + "/../y");
    EXPECT_TRUE(disco_->Elenca(percorso).empty());
    for (; percorso.size() > qui_.size(); percorso.erase(percorso.find_last_of('/'))) {
        std::wstring lungo = L"\\\\?\\" + Utf16DaUtf8(percorso);
        std::replace(lungo.begin(), lungo.end(), L'/', L'\\');
        EXPECT_TRUE(::RemoveDirectoryW(lungo.c_str()));
    }
}

TEST_F(DiscoWindowsProva, DirectoryCorrente) {
    disco_->CambiaDirectory(qui_);
    EXPECT_EQ(disco_->Esamina(".").Chi, disco_->Esamina(qui_).Chi);
    const std::string corrente = disco_->DirectoryCorrente();
    EXPECT_EQ(corrente.find('\\'), std::string::npos);
    EXPECT_EQ(disco_->Esamina(corrente).Chi, disco_->Esamina(qui_).Chi);
    EXPECT_EQ(disco_->DirectoryUnita(qui_.substr(0, 2)), corrente);
    EXPECT_EQ(disco_->Assoluto("..\\x/./p.vbp"), corrente.substr(0, corrente.find_last_of('/')) + "/x/p.vbp");
    EXPECT_EQ(disco_->Assoluto("/p.vbp"), qui_.substr(0, 2) + "/p.vbp");
    EXPECT_EQ(disco_->Assoluto(qui_.substr(0, 2) + "\xC3\xA8"), corrente + "/\xC3\xA8");
    EXPECT_EQ(disco_->Assoluto("\\\\srv\\sh\\d\\..\\p.vbp"), "//srv/sh/p.vbp");
    EXPECT_EQ(disco_->Assoluto("\\\\?\\C:\\d\\p.vbp"), "C:/d/p.vbp");
    EXPECT_EQ(disco_->Assoluto("C:/"), "C:/");
    // The drives, with this one among them.
    std::string lettere;
    for (const Unita& u : disco_->ElencaUnita()) {
        ASSERT_EQ(u.Lettera.size(), 2u);
        EXPECT_EQ(u.Directory, u.Lettera + "/");
        lettere += u.Lettera[0];
    }
    EXPECT_TRUE(std::is_sorted(lettere.begin(), lettere.end()));
    EXPECT_EQ(std::adjacent_find(lettere.begin(), lettere.end()), lettere.end());
    const std::string questa = {static_cast<char>(corrente[0] & ~0x20), ':'};
    EXPECT_EQ(UnitaDi(disco_->ElencaUnita(), corrente), questa);
    // A drive that nobody uses.
    const DWORD unita = ::GetLogicalDrives();
    for (char lettera = 'Z'; lettera >= 'C'; --lettera) {
        if ((unita >> (lettera - 'A') & 1) != 0) continue;
        EXPECT_EQ(Numero([&] { disco_->DirectoryUnita(std::string(1, lettera) + ":"); }), ErrUnita);
        EXPECT_EQ(Numero([&] { disco_->CambiaDirectory(std::string(1, lettera) + ":/x"); }), ErrPercorso);
        break;
    }
}

TEST_F(DiscoWindowsProva, EntrareInUnAltraUnitaNonLaRendeCorrente) {
    disco_->CambiaDirectory(qui_);
    const std::string corrente = disco_->DirectoryCorrente();
    const DWORD unita = ::GetLogicalDrives();
    for (char lettera = 'C'; lettera <= 'Z'; ++lettera) {
        const std::string altra = std::string(1, lettera) + ":";
        if ((unita >> (lettera - 'A') & 1) == 0 || lettera == corrente[0]) continue;
        if (disco_->Esamina(altra + "/").Tipo != TipoVoce::Directory) continue;
        for (const std::string& nome : disco_->Elenca(altra + "/")) {
            if (disco_->Esamina(altra + "/" + nome).Tipo != TipoVoce::Directory) continue;
            disco_->CambiaDirectory(altra + "/" + nome);
            EXPECT_EQ(disco_->DirectoryCorrente(), corrente);
            EXPECT_EQ(disco_->DirectoryUnita(altra), altra + "/" + nome);
            EXPECT_EQ(Numero([&] { disco_->CambiaDirectory(altra + "/manca davvero"); }), ErrPercorso);
            return;
        }
    }
    GTEST_SKIP() << "no second drive";
}

TEST_F(DiscoWindowsProva, PercorsoCorto) {
    Scrivi("un nome lungo con blank.txt", "");
    const std::string percorso = qui_ + "/un nome lungo con blank.txt";
    char buffer[400];
    const unsigned long n = disco_->GetShortPathNameA(percorso, buffer, sizeof buffer);
    ASSERT_GT(n, 0u);
    EXPECT_EQ(std::string(buffer).size(), n);
    EXPECT_EQ(std::string(buffer).find('/'), std::string::npos);
    EXPECT_EQ(disco_->Esamina(buffer).Chi, disco_->Esamina(percorso).Chi);
    char esatto[400] = "intatto";
    EXPECT_EQ(disco_->GetShortPathNameA(percorso, esatto, n), n + 1);
    EXPECT_STREQ(esatto, "intatto");
    EXPECT_EQ(disco_->GetShortPathNameA(percorso, esatto, n + 1), n);
    EXPECT_STREQ(esatto, buffer);
    EXPECT_EQ(disco_->GetShortPathNameA(qui_ + "/manca", buffer, sizeof buffer), 0u);
    EXPECT_TRUE(disco_->HaPercorsiCorti());
}

TEST_F(DiscoWindowsProva, DateEOre) {
    Scrivi("x", "");
    SYSTEMTIME locale{};
    locale.wYear = 2024;
    locale.wMonth = 2;
    locale.wDay = 29;
    locale.wHour = 23;
    locale.wMinute = 5;
    locale.wSecond = 9;
    SYSTEMTIME universale{};
    FILETIME tempo{};
    ASSERT_TRUE(::TzSpecificLocalTimeToSystemTime(nullptr, &locale, &universale));
    ASSERT_TRUE(::SystemTimeToFileTime(&universale, &tempo));
    const HANDLE file =
        ::CreateFileW(Largo("x").c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(::SetFileTime(file, nullptr, nullptr, &tempo));
    ::CloseHandle(file);
    const Istante quando = disco_->UltimaModifica(disco_->Esamina(qui_ + "/x"));
    EXPECT_EQ(quando.Anno, 2024);
    EXPECT_EQ(quando.Mese, 2);
    EXPECT_EQ(quando.Giorno, 29);
    EXPECT_EQ(quando.Ora, 23);
    EXPECT_EQ(quando.Minuto, 5);
    EXPECT_EQ(quando.Secondo, 9);
    // How they are written is the user's own business; the numbers are in it.
    EXPECT_NE(disco_->TestoData(quando).find("29"), std::string::npos);
    EXPECT_NE(disco_->TestoOra(quando).find("05"), std::string::npos);
}

TEST_F(DiscoWindowsProva, Scrivibile) {
    Scrivi("file", "x");
    EXPECT_TRUE(disco_->Scrivibile(qui_));
    EXPECT_FALSE(disco_->Scrivibile(qui_ + "/assente"));
    EXPECT_FALSE(disco_->Scrivibile(qui_ + "/file"));
    EXPECT_EQ(disco_->Elenca(qui_), std::vector<std::string>{"file"}); // no trace
}

TEST_F(DiscoWindowsProva, DirectoryUtente) {
    wchar_t prima[32767];
    const DWORD lunga = ::GetEnvironmentVariableW(L"APPDATA", prima, 32767);
    ::SetEnvironmentVariableW(L"APPDATA", L"C:\\Users\\Nicol\u00F2\\AppData\\Roaming\\");
    EXPECT_EQ(disco_->DirectoryUtente(), "C:/Users/Nicol\xC3\xB2/AppData/Roaming/Morvella");
    ::SetEnvironmentVariableW(L"APPDATA", nullptr);
    EXPECT_EQ(disco_->DirectoryUtente(), "");
    ::SetEnvironmentVariableW(L"APPDATA", lunga > 0 ? prima : nullptr);
}

} // namespace

} // namespace morvella
