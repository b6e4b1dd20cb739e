// SPDX-License-Identifier: MIT
//
// The Windows backend. Every name goes to the system in UTF-16, so that the machine's code page
// never decides which file is meant.
#include <algorithm>

#include "text/disco/disco.h"
#include "text/disco/utf16.h"

namespace morvella {

namespace {

int NumeroDaWindows(DWORD errore) {
    switch (errore) {
    case ERROR_FILE_NOT_FOUND: return ErrFileAssente;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY: // a plain file where a directory is needed
    case ERROR_CANT_RESOLVE_FILENAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME: return ErrPercorso;
    case ERROR_INVALID_NAME: return ErrNumeroFile;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_BUSY: return ErrPermesso; // another program has it
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case 1295: // the user's quota; not every compiler's headers name it
    case ERROR_FILE_TOO_LARGE: return ErrDiscoPieno;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_SYSTEM_RESOURCES: return ErrMemoria;
    case ERROR_NOT_READY:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_INVALID_DRIVE:
    case ERROR_DEV_NOT_EXIST: return ErrUnita;
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_WRITE_FAULT:
    case ERROR_READ_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_IO_DEVICE:
    case ERROR_FILE_CORRUPT:
    case ERROR_DISK_CORRUPT:
    case ERROR_NETNAME_DELETED:
    case ERROR_UNEXP_NET_ERR: return ErrDispositivo;
    default: return ErrAccesso; // no right to it, read-only, a directory in the place of a file, and the rest
    }
}

[[noreturn]] void Solleva() { throw Errore(NumeroDaWindows(::GetLastError())); }

// For what cannot tell a missing file from a missing directory: 76 for both.
[[noreturn]] void SollevaPerDirectory() {
    const int numero = NumeroDaWindows(::GetLastError());
    throw Errore(numero == ErrFileAssente ? ErrPercorso : numero);
}

// The text that a call writes to a buffer, where only the call knows its length; "" when it fails.
template <class F>
std::wstring Chiedi(F&& chiamata) {
    std::wstring testo(MAX_PATH, L'\0');
    for (;;) {
        const DWORD n = chiamata(testo.data(), static_cast<DWORD>(testo.size()));
        const bool basta = n < testo.size();
        testo.resize(n);
        if (basta) return testo;
    }
}

std::wstring Intero(const std::wstring& percorso) {
    return Chiedi([&](wchar_t* buffer, DWORD misura) {
        return ::GetFullPathNameW(percorso.c_str(), misura, buffer, nullptr);
    });
}

std::wstring DirectoryDelProcesso() {
    return Chiedi([](wchar_t* buffer, DWORD misura) { return ::GetCurrentDirectoryW(misura, buffer); });
}

constexpr std::wstring_view PrefissoLungo = L"\\\\?\\";
constexpr std::wstring_view PrefissoRete = L"\\\\?\\UNC\\";

// A path as the calls want it. A long one needs a prefix: without it they stop at 260 characters,
// a little earlier for a directory. Bytes that are not UTF-8 give "", which is never found.
std::wstring Largo(const std::string& percorso) {
    std::wstring largo = Utf16DaUtf8(percorso, MB_ERR_INVALID_CHARS);
    std::replace(largo.begin(), largo.end(), L'/', L'\\');
    if (largo.size() < 240 || largo.starts_with(PrefissoLungo)) return largo;
    largo = Intero(largo);
    return largo.starts_with(L"\\\\") ? std::wstring(PrefissoRete) + largo.substr(2)
                                      : std::wstring(PrefissoLungo) + largo;
}

// The same path without the prefix, for the texts that others read.
std::wstring SenzaPrefisso(const std::wstring& largo) {
    if (largo.starts_with(PrefissoRete)) return L"\\\\" + largo.substr(PrefissoRete.size());
    return largo.starts_with(PrefissoLungo) ? largo.substr(PrefissoLungo.size()) : largo;
}

// The absolute path as passed around here; no "/" at the end but for a root.
std::string InteroUtf8(std::wstring percorso) {
    std::replace(percorso.begin(), percorso.end(), L'/', L'\\');
    std::string intero = PercorsoDaUtf16(SenzaPrefisso(Intero(percorso)));
    while (intero.size() > 3 && intero.back() == '/') intero.pop_back();
    return intero;
}

// "//server" cannot be examined itself: it only leads to its shares.
bool SoloServer(const std::string& percorso) {
    return percorso.size() > 2 && percorso.starts_with("//") && percorso.find('/', 2) == std::string::npos;
}

class FileWindows : public FileAperto {
  public:
    explicit FileWindows(HANDLE file) : file_(file) {}
    FileWindows(const FileWindows&) = delete;
    FileWindows& operator=(const FileWindows&) = delete;
    ~FileWindows() override {
        if (file_ != INVALID_HANDLE_VALUE) ::CloseHandle(file_);
    }

