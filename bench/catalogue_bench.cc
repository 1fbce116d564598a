// SPDX-License-Identifier: MIT
// How loading a catalogue grows with its rows.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "api/trace.h"
#include "api/velmor.h"
#include "storage/crypt.h"

const char* const kTraceLogPath = "trace.log";

namespace {

constexpr int kRows = 2000;  // at scale 1

// A stored catalogue whose table of settings has the given number of rows.
std::string MakeCatalogue(int rows) {
    std::string path = "bench-" + std::to_string(rows) + ".catalogue";
    std::ofstream source(path);
    source << "#$_DATABASE_BEGIN_$#Bench#1#\n";
    for (const char* table : {"Countries", "Phones", "Manufacturers", "ManufacturerIdentification",
                              "PhoneIdentification", "NetworkIdentification"}) {
        source << "E#$_TABLE_BEGIN_$#" << table << "#ID#Name#\nE#1#One#\nE#$_TABLE_END_$#\n";
    }
    source << "E#$_TABLE_BEGIN_$#BasicDUNSettings#ID#NetworkID#APN#User#Password#CountryID#\n";
    for (int i = 0; i < rows; ++i) {
        source << "E#" << i << "#" << i / 3 << "#internet.operator" << i
               << ".example#user#secret#1#\n";
    }
    source << "E#$_TABLE_END_$#\n#$_DATABASE_END_$#\n";
    source.close();
    vel::ArrayCrypter().CryptFile(path.c_str(), "in place");
    return path;
}

void Load(benchmark::State& state) {
    const int rows = kRows * static_cast<int>(state.range(0));
    const std::string path = MakeCatalogue(rows);
    while (state.KeepRunning()) {
        if (Velmor_Initialise(path.c_str(), nullptr, nullptr) != 0) {
            state.SkipWithError("the catalogue does not load");
        }
        Velmor_DeInitialise();
    }
    state.counters["per_row"] = benchmark::Counter(
        rows, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    std::remove(path.c_str());
    std::remove((path + ".encode").c_str());
}
BENCHMARK(Load)->RangeMultiplier(2)->Range(1, 16)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
