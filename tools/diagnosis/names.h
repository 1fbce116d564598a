// SPDX-License-Identifier: MIT
#pragma once

#include "catalogue/catalogue.h"

namespace tool {

// The name in an answer about the model or the manufacturer, without what surrounds it. `maker`:
// words that are the manufacturer's and not part of a model's name.
std::string NameIn(const std::string& answer, const std::string& maker);

// How well a text names a model: 2: letters and digits, as "E173"; 1: a description or a type
// number; 0: a number, or nothing.
int NameQuality(const std::string& name);

// The manufacturer in a text about it, by ManufacturerIdentification; empty: none that is known.
std::string MakerIn(const Catalogue& catalogue, const std::string& text);

// The manufacturer of the model in an answer: the one whose name it begins with, else by the forms
// in kModelPatterns. Empty: none that is known.
std::string MakerOfModel(const Catalogue& catalogue, const std::string& answer);

}  // namespace tool
