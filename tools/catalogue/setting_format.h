// SPDX-License-Identifier: MIT
#pragma once

#include "support/print.h"
#include "velmor.h"

// The text in a host's buffer, which need not be terminated.
std::string HostText(const char* buffer, std::size_t size);
template <std::size_t kSize>
std::string HostText(const char (&buffer)[kSize]) {
    return HostText(buffer, kSize);
}

// A setting as the catalogue has it, without what depends on the phone.
Json DescribeSetting(const Velmor_DUNSetting& setting);
// All of a record; `ready` says whether the library calls it ready to dial.
Json DescribeRecord(const Velmor_DUNSetting& record, bool ready);
// The same as rows of a table, without what is empty.
std::vector<TextRow> RecordRows(const Velmor_DUNSetting& record);
