// SPDX-License-Identifier: MIT
//
// misura COMMAND [ARGUMENT...]
//   runs it with its standard output thrown away and prints its seconds and its peak in KiB.
// misura --coppie N [--detto] COMMAND [ARGUMENT...] -- OTHER [ARGUMENT...]
//   runs both in turn, N times each, and prints
//     the median seconds of either, the median of the N ratios with its quartiles, and the
//     greatest peak of COMMAND.
//   A pair's runs follow each other and take turns to be first, so that a machine that is busy for
//   a while slows both down: the ratio holds where the seconds do not. With --detto COMMAND measures
//   itself: it prints its seconds and a number, which stands in the place of the peak.
// The exit status is that of a run that failed.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

extern char** environ;

namespace {

struct Corsa {
    int Stato = 0; // exit status
    double Secondi = 0;
    long Picco = 0; // KiB
};

int StatoDi(int attesa) { return WIFEXITED(attesa) ? WEXITSTATUS(attesa) : 128 + WTERMSIG(attesa); }

Corsa Corri(char** argv, bool detto) {
    Corsa corsa;
    int tubo[2] = {-1, -1};
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    if (detto && ::pipe(tubo) != 0) {
        std::perror("misura");
        corsa.Stato = 127;
        return corsa;
    }
    if (detto) {
        posix_spawn_file_actions_adddup2(&azioni, tubo[1], 1);
        posix_spawn_file_actions_addclose(&azioni, tubo[0]);
        posix_spawn_file_actions_addclose(&azioni, tubo[1]);
    } else {
        posix_spawn_file_actions_addopen(&azioni, 1, "/dev/null", O_WRONLY, 0);
    }
    const auto inizio = std::chrono::steady_clock::now();
    pid_t figlio = 0;
    const int errore = posix_spawnp(&figlio, argv[0], &azioni, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&azioni);
    if (detto) ::close(tubo[1]);
    std::string testo;
    if (errore != 0) {
        std::fprintf(stderr, "misura: %s: %s\n", argv[0], std::strerror(errore));
        corsa.Stato = 127;
    } else {
        char blocco[256];
        for (ssize_t n = 0; detto && (n = ::read(tubo[0], blocco, sizeof blocco)) > 0;)
            testo.append(blocco, static_cast<std::size_t>(n));
        int attesa = 0;
        rusage uso{};
        while (wait4(figlio, &attesa, 0, &uso) < 0) {
        }
        corsa.Stato = StatoDi(attesa);
        corsa.Secondi = std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count();
#ifdef __APPLE__
        corsa.Picco = uso.ru_maxrss / 1024;
#else
        corsa.Picco = uso.ru_maxrss;
#endif
    }
    if (detto) ::close(tubo[0]);
    if (corsa.Stato == 0 && detto &&
        std::sscanf(testo.c_str(), "%lf %ld", &corsa.Secondi, &corsa.Picco) != 2) {
        std::fprintf(stderr, "misura: %s did not tell its seconds\n", argv[0]);
        corsa.Stato = 1;
    }
    return corsa;
}

// The value below which `quota` of them lie.
double Quantile(std::vector<double> valori, double quota) {
    std::sort(valori.begin(), valori.end());
    const double posto = quota * static_cast<double>(valori.size() - 1);
    const auto sotto = static_cast<std::size_t>(posto);
    const std::size_t sopra = std::min(sotto + 1, valori.size() - 1);
    return valori[sotto] + (posto - static_cast<double>(sotto)) * (valori[sopra] - valori[sotto]);
}

int Coppie(int quante, bool detto, char** questo, char** altro) {
    std::vector<double> secondi;
    std::vector<double> fondo;
    std::vector<double> rapporti;
    long picco = 0;
    for (int i = 0; i < quante; ++i) {
        Corsa corse[2];
        for (const int quale : {i % 2, 1 - i % 2}) {
            corse[quale] = quale == 0 ? Corri(questo, detto) : Corri(altro, false);
            if (corse[quale].Stato != 0) return corse[quale].Stato;
        }
        secondi.push_back(corse[0].Secondi);
        fondo.push_back(corse[1].Secondi);
        rapporti.push_back(corse[0].Secondi / corse[1].Secondi);
        picco = std::max(picco, corse[0].Picco);
    }
    std::printf("%.6f %.6f %.4f %.4f %.4f %ld\n", Quantile(secondi, 0.5), Quantile(fondo, 0.5),
                Quantile(rapporti, 0.5), Quantile(rapporti, 0.25), Quantile(rapporti, 0.75), picco);
    return 0;
}

int Uso() {
    std::fprintf(stderr, "misura [--coppie N [--detto]] COMMAND [ARGUMENT...] [-- OTHER [ARGUMENT...]]\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    char** dopo = argv + 1;
    char** const fine = argv + argc;
    int coppie = 0;
    bool detto = false;
    if (argc > 2 && std::strcmp(*dopo, "--coppie") == 0) {
        coppie = std::atoi(dopo[1]);
        dopo += 2;
        if (coppie < 1) return Uso();
        if (dopo != fine && std::strcmp(*dopo, "--detto") == 0) {
            detto = true;
            ++dopo;
        }
    }
    if (dopo == fine) return Uso();
    if (coppie == 0) {
        const Corsa corsa = Corri(dopo, false);
        if (corsa.Stato != 127) std::printf("%.6f %ld\n", corsa.Secondi, corsa.Picco);
        return corsa.Stato;
    }
    char** const taglio = std::find_if(dopo, fine, [](const char* a) { return std::strcmp(a, "--") == 0; });
    if (taglio == dopo || taglio == fine || taglio + 1 == fine) return Uso();
    *taglio = nullptr;
    return Coppie(coppie, detto, dopo, taglio + 1);
}
