// SPDX-License-Identifier: MIT
#pragma once

#include "database/rows.h"
#include "detection/questions.h"
#include "runtime/function_ref.h"

namespace vel {

// What a detection asks about.
enum class Subject { kManufacturer, kPhone, kNetwork };

// The tables of a catalogue that a detection searches.
struct DetectionTables {
    const TablePointer& manufacturers;  // ManufacturerIdentification
    const TablePointer& phones;         // PhoneIdentification
    const TablePointer& networks;       // NetworkIdentification
    const TablePointer& settings;       // BasicDUNSettings
};

// What a detection needs done. The library does it with a phone and its trace log; a program can
// repeat a recorded detection without either.
struct DetectionSteps {
    // Gives the relevant line of the phone's answer.
    FunctionRef<String(Subject, const Attempt&)> ask;
    // Turns an answer into a key with the recipe in a table.
    FunctionRef<void(String& answer, const char* recipe)> makeKey;
    // Takes note of an identifier as soon as it is found.
    FunctionRef<void(Subject, const String& id)> found;
};

// What a detection finds. An identifier is empty when the catalogue does not know the answers.
struct Detected {
    String manufacturerId{nullptr};
    String phoneId{nullptr};
    String networkId;
    RowsPointer settings;  // of the network
};

// Asks until the catalogue knows manufacturer, phone and network, in this order.
Detected Detect(const DetectionTables& tables, const DetectionSteps& steps);

}  // namespace vel
