// SPDX-License-Identifier: MIT
//
// misura COMMAND [ARGUMENT...]: runs it with its standard output thrown away and prints the
// seconds that it took and the KiB that it held at its peak. Gives its exit status.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <cstring>

extern char** environ;

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "misura COMMAND [ARGUMENT...]\n");
        return 2;
    }
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    posix_spawn_file_actions_addopen(&azioni, 1, "/dev/null", O_WRONLY, 0);
    const auto inizio = std::chrono::steady_clock::now();
    pid_t figlio = 0;
    if (const int errore = posix_spawnp(&figlio, argv[1], &azioni, nullptr, argv + 1, environ)) {
        std::fprintf(stderr, "misura: %s: %s\n", argv[1], std::strerror(errore));
        return 127;
    }
    int stato = 0;
    rusage uso{};
    while (wait4(figlio, &stato, 0, &uso) < 0) {
    }
    const std::chrono::duration<double> durata = std::chrono::steady_clock::now() - inizio;
#ifdef __APPLE__
    const long kib = uso.ru_maxrss / 1024;
#else
    const long kib = uso.ru_maxrss;
#endif
    std::printf("%.6f %ld\n", durata.count(), kib);
    posix_spawn_file_actions_destroy(&azioni);
    return WIFEXITED(stato) ? WEXITSTATUS(stato) : 128 + WTERMSIG(stato);
}
