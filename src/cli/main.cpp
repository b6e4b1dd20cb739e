// SPDX-License-Identifier: MIT
#include "cli/programma.h"

int main(int argc, char** argv) {
    const auto disco = morvella::DiscoReale();
    morvella::cli::Ambiente ambiente = morvella::cli::AmbienteDelProcesso(*disco);
    return morvella::cli::Programma(morvella::cli::ArgomentiDelProcesso(argc, argv), ambiente);
}
