// SPDX-License-Identifier: MIT
#include <cstdio>
#include <new>

#include "cli/programma.h"

// Also before there is an environment to write to, and after.
int main(int argc, char** argv) try {
    const auto disco = morvella::DiscoReale();
    morvella::cli::Ambiente ambiente = morvella::cli::AmbienteDelProcesso(*disco);
    return morvella::cli::Programma(morvella::cli::ArgomentiDelProcesso(argc, argv), ambiente);
} catch (const std::bad_alloc&) {
    std::fputs(morvella::cli::SenzaMemoria, stderr);
    return morvella::cli::Fermato;
}
