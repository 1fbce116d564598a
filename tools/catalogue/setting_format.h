// SPDX-License-Identifier: MIT
#pragma once

#include "support/print.h"
#include "velmor.h"

namespace tool {

// The text in a host's buffer, which need not be terminated.
std::string HostText(const char* buffer, std::size_t size);
template <std::size_t kSize>
std::string HostText(const char (&buffer)[kSize]) {
    return HostText(buffer, kSize);
}

// The name of a country in the library's session.
std::string CountryName(long index);

// A DUN setting without the texts that depend on the phone.
Json DescribeSetting(const Velmor_DUNSetting& setting);
// All of a DUN setting; `ready` says whether the library calls it ready to dial.
Json DescribeSetting(const Velmor_DUNSetting& setting, bool ready);
// The same as rows to print, without empty fields.
std::vector<TextRow> SettingRows(const Velmor_DUNSetting& setting);

}  // namespace tool
