// SPDX-License-Identifier: MIT
//
// The primitives of text/, over the sample's lines.
#include "campione.h"

namespace morvella::bench {

namespace {

void BenchTrim(benchmark::State& stato) {
    for (auto _ : stato)
        for (const Vista riga : Campione::Comune().Righe) benchmark::DoNotOptimize(Trim(riga));
    Conta(stato);
}
BENCHMARK(BenchTrim);

void BenchLCase(benchmark::State& stato) {
    for (auto _ : stato)
        for (const Vista riga : Campione::Comune().Righe) benchmark::DoNotOptimize(LCase(riga));
    Conta(stato);
}
BENCHMARK(BenchLCase);

void BenchInStr(benchmark::State& stato) {
    for (auto _ : stato)
        for (const Vista riga : Campione::Comune().Trimmate)
            benchmark::DoNotOptimize(InStr(1, riga, ".Show"));
    Conta(stato);
}
BENCHMARK(BenchInStr);

void BenchLineInput(benchmark::State& stato) {
    DiscoMemoria disco;
    disco.File["/p/x.frm"] = Campione::Comune().Tutto;
    Archivio archivio(disco);
    Canali canali(archivio);
    for (auto _ : stato) {
        canali.OpenInput(1, "\\p\\x.frm");
        while (!canali.Eof(1)) benchmark::DoNotOptimize(canali.LineInput(1));
        canali.Close(1);
    }
    Conta(stato);
}
BENCHMARK(BenchLineInput);

void BenchPrint(benchmark::State& stato) {
    DiscoMemoria disco;
    Archivio archivio(disco);
    Canali canali(archivio);
    const Testo numero = Space(5);
    const Testo margine = Space(11);
    for (auto _ : stato) {
        canali.OpenOutput(2, "\\p\\x.txt");
        for (const Vista riga : Campione::Comune().Trimmate) canali.Print(2, numero, margine, "     ", riga);
        canali.Close(2);
    }
    Conta(stato);
}
BENCHMARK(BenchPrint);

// One line of this many bytes, blanks within and no end: time must grow with it and no faster.
void BenchLineInputLunga(benchmark::State& stato) {
    const auto lunga = static_cast<std::size_t>(stato.range(0));
    DiscoMemoria disco;
    disco.File["/p/x.bas"] = Testo(lunga, 'x');
    Archivio archivio(disco);
    Canali canali(archivio);
    for (auto _ : stato) {
        canali.OpenInput(1, "\\p\\x.bas");
        benchmark::DoNotOptimize(canali.LineInput(1));
        canali.Close(1);
    }
    stato.SetItemsProcessed(stato.iterations());
    stato.SetBytesProcessed(stato.iterations() * stato.range(0));
}
BENCHMARK(BenchLineInputLunga)->RangeMultiplier(32)->Range(1 << 10, 1 << 25);

} // namespace

} // namespace morvella::bench
