// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/identity/content.h"

namespace tool {

// Which things of two catalogues are the same. Identifiers say nothing about it, because an import
// may give all of them anew.
struct Same {
    Same(const Content& old, const Content& fresh);

    Matching manufacturers, phones, networks, settings, countries;
};

}  // namespace tool
