// SPDX-License-Identifier: MIT
//
// The classifier, the head scanner and the indent engine over the sample's lines. Their output goes
// through channel 2 to the disk, which drops it.
#include "campione.h"
#include "rewriter/rewriter.h"
#include "scan/classifica.h"
#include "scan/testa.h"
#include "sostegno/finestra_finta.h"

namespace morvella::bench {

namespace {

void BenchClassificaRiga(benchmark::State& stato) {
    for (auto _ : stato)
        for (const Vista riga : Campione::Comune().Trimmate) benchmark::DoNotOptimize(ClassificaRiga(riga));
    Conta(stato);
}
BENCHMARK(BenchClassificaRiga);

struct Programma {
    DiscoMemoria Disco;
    prove::FinestraFinta Finestra;
    Stato S{Disco, Finestra};
};

void BenchRaccogliShow(benchmark::State& stato) {
    Programma p;
    p.Disco.File["/p/x.frm"] = Campione::Comune().Tutto;
    p.S.FileSorgente = "\\p\\x.frm";
    for (auto _ : stato) {
        p.S.TotaleRighe = 0;
        RaccogliShow(p.S);
        benchmark::DoNotOptimize(p.S.ElencoShow.Voci.data());
    }
    Conta(stato);
}
BENCHMARK(BenchRaccogliShow);

// In the head every line is written, in the code none.
void BenchAvanzaTestaRiordina(benchmark::State& stato) {
    Programma p;
    p.S.FileSorgente = "\\p\\x.frm";
    for (auto _ : stato) {
        p.S.Canale.OpenOutput(2, "\\p\\x.txt");
        IniziaTestaRiordina(p.S);
        for (const Vista riga : Campione::Comune().Righe)
            benchmark::DoNotOptimize(AvanzaTestaRiordina(p.S, riga));
        p.S.Canale.Close(2);
    }
    Conta(stato);
}
BENCHMARK(BenchAvanzaTestaRiordina);

void BenchAvanzaTestaStruttura(benchmark::State& stato) {
    Programma p;
    p.S.FileSorgente = "\\p\\x.frm";
    for (auto _ : stato) {
        IniziaTestaStruttura(p.S);
        for (const Vista riga : Campione::Comune().Righe) {
            p.S.Riga = Trim(riga);
            benchmark::DoNotOptimize(AvanzaTestaStruttura(p.S));
        }
    }
    Conta(stato);
}
BENCHMARK(BenchAvanzaTestaStruttura);

void BenchRiscriviRiga(benchmark::State& stato) {
    Programma p;
    p.S.Numero = Space(5);
    for (auto _ : stato) {
        p.S.Canale.OpenOutput(2, "\\p\\x.txt");
        p.S.Margine = Space(5);
        p.S.StoriaBlocchi = "00";
        for (const Vista riga : Campione::Comune().Trimmate) {
            p.S.Riga = riga;
            RiscriviRiga(p.S, ClassificaRiga(riga));
        }
        p.S.Canale.Close(2);
    }
    Conta(stato);
}
BENCHMARK(BenchRiscriviRiga);

} // namespace

} // namespace morvella::bench
