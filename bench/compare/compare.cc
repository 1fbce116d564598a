// SPDX-License-Identifier: MIT
// Runs programs in turn, many times each, and prints a table of what their processes cost:
//   compare ROUNDS NAME COMMAND [NAME COMMAND...]
// A command consists of words with blanks between them. Every program must give the answer of the
// first one, or none. The ratio compares its time with that of the first one.
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// A program, and what was measured.
struct Program {
    std::string name;
    std::vector<std::string> words;
    std::string answer;
    long libraries = 0;
    std::vector<double> wall = {};  // milliseconds
    std::vector<double> cpu = {};
    long memory = 0;  // kilobytes at the peak

    Program(const char* programName, const std::string& command) : name(programName) {
        std::istringstream stream(command);
        for (std::string word; stream >> word;) {
            words.push_back(word);
        }
    }
};

pid_t Spawn(const Program& program, int output, bool listLibraries) {
    std::vector<char*> arguments;
    for (const std::string& word : program.words) {
        arguments.push_back(const_cast<char*>(word.c_str()));
    }
    arguments.push_back(nullptr);
    // Makes the dynamic linker list the libraries, as ldd does.
    char listing[] = "LD_TRACE_LOADED_OBJECTS=1";
    char* environment[] = {listing, nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = 0;
    const int error = posix_spawn(&child, arguments[0], &actions, nullptr, arguments.data(),
                                  listLibraries ? environment : environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        throw std::runtime_error("cannot start " + program.words[0]);
    }
    return child;
}

// The cost of one process: milliseconds and kilobytes, as in Program.
struct Cost {
    double wall = 0;
    double cpu = 0;
    long memory = 0;
};

Cost Wait(const Program& program, pid_t child, std::chrono::steady_clock::time_point start) {
    rusage usage = {};
    int status = 0;
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double, std::milli> wall = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(program.name + " failed");
    }
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return {wall.count(), milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime),
            usage.ru_maxrss};
}

std::string Output(const Program& program, bool listLibraries) {
    int ends[2];
    if (pipe(ends) != 0) {
        throw std::runtime_error("no pipe");
    }
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = Spawn(program, ends[1], listLibraries);
    close(ends[1]);
    std::string output;
    char block[4096];
    for (ssize_t size = 0; (size = read(ends[0], block, sizeof block)) > 0;) {
        output.append(block, static_cast<std::size_t>(size));
    }
    close(ends[0]);
    Wait(program, child, start);
    return output;
}

void Measure(Program& program, int nowhere) {
    const auto start = std::chrono::steady_clock::now();
    const Cost cost = Wait(program, Spawn(program, nowhere, false), start);
    program.wall.push_back(cost.wall);
    program.cpu.push_back(cost.cpu);
    program.memory = std::max(program.memory, cost.memory);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Compare(std::vector<Program>& programs, int rounds) {
    for (Program& program : programs) {
        program.answer = Output(program, false);
        const std::string listing = Output(program, true);
        for (std::size_t at = 0; (at = listing.find("=>", at)) != std::string::npos; ++at) {
            ++program.libraries;
        }
        if (!program.answer.empty() && program.answer != programs[0].answer) {
            throw std::runtime_error(program.name + " answers " + program.answer);
        }
    }
    std::FILE* nowhere = std::fopen("/dev/null", "w");
    for (int round = 0; round < rounds; ++round) {
        for (Program& program : programs) {
            Measure(program, fileno(nowhere));
        }
    }
    std::fclose(nowhere);
}

}  // namespace

int main(int argc, char** argv) try {
    const int rounds = argc > 3 && argc % 2 == 0 ? std::atoi(argv[1]) : 0;
    if (rounds < 1) {
        std::fprintf(stderr, "usage: compare ROUNDS NAME COMMAND [NAME COMMAND...]\n");
        return 2;
    }
    std::vector<Program> programs;
    for (int i = 2; i < argc; i += 2) {
        programs.emplace_back(argv[i], argv[i + 1]);
    }
    Compare(programs, rounds);
    const double first = Median(programs[0].wall);
    std::printf(
        "| | process time | ratio | processor time | peak memory | libraries |\n"
        "|---|---|---|---|---|---|\n");
    for (const Program& program : programs) {
        const double wall = Median(program.wall);
        std::printf("| %s | %.2f ms | %.2f | %.2f ms | %.1f MB | %ld |\n", program.name.c_str(),
                    wall, wall / first, Median(program.cpu),
                    static_cast<double>(program.memory) / 1024, program.libraries);
    }
    std::printf("\nEach answers: %s", programs[0].answer.c_str());
} catch (const std::exception& error) {
    std::fprintf(stderr, "compare: %s\n", error.what());
    return 1;
}
