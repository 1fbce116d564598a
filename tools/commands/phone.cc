// SPDX-License-Identifier: MIT
// velmor phone: a simulated phone for people and programs without one.
#include <unistd.h>

#include <iostream>

#include "commands/command.h"
#include "device/player.h"
#include "support/interruption.h"

namespace {

void Play(const std::string& profile, bool verbose) {
    const Interruption interruption;
    PhonePlayer player(ReadProfile(profile), !verbose && isatty(STDERR_FILENO) == 0);
    std::cout << player.device() << std::endl;  // programs wait for this line
    player.Play();
}

}  // namespace

void AddPhone(CLI::App& app) {
    auto profile = std::make_shared<std::string>();
    auto verbose = std::make_shared<bool>(false);
    CLI::App* command =
        app.add_subcommand("phone", "Plays a simulated phone on a pseudo-terminal.");
    command->add_option("PROFILE", *profile, "how the phone answers")->required();
    command->add_flag("-v,--verbose", *verbose,
                      "show the dialogue though standard error is no terminal");
    command->footer(
        "Prints the path of the device and plays until Control-C or until the phone disconnects.\n"
        "Example: velmor phone data/profiles/nokia-6300.profile\n");
    command->callback([profile, verbose] { Play(*profile, *verbose); });
}