    std::size_t Leggi(char* dove, std::size_t n) override {
        DWORD letti = 0;
        if (!::ReadFile(file_, dove, Pezzo(n), &letti, nullptr)) Solleva();
        return letti;
    }

    void Scrivi(const char* da, std::size_t n) override {
        while (n > 0) {
            DWORD scritti = 0;
            if (!::WriteFile(file_, da, Pezzo(n), &scritti, nullptr)) Solleva();
            if (scritti == 0) throw Errore(ErrDiscoPieno);
            da += scritti;
            n -= scritti;
        }
    }

    void Svuota() override {
        if (!::SetFilePointerEx(file_, {}, nullptr, FILE_BEGIN)) Solleva();
        if (::SetEndOfFile(file_)) return;
        const DWORD errore = ::GetLastError(); // another program has it in its memory, say
        ::SetFilePointerEx(file_, {}, nullptr, FILE_END);
        ::SetLastError(errore);
        Solleva();
    }

    void Chiudi() override {
        const HANDLE file = file_;
        file_ = INVALID_HANDLE_VALUE;
        if (!::CloseHandle(file)) Solleva();
    }

  private:
    static DWORD Pezzo(std::size_t n) { return static_cast<DWORD>(std::min<std::size_t>(n, 1u << 30)); }

