// SPDX-License-Identifier: MIT
//
// A phone is asked in several ways, because old phones do not know the newer commands. The first
// answer that the catalogue knows ends a question. The manufacturer comes first, because two
// manufacturers can give a phone the same name.
#include "detection/detection.h"

#include "detection/manufacturer_selector.h"

namespace vel {
namespace {

// Asks until an answer has a row. Returns the identifier in its first row; empty without a row.
String Identify(const DetectionSteps& steps, Subject subject, const Question& question,
                const char* idColumn, FunctionRef<RowsPointer(const String& key)> rowsFor) {
    for (const Attempt& attempt : question.attempts) {
        String key = steps.ask(subject, attempt);
        steps.makeKey(key, question.recipe);
        const auto row = RowAt(rowsFor(key), 0);
        if (row) {
            String id = row.Text(idColumn).ToString();
            steps.found(subject, id);
            return id;
        }
    }
    return {};
}

void IdentifyNetwork(const DetectionTables& tables, const DetectionSteps& steps, Detected& found) {
    const auto rowFor = [&](String& key) {
        steps.makeKey(key, schema::kNetworkRecipe);
        return RowWith(tables.networks, schema::kNetworkResponse, key);
    };
    String key = ImsiDigits(steps.ask(Subject::kNetwork, kImsiQuestion));
    auto row = rowFor(key);
    if (!row) {
        // For compatibility the name follows the digits, if there were any.
        const String name = OperatorName(steps.ask(Subject::kNetwork, kOperatorQuestion));
        key.Append(name.c_str(), name.Length());
        row = rowFor(key);
    }
    if (!row) {
        return;
    }
    found.networkId = row.Text(schema::kNetworkID).ToString();
    found.settings = FindRows(tables.settings, {{schema::kNetworkID, found.networkId}});
    steps.found(Subject::kNetwork, found.networkId);
}

}  // namespace

Detected Detect(const DetectionTables& tables, const DetectionSteps& steps) {
    const auto manufacturers = [&](const String& key) {
        return FindRows(tables.manufacturers,
                        Pointer<IRowCondition>::Adopt(new ManufacturerSelector(key)).get());
    };
    Detected found;
    found.manufacturerId = Identify(steps, Subject::kManufacturer, kManufacturerQuestion,
                                    schema::kManufacturerID, manufacturers);
    // An unknown manufacturer is the empty text, and rows may have that.
    const auto phones = [&](const String& key) {
        return FindRows(tables.phones, {{schema::kManufacturerID, found.manufacturerId},
                                        {schema::kPhoneResponse, key}});
    };
    found.phoneId = Identify(steps, Subject::kPhone, kPhoneQuestion, schema::kPhoneID, phones);
    IdentifyNetwork(tables, steps, found);
    return found;
}

}  // namespace vel
