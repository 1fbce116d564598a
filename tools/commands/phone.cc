// SPDX-License-Identifier: MIT
// velmor phone: plays a simulated phone, for people and programs that have none.
#include <unistd.h>

#include <iostream>
#include <utility>

#include "commands/options.h"
#include "phone/player.h"
#include "support/input_file.h"
#include "support/interruption.h"

namespace tool {

int RunPhone(const PhoneOptions& options) {
    const Interruption interruption;
    Profile profile = ParseProfile(ReadInput(options.profile), options.profile);
    profile.networkBehind.exists = profile.networkBehind.exists || !options.network.empty();
    PhonePlayer player(std::move(profile), !options.verbose && isatty(STDERR_FILENO) == 0,
                       options.network);
    std::cout << player.device() << std::endl;  // flushed: programs wait for this line
    player.Play();
    return kExitOk;
}

}  // namespace tool
