// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QStandardPaths>
#include <QStyleFactory>
#include <cstdio>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

#include "shell/dimora.h"
#include "window/testo_qt.h"
#include "window/vornok/vornok.h"

#ifndef MORVELLA_VERSIONE
#define MORVELLA_VERSIONE "0"
#endif

// The program "morvella": its arguments, its directories, the form.

namespace {

constexpr const char* Aiuto = "Uso: morvella [DIRECTORY | PROGETTO.vbp]\n"
                              "\n"
                              "Riordina, elenca e documenta i progetti di Visual Basic 5 e 6.\n"
                              "  DIRECTORY       apre la finestra su questa directory\n"
                              "  PROGETTO.vbp    apre la finestra e sceglie il progetto, come con un clic\n"
                              "  -h, --aiuto     mostra questo testo\n"
                              "  --versione      mostra la versione\n"
                              "Senza argomenti parte dalla directory corrente se avviato da un terminale,\n"
                              "altrimenti dai documenti dell'utente.\n";

bool DaTerminale() {
#ifdef Q_OS_UNIX
    return ::isatty(STDIN_FILENO) || ::isatty(STDOUT_FILENO) || ::isatty(STDERR_FILENO);
#else
    return false;
#endif
}

// Where the window starts without an argument. From a terminal, in the current directory.
std::string Partenza(morvella::Disco& disco) {
    const auto corrente = [&]() -> std::string {
        try {
            return disco.DirectoryCorrente();
        } catch (const morvella::Errore&) {
            return "/"; // it was removed: the person chooses from the top
        }
    };
    if (DaTerminale()) return corrente();
    for (const auto dove : {QStandardPaths::DocumentsLocation, QStandardPaths::HomeLocation}) {
        const QString directory = QStandardPaths::writableLocation(dove);
        if (!directory.isEmpty() && QFileInfo(directory).isDir()) return directory.toStdString();
    }
    return corrente();
}

// The bytes as they were given, where file names are bytes. Qt has removed its own options from
// argv by now.
std::string PrimoArgomento([[maybe_unused]] char** argv, [[maybe_unused]] const QStringList& argomenti) {
#ifdef Q_OS_WIN
    return argomenti.front().toStdString();
#else
    return argv[1];
#endif
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string argomento = argv[i];
        if (argomento == "-h" || argomento == "--aiuto" || argomento == "--help") {
            std::fputs(Aiuto, stdout);
            return 0;
        }
        if (argomento == "--versione" || argomento == "--version") {
            std::fputs("morvella " MORVELLA_VERSIONE "\n", stdout);
            return 0;
        }
    }

    QApplication::setApplicationName("morvella");
    QApplication::setApplicationVersion(MORVELLA_VERSIONE);
    QApplication::setDesktopFileName("morvella");
    QApplication applicazione(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));

    const QStringList argomenti = QApplication::arguments().mid(1);
    if (argomenti.size() > 1 || (argomenti.size() == 1 && argomenti.front().startsWith("-"))) {
        std::fputs(Aiuto, stderr);
        return 2;
    }

    const std::unique_ptr<morvella::Disco> disco = morvella::DiscoReale();
    // Made absolute before the window changes the current directory.
    std::string argomento;
    try {
        if (!argomenti.isEmpty()) argomento = disco->Assoluto(PrimoArgomento(argv, argomenti));
    } catch (const morvella::Errore&) {
        std::fputs("morvella: la directory corrente non c'è più.\n", stderr);
        return 1;
    }
    // A file that could not be copied to the user's own directory is reported when it is needed.
    const morvella::Dimora dimora = morvella::TrovaDimora(
        *disco, QApplication::applicationDirPath().toStdString(), disco->DirectoryUtente());
    morvella::VornOK finestra(*disco, dimora.Directory, Partenza(*disco));
    finestra.show();
    if (!finestra.Finita() && !argomento.empty()) finestra.Apri(argomento);
    return finestra.Finita() ? finestra.Codice() : QApplication::exec();
}
