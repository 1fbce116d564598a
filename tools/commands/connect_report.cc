// SPDX-License-Identifier: MIT
#include "commands/connect_report.h"

#include <iostream>

#include "support/utf8.h"

namespace tool {

void ConnectReport::Tell(const char* step, const std::string& words, const Json& details) const {
    if (!json_) {
        std::cerr << "velmor: " << Visible(words) << "\n";
        return;
    }
    Json object = {{"step", step}};
    object.update(details);
    object["words"] = words;
    std::cout << VisibleJson(object.dump(-1, ' ', false, Json::error_handler_t::replace))
              << std::endl;  // programs wait for it
}

void ConnectReport::TellOnline(const std::vector<TextRow>& rows, const Json& details) const {
    if (json_) {
        Tell("online", "online", details);
    } else {
        PrintAligned(rows);
        std::cout.flush();
    }
}

}  // namespace tool
