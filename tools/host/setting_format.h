// SPDX-License-Identifier: MIT
#pragma once

#include "support/print.h"
#include "velmor.h"

namespace tool {

// The text in a buffer that the library filled. A full buffer has no terminator.
std::string HostText(const char* buffer, std::size_t size);
template <std::size_t kSize>
std::string HostText(const char (&buffer)[kSize]) {
    return HostText(buffer, kSize);
}

// The name of a country in the session of the library.
std::string CountryName(long index);

// A DUN setting as JSON, without the texts that depend on the phone.
Json DescribeSetting(const Velmor_DUNSetting& setting);
// A whole DUN setting as JSON. `ready`: whether the library says that it is ready to dial.
Json DescribeSetting(const Velmor_DUNSetting& setting, bool ready);
// A whole DUN setting as rows to print, without empty texts.
std::vector<TextRow> SettingRows(const Velmor_DUNSetting& setting);

}  // namespace tool
