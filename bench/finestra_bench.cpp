// SPDX-License-Identifier: MIT
//
// finestra_bench PROGETTO.vbp: a whole run through the window, from the click on the project to
// the end of the listing, without the question. Prints the seconds and how often the controls
// were painted meanwhile. Which screen is painted on is Qt's own choice (QT_QPA_PLATFORM).
#include <QApplication>
#include <QStyleFactory>
#include <chrono>
#include <cstdio>

#include "window/vornok/vornok.h"

int main(int argc, char** argv) {
    QApplication applicazione(argc, argv);
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    const QStringList argomenti = QApplication::arguments().mid(1);
    if (argomenti.size() != 1) {
        std::fprintf(stderr, "finestra_bench PROGETTO.vbp\n");
        return 2;
    }
    const auto disco = morvella::DiscoReale();
    const std::string progetto = disco->Assoluto(argomenti.front().toStdString());
    const std::string directory = progetto.substr(0, progetto.find_last_of('/'));
    // Its options go beside the project: the ones of this program's directory stay as they are.
    morvella::VornOK finestra(*disco, directory, directory);
    finestra.show();
    QApplication::processEvents();
    finestra.S().OpzSenzaConferma = true;

    const auto prima = std::chrono::steady_clock::now();
    finestra.Apri(progetto);
    const std::chrono::duration<double> durata = std::chrono::steady_clock::now() - prima;
    std::printf("%.6f %d\n", durata.count(), finestra.Ridisegni());
    return finestra.Finita() ? 1 : 0;
}
