// SPDX-License-Identifier: MIT
#pragma once

#include "diagnosis/detection.h"

namespace tool {

// Both print what a detection found, the answers about what is not known, and the lines that the
// source lacks. `numbers`: with those of the card and the device.
void PrintDetection(const Detection& found);
void PrintDetectionJson(const Detection& found, bool numbers);

}  // namespace tool
