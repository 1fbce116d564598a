// SPDX-License-Identifier: MIT
#pragma once

#include "diagnosis/detection.h"

namespace tool {

// The command that asks for the standards of a phone (ITU-T V.250).
constexpr char kCapabilityQuestion[] = "AT+GCAP";

// Whether the phone could be one for CDMA and has not told yet: it has to be asked then. A model
// without dial rows for CDMA in a network of the catalogue is not.
bool MayBeCdma(const Detection& found, const Catalogue& catalogue);

// Whether the catalogue says how the phone dials in CDMA.
bool HasCdmaRow(const Detection& found, const Catalogue& catalogue);

// Whether the phone is one for CDMA alone, as the dialogue or its dial rows tell.
bool IsCdma(const Detection& found, const Catalogue& catalogue);

// Puts the network of type CDMA and its settings in place of what was found. The settings of the
// operator come first, then the generic one, then those of the country.
void UseCdma(Detection& found, const Catalogue& catalogue);

}  // namespace tool
