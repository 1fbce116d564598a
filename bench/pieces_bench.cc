// SPDX-License-Identifier: MIT
// Measures the pieces of a start and of a detection, with a catalogue made from a source:
// pieces_bench SOURCE [options of Google Benchmark]. Writes into the working directory.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <optional>

#include "database/multy_value_match.h"
#include "phone/simulated_phone.h"
#include "session/session.h"
#include "session/trace.h"
#include "storage/crypt.h"
#include "storage/record_splitter.h"
#include "velmor.h"
#include "world.h"

const char* const vel::kTraceLogPath = "trace.log";

namespace {

std::string worldSource;
std::optional<tool::SimulatedPhone> phone;
long commands = 0;

long Read(char* buffer, long, long) {
    const std::optional<char> next = phone->Next();
    *buffer = next.value_or('\0');
    return next ? 1 : 0;
}
long Send(const char* buffer, long length) {
    ++commands;
    return static_cast<long>(phone->Receive({buffer, static_cast<std::size_t>(length)}));
}

// Reports the time for a row and the heap for a cell; 0: does not apply.
void Report(benchmark::State& state, long rows, double heapPerCell = 0) {
    using benchmark::Counter;
    state.counters["per_row"] =
        rows == 0 ? Counter()
                  : Counter(static_cast<double>(rows),
                            Counter::kIsIterationInvariantRate | Counter::kInvert);
    state.counters["heap_per_cell"] = heapPerCell;
}

void Start(benchmark::State& state, const World& world) {
    if (Velmor_Initialise(world.path.c_str(), Read, Send) != 0) {
        state.SkipWithError("the catalogue does not load");
    }
}

void Decipher(benchmark::State& state) {
    const World world(worldSource, 1, 0);
    std::vector<vel::String> lines(world.stored.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i] = world.stored[i].c_str();
    }
    vel::String line;
    while (state.KeepRunning()) {
        vel::ArrayCrypter crypter;
        for (const vel::String& stored : lines) {
            line = stored;
            crypter.DecryptLine(line);
        }
        benchmark::DoNotOptimize(line.data);
    }
    Report(state, world.rows);
}
BENCHMARK(Decipher)->Unit(benchmark::kMicrosecond);

void Split(benchmark::State& state) {
    const World world(worldSource, 1, 0);
    const std::vector<vel::String> lines = [&] {
        std::vector<vel::String> made;
        for (const std::string& line : world.lines) {
            made.emplace_back(line.c_str());
        }
        return made;
    }();
    vel::Record fields;
    while (state.KeepRunning()) {
        for (const vel::String& line : lines) {
            benchmark::DoNotOptimize(vel::SplitRecord(line, '#', fields));
        }
    }
    Report(state, world.rows);
}
BENCHMARK(Split)->Unit(benchmark::kMicrosecond);

// The lower bound for a start that works byte by byte: it reads, copies, deciphers and splits, but
// keeps nothing.
void Floor(benchmark::State& state) {
    const World world(worldSource, 1, 0);
    while (state.KeepRunning()) {
        std::FILE* input = std::fopen(world.path.c_str(), "r");
        std::FILE* copy = std::fopen("floor", "w");
        for (int c = std::fgetc(input); c != EOF; c = std::fgetc(input)) {
            std::fputc(c, copy);
        }
        std::fclose(copy);
        std::rewind(input);
        vel::ArrayCrypter crypter;
        vel::Record fields;
        vel::String line;
        std::string bytes;
        for (int c = std::fgetc(input); c != EOF; c = std::fgetc(input)) {
            if (c != '\n') {
                bytes += static_cast<char>(c);
                continue;
            }
            line.Truncate();
            line.Append(bytes.c_str(), static_cast<int>(bytes.size()));
            crypter.DecryptLine(line);
            benchmark::DoNotOptimize(vel::SplitRecord(line, '#', fields));
            bytes.clear();
        }
        std::fclose(input);
    }
    Report(state, world.rows);
    std::remove("floor");
}
BENCHMARK(Floor)->Unit(benchmark::kMicrosecond);

void Load(benchmark::State& state) {
    const World world(worldSource, static_cast<int>(state.range(0)), 0);
    const std::size_t before = mallinfo2().uordblks + mallinfo2().hblkhd;
    Start(state, world);
    const std::size_t after = mallinfo2().uordblks + mallinfo2().hblkhd;
    while (state.KeepRunning()) {
        Velmor_DeInitialise();
        Start(state, world);
    }
    Velmor_DeInitialise();
    Report(state, world.rows,
           static_cast<double>(after - before) / static_cast<double>(world.cells));
}
BENCHMARK(Load)->RangeMultiplier(2)->Range(1, 16)->Unit(benchmark::kMicrosecond);

void Scan(benchmark::State& state) {
    const World world(worldSource, 1, 0);
    Start(state, world);
    auto& settings = *Velmor::getVelmor()->basicDUNSettings;
    auto condition = vel::Pointer<vel::MultyValueMatch>::Adopt(new vel::MultyValueMatch);
    condition->Require("NetworkID", "278");
    int found = 0;
    int rows = 0;
    while (state.KeepRunning()) {
        Velmor::Rows matches;
        settings.Find(condition.get(), matches.Receive());
        matches->get_Count(found);
    }
    Velmor::Rows all;
    settings.get_Rows(all.Receive());
    all->get_Count(rows);
    if (found == 0) {
        state.SkipWithError("nothing found");
    }
    Report(state, rows);
    Velmor_DeInitialise();
}
BENCHMARK(Scan)->Unit(benchmark::kMicrosecond);

// The longest possible detection: all commands of all questions, eight in total.
void Detect(benchmark::State& state) {
    const World world(worldSource, 1, static_cast<int>(state.range(0)));
    Start(state, world);
    phone.emplace(
        tool::ParseProfile("AT+CGMI: Unheard of\nAT+GMI: Unheard of\nATI0: Cinterion\n"
                           "AT+CGMM: No model\nAT+GMM: No model\nATI3: MC55i\n"
                           "AT+COPS?: +COPS: 0,0,\"Warid\"\n",
                           "bench"));
    while (state.KeepRunning()) {
        commands = 0;
        if (Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0) != 0 || commands != 8) {
            state.SkipWithError("not detected by eight commands");
        }
    }
    Report(state, 0);
    Velmor_DeInitialise();
}
BENCHMARK(Detect)->Arg(0)->Arg(1000)->Arg(4000)->Unit(benchmark::kMicrosecond);

void Call(benchmark::State& state) {
    const World world(worldSource, 1, 0);
    Start(state, world);
    Velmor::getVelmor()->traceSwitch = state.range(0) != 0;
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(Velmor_GetVersionDatabase(0));
    }
    Report(state, 0);
    Velmor_DeInitialise();
    Velmor::getVelmor()->traceSwitch = false;
    std::remove(vel::kTraceLogPath);
}
BENCHMARK(Call)->ArgName("traced")->Arg(0)->Arg(1);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: pieces_bench SOURCE [OPTIONS]\n");
        return 2;
    }
    worldSource = argv[1];
    benchmark::RunSpecifiedBenchmarks();
}
