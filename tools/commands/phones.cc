// SPDX-License-Identifier: MIT
// velmor phones: lists the phones that a host offers to its user.
#include <iostream>

#include "commands/command.h"
#include "host/private_copy.h"
#include "host/setting_format.h"
#include "support/print.h"
#include "support/utf8.h"
#include "velmor.h"

namespace tool {
namespace {

int ListPhones(const ReadOptions& options) {
    const PrivateSession session(options.catalogue);
    Json list = Json::array();
    for (long i = 0; i < Velmor_GetNrOfPhones(0); ++i) {
        long id = 0;
        char description[1024];
        if (Velmor_GetPhoneByIndex(0, i, &id, description, sizeof description) != 0) {
            std::cerr << "velmor: " << Visible(options.catalogue) << ": phone " << i
                      << " has no manufacturer; a host cannot list it\n";
            continue;
        }
        list.push_back({{"id", id}, {"phone", HostText(description)}});
    }
    PrintList(list, options.columns, options.json);
    return kExitOk;
}

}  // namespace

void AddPhones(CommandLine& line) {
    const auto [command, options] =
        line.Add("phones", "Lists the phones as a host sees them.", ListPhones);
    AddRead(command, *options);
    AddColumns(command, *options);
    command.AddFooter("Example: velmor phones my.catalogue\n");
}

}  // namespace tool