    HANDLE file_;
};

// Others may read what is open here, and write what is only read here; nobody may delete it.
HANDLE Apri(const std::string& percorso, bool scrittura) {
    const HANDLE file =
        scrittura ? ::CreateFileW(Largo(percorso).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)
                  : ::CreateFileW(Largo(percorso).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (file == INVALID_HANDLE_VALUE) Solleva();
    if (::GetFileType(file) != FILE_TYPE_DISK) { // "nul", "com1": devices in every directory
        ::CloseHandle(file);
        throw Errore(ErrAccesso);
    }
    return file;
}

// What the disk says of one path, links followed. Opened without access rights, so that no lock
// stands in the way; false with the reason in GetLastError.
bool Interroga(const std::string& percorso, BY_HANDLE_FILE_INFORMATION& voce, bool& disco) {
    const HANDLE file = ::CreateFileW(Largo(percorso).c_str(), FILE_READ_ATTRIBUTES,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    disco = ::GetFileType(file) == FILE_TYPE_DISK;
    const bool detto = !disco || ::GetFileInformationByHandle(file, &voce);
    const DWORD errore = ::GetLastError();
    ::CloseHandle(file);
    ::SetLastError(errore);
    return detto;
}

std::uint64_t Unisci(DWORD alto, DWORD basso) { return (static_cast<std::uint64_t>(alto) << 32) | basso; }

Istante IstanteDa(const SYSTEMTIME& t) { return {t.wYear, t.wMonth, t.wDay, t.wHour, t.wMinute, t.wSecond}; }

SYSTEMTIME TempoDa(const Istante& quando) {
    SYSTEMTIME t{};
    t.wYear = static_cast<WORD>(quando.Anno);
    t.wMonth = static_cast<WORD>(quando.Mese);
    t.wDay = static_cast<WORD>(quando.Giorno);
    t.wHour = static_cast<WORD>(quando.Ora);
    t.wMinute = static_cast<WORD>(quando.Minuto);
    t.wSecond = static_cast<WORD>(quando.Secondo);
    return t;
}

constexpr UINT Pagina1252 = 1252;

class DiscoWindows : public Disco {
  public:
    // An empty drive is an error, not a box that waits for a disk.
    DiscoWindows() { ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS); }

    Scheda Esamina(const std::string& percorso) override {
        Scheda cosa;
        if (SoloServer(percorso)) {
            cosa.Tipo = TipoVoce::Directory;
            return cosa;
        }
        BY_HANDLE_FILE_INFORMATION voce{};
        bool disco = false;
        if (!Interroga(percorso, voce, disco)) {
            // A name that no file can have is a file that is not there, until somebody makes it.
            const int numero = NumeroDaWindows(::GetLastError());
            if (numero != ErrFileAssente && numero != ErrPercorso && numero != ErrNumeroFile)
                cosa.Errore = numero;
            return cosa;
        }
        cosa.Tipo = !disco                                                    ? TipoVoce::Altro
                    : (voce.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? TipoVoce::Directory
                                                                              : TipoVoce::File;
        cosa.Nascosto = (voce.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
        cosa.Chi = {voce.dwVolumeSerialNumber, Unisci(voce.nFileIndexHigh, voce.nFileIndexLow)};
        cosa.Bytes = Unisci(voce.nFileSizeHigh, voce.nFileSizeLow);
        cosa.Modificato = static_cast<std::int64_t>(
            Unisci(voce.ftLastWriteTime.dwHighDateTime, voce.ftLastWriteTime.dwLowDateTime));
        cosa.Quando = cosa.Modificato;
        return cosa;
    }

    std::vector<std::string> Elenca(const std::string& directory) override {
        std::wstring tutti = Largo(directory);
        if (!tutti.ends_with(L'\\')) tutti += L'\\';
        tutti += L'*';
        WIN32_FIND_DATAW voce;
        std::vector<std::string> nomi;
        const HANDLE ricerca = ::FindFirstFileExW(tutti.c_str(), FindExInfoBasic, &voce,
                                                  FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
        if (ricerca == INVALID_HANDLE_VALUE) {
            if (::GetLastError() == ERROR_FILE_NOT_FOUND) return nomi; // the root of an empty drive
            Solleva();
        }
        do {
            const std::wstring_view nome = voce.cFileName;
            if (nome != L"." && nome != L"..") nomi.push_back(BytesDaUtf16(nome));
        } while (::FindNextFileW(ricerca, &voce));
        const DWORD errore = ::GetLastError();
        ::FindClose(ricerca);
        if (errore != ERROR_NO_MORE_FILES) throw Errore(NumeroDaWindows(errore));
        return nomi;
    }

    std::unique_ptr<FileAperto> ApriLettura(const std::string& percorso) override {
        return std::make_unique<FileWindows>(Apri(percorso, false));
    }

    std::unique_ptr<FileAperto> ApriScrittura(const std::string& percorso) override {
        return std::make_unique<FileWindows>(Apri(percorso, true));
    }

    void CreaDirectory(const std::string& percorso) override {
        if (!::CreateDirectoryW(Largo(percorso).c_str(), nullptr)) SollevaPerDirectory();
    }

    // Each drive has a current directory, and one drive is the current one: entering a directory
    // of another drive leaves that as it is. Where the others are is kept in the environment, in
    // variables that begin with "=", which the system itself reads for a path like "D:x".
    void CambiaDirectory(const std::string& percorso) override {
        const std::wstring dove = Intero(SenzaPrefisso(Largo(percorso)));
        const auto unita = [](const std::wstring& p) {
            return p.size() > 1 && p[1] == L':' ? static_cast<wchar_t>(p[0] & ~0x20) : L'\0';
        };
        const wchar_t altra = unita(dove);
        const wchar_t corrente = unita(DirectoryDelProcesso());
        if (altra == L'\0' || corrente == L'\0' || altra == corrente) {
            if (!::SetCurrentDirectoryW(dove.c_str())) SollevaPerDirectory();
            return;
        }
        const Scheda cosa = Esamina(percorso);
        if (cosa.Errore != 0) throw Errore(cosa.Errore);
        if (cosa.Tipo != TipoVoce::Directory) throw Errore(ErrPercorso);
        const wchar_t nome[] = {L'=', altra, L':', L'\0'};
        ::SetEnvironmentVariableW(nome, dove.c_str());
    }

    std::string DirectoryCorrente() override { return PercorsoDaUtf16(DirectoryDelProcesso()); }

    std::string Assoluto(const std::string& percorso) override {
        return percorso.empty() ? DirectoryCorrente() : InteroUtf8(Utf16DaUtf8(percorso));
    }

    // Not CopyFile: a read-only source would leave a read-only copy, and the next run could not
    // write over it.
    void Copia(const std::string& da, const std::string& a) override {
        FileWindows sorgente(Apri(da, false));
        FileWindows destinazione(Apri(a, true));
        std::string blocco(256 * 1024, '\0');
        while (const std::size_t letti = sorgente.Leggi(blocco.data(), blocco.size()))
            destinazione.Scrivi(blocco.data(), letti);
        destinazione.Chiudi();
    }

    void Cancella(const std::string& percorso) override {
        if (!::DeleteFileW(Largo(percorso).c_str())) Solleva();
    }

    // Tried with a file that is deleted as it closes, even if this program dies: rights, read-only
    // disks and folder protection each refuse in a different place.
    bool Scrivibile(const std::string& directory) override {
        const std::string prova = directory + "/~morvella" + std::to_string(::GetCurrentProcessId()) + ".tmp";
        const HANDLE file =
            ::CreateFileW(Largo(prova).c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                          FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (file != INVALID_HANDLE_VALUE) {
            ::CloseHandle(file);
            return true;
        }
        return NumeroDaWindows(::GetLastError()) == ErrDiscoPieno;
    }

    std::string DirectoryUtente() override {
        const std::wstring dati =
            Chiedi([](wchar_t* b, DWORD n) { return ::GetEnvironmentVariableW(L"APPDATA", b, n); });
        return dati.empty() ? "" : InteroUtf8(dati) + "/Morvella";
    }

    Istante Adesso() override {
        SYSTEMTIME t{};
        ::GetLocalTime(&t);
        return IstanteDa(t);
    }

    Istante UltimaModifica(const Scheda& cosa) override {
        const auto ticchi = static_cast<std::uint64_t>(cosa.Quando);
        const FILETIME quando{static_cast<DWORD>(ticchi), static_cast<DWORD>(ticchi >> 32)};
        SYSTEMTIME universale{};
        SYSTEMTIME locale{};
        if (!::FileTimeToSystemTime(&quando, &universale) ||
            !::SystemTimeToTzSpecificLocalTime(nullptr, &universale, &locale))
            Solleva();
        return IstanteDa(locale);
    }

    // The user's own formats, as set in the control panel.
    std::string TestoData(const Istante& quando) override {
        const SYSTEMTIME t = TempoDa(quando);
        wchar_t testo[128];
        const int n = ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &t, nullptr, testo, 128);
        return n > 0 ? BytesDaUtf16(testo, Pagina1252) : Disco::TestoData(quando);
    }

    std::string TestoOra(const Istante& quando) override {
        const SYSTEMTIME t = TempoDa(quando);
        wchar_t testo[128];
        const int n = ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &t, nullptr, testo, 128);
        return n > 0 ? BytesDaUtf16(testo, Pagina1252) : Disco::TestoOra(quando);
    }

    // Sought in the system's directories and then in PATH, but never in the current directory:
    // that is the project's, and a "Notepad.exe" that lies there is not what was asked for.
    void Avvia(const std::string& programma, const std::string& percorso, int finestra) override {
        const std::wstring nome = Utf16DaUtf8(programma);
        const std::wstring dove =
            Chiedi([](wchar_t* b, DWORD n) { return ::GetSystemDirectoryW(b, n); }) + L';' +
            Chiedi([](wchar_t* b, DWORD n) { return ::GetSystemWindowsDirectoryW(b, n); }) + L';' +
            Chiedi([](wchar_t* b, DWORD n) { return ::GetEnvironmentVariableW(L"PATH", b, n); });
        const std::wstring file = Chiedi([&](wchar_t* b, DWORD n) {
            return ::SearchPathW(dove.c_str(), nome.c_str(), L".exe", n, b, nullptr);
        });
        if (file.empty()) throw Errore(ErrFileAssente);
        std::wstring comando = nome + L" \"" + SenzaPrefisso(Largo(percorso)) + L'"';
        STARTUPINFOW avvio{};
        avvio.cb = sizeof avvio;
        avvio.dwFlags = STARTF_USESHOWWINDOW;
        avvio.wShowWindow =
            static_cast<WORD>(finestra); // the styles have the numbers of SW_...: 3 is maximised
        PROCESS_INFORMATION processo{};
        if (!::CreateProcessW(file.c_str(), comando.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                              &avvio, &processo))
            Solleva();
        ::CloseHandle(processo.hThread);
        ::CloseHandle(processo.hProcess);
    }

    // A label stands on the medium: it is read where the medium is always there, and a drive of
    // another kind, which may have to start or to be called over a network, shows its letter alone.
    std::vector<Unita> ElencaUnita() override {
        std::vector<Unita> unita;
        const DWORD presenti = ::GetLogicalDrives();
        for (int i = 0; i < 26; ++i) {
            if ((presenti & (1u << i)) == 0) continue;
            const wchar_t cima[] = {static_cast<wchar_t>(L'A' + i), L':', L'\\', L'\0'};
            const UINT tipo = ::GetDriveTypeW(cima);
            wchar_t etichetta[MAX_PATH + 1] = L"";
            if (tipo == DRIVE_FIXED || tipo == DRIVE_RAMDISK)
                ::GetVolumeInformationW(cima, etichetta, MAX_PATH + 1, nullptr, nullptr, nullptr, nullptr, 0);
            const std::string lettera = {static_cast<char>('A' + i), ':'};
            unita.push_back({lettera, lettera + '/', BytesDaUtf16(etichetta)});
        }
        return unita;
    }

    // A drive stands for its own current directory.
    std::string DirectoryUnita(const std::string& unita) override {
        const std::string dove = InteroUtf8(Utf16DaUtf8(unita.substr(0, 2)));
        if (Esamina(dove).Tipo != TipoVoce::Directory) throw Errore(ErrUnita);
        return dove;
    }

    unsigned long GetShortPathNameA(const std::string& percorso, char* buffer,
                                    unsigned long misura) override {
        const std::wstring lungo = Largo(percorso);
        const std::string corto = BytesDaUtf16(SenzaPrefisso(Chiedi([&](wchar_t* b, DWORD n) {
                                                   return ::GetShortPathNameW(lungo.c_str(), b, n);
                                               })),
                                               Pagina1252);
        const auto lunghezza = static_cast<unsigned long>(corto.size());
        if (lunghezza == 0) return 0;
        if (lunghezza >= misura) return lunghezza + 1; // with the NUL; the buffer stays as it is
        std::copy_n(corto.c_str(), lunghezza + 1, buffer);
        return lunghezza;
    }

    bool HaPercorsiCorti() const override { return true; }
    bool DistingueMaiuscole() const override { return false; }
};

} // namespace

std::unique_ptr<Disco> DiscoReale() { return std::make_unique<DiscoWindows>(); }

} // namespace morvella
