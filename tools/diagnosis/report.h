// SPDX-License-Identifier: MIT
#pragma once

#include "diagnosis/detection.h"

namespace tool {

// Both print what a detection has found, what the phone answered where something is not known, and
// the lines that the catalogue's source lacks.
void PrintDetection(const Detection& found);
void PrintDetectionJson(const Detection& found);

}  // namespace tool
