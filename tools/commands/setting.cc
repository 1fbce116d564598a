// SPDX-License-Identifier: MIT
// velmor setting: shows one setting for one phone.
#include <iostream>

#include "commands/dialer_output.h"
#include "commands/options.h"
#include "diagnosis/detection.h"
#include "host/session.h"
#include "host/setting_format.h"
#include "support/error.h"
#include "support/utf8.h"

namespace tool {
int RunSetting(const SettingOptions& options) {
    const LibrarySession session(options.catalogue);
    Velmor_DUNSetting setting;
    const bool ready = Velmor_GetDUNSetting(0, options.phone, options.setting, &setting) == 0 &&
                       !HostText(setting.DialString).empty();
    if (setting.aBasicDUNSettingId < 0) {
        throw ToolError(options.catalogue, ": has no setting ", options.setting,
                        "; velmor settings lists those of a country");
    }
    if (!ready && PhoneDescription(options.phone).empty()) {
        throw ToolError(options.catalogue, ": has no phone ", options.phone,
                        "; velmor phones lists them");
    }
    if (options.format.name == "json") {
        PrintJson(DescribeSetting(setting, ready));
    } else if (options.format.name == "text") {
        PrintAligned(SettingRows(setting));
    } else if (ready) {
        WriteDialerFiles(setting, options.link, options.format, options.catalogue);
    }
    if (!ready) {
        std::cerr << "velmor: " << Visible(options.catalogue) << ": does not say how phone "
                  << options.phone << " dials with setting " << options.setting << "\n";
    }
    return ready ? kExitOk : kExitFindings;
}

}  // namespace tool
