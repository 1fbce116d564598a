// SPDX-License-Identifier: MIT
// velmor phone: plays a simulated phone, for people and programs that have none.
#include <unistd.h>

#include <iostream>

#include "commands/command.h"
#include "phone/player.h"
#include "support/input_file.h"
#include "support/interruption.h"

namespace tool {
namespace {

// The arguments.
struct Options {
    std::string profile;
    bool verbose = false;
};

int Play(const Options& options) {
    const Interruption interruption;
    PhonePlayer player(ParseProfile(ReadInput(options.profile), options.profile),
                       !options.verbose && isatty(STDERR_FILENO) == 0);
    std::cout << player.device() << std::endl;  // flushed: programs wait for this line
    player.Play();
    return kExitOk;
}

}  // namespace

void AddPhone(CommandLine& line) {
    const auto [command, options] =
        line.Add("phone", "Plays a simulated phone on a pseudo-terminal.", Play);
    command.Add("PROFILE", options->profile, "", "how the phone answers").Required();
    command.AddFlag("-v,--verbose", options->verbose,
                    "show the dialogue even when standard error is not a terminal");
    command.AddFooter(
        "Prints the path of the device and plays until Control-C or until the phone disconnects.\n"
        "Example: velmor phone data/profiles/nokia-6300.profile\n");
}

}  // namespace tool
