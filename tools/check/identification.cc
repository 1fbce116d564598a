// SPDX-License-Identifier: MIT
#include <map>

#include "catalogue/recipe.h"
#include "check/check.h"
#include "detection/questions.h"
#include "session/schema.h"

namespace tool {
namespace {

using namespace vel::schema;

// Whether some answer, in capital or small letters, becomes the key.
bool CanYield(const vel::Recipe& recipe, const std::string& key) {
    std::string small = key;
    for (char& c : small) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return MakeKey(recipe, key) == key || MakeKey(recipe, small) == key;
}

// One of the identification tables.
class IdentificationCheck {
  public:
    IdentificationCheck(const Catalogue& catalogue, const char* name, const char* response,
                        const char* result, const char* recipe, Findings& findings)
        : table_(catalogue.Find(name)),
          response_(table_ == nullptr ? -1 : table_->Column(response)),
          result_(table_ == nullptr ? -1 : table_->Column(result)),
          recipeName_(recipe),
          recipe_(ReadRecipe(catalogue.Find(recipe))),
          findings_(findings) {}

    void CheckManufacturers();
    void CheckPhones();
    void CheckNetworks();

  private:
    // The rows whose key some answer can yield; tells of the others.
    std::vector<const CatalogueRow*> ReachableRows();
    void CheckEqualKeys(const std::vector<const CatalogueRow*>& rows, int group);
    void AddHidden(const CatalogueRow& row, const CatalogueRow& first, const char* why);
    void AddEmpty(const CatalogueRow& row);

    const CatalogueTable* table_;
    int response_;
    int result_;
    const char* recipeName_;
    vel::Recipe recipe_;
    Findings& findings_;
};

std::vector<const CatalogueRow*> IdentificationCheck::ReachableRows() {
    std::vector<const CatalogueRow*> rows;
    if (table_ == nullptr || response_ < 0) {
        return rows;
    }
    for (const CatalogueRow& row : table_->rows) {
        const std::string key = row.Cell(response_);
        if (CanYield(recipe_, key)) {
            rows.push_back(&row);
        } else {
            AddError(findings_, "unmatchable-key", table_->At(row),
                     "the recipe " + std::string(recipeName_) + " makes " +
                         InQuotes(MakeKey(recipe_, key)) + " of " + InQuotes(key) +
                         ", so no answer ever matches the row: write the key as the recipe does");
        }
    }
    return rows;
}

void IdentificationCheck::AddHidden(const CatalogueRow& row, const CatalogueRow& first,
                                    const char* why) {
    const bool harmless = row.Cell(result_) == first.Cell(result_);
    findings_.push_back({"hidden-row", harmless ? Severity::kWarning : Severity::kError,
                         table_->At(row),
                         "the row in line " + std::to_string(first.line) + why +
                             ", so the library never takes this one: " +
                             (harmless ? "remove it" : "move it before that, or remove it")});
}

void IdentificationCheck::AddEmpty(const CatalogueRow& row) {
    if (row.Cell(response_).empty()) {
        AddWarning(findings_, "empty-key", table_->At(row),
                   "an empty key; the library takes the row for a phone that gives no answer:"
                   " remove it unless that is meant");
    }
}

// A manufacturer's key is looked for within the answer.
void IdentificationCheck::CheckManufacturers() {
    const std::vector<const CatalogueRow*> rows = ReachableRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            if (rows[i]->Cell(response_).find(rows[k]->Cell(response_)) != std::string::npos) {
                AddHidden(*rows[i], *rows[k], " accepts every answer that holds this key");
                break;
            }
        }
    }
}

void IdentificationCheck::CheckEqualKeys(const std::vector<const CatalogueRow*>& rows, int group) {
    std::map<std::pair<std::string, std::string>, const CatalogueRow*> seen;
    for (const CatalogueRow* row : rows) {
        const auto [first, isNew] =
            seen.emplace(std::make_pair(row->Cell(group), row->Cell(response_)), row);
        if (!isNew) {
            AddHidden(*row, *first->second, " has the same key");
        }
        AddEmpty(*row);
    }
}

void IdentificationCheck::CheckPhones() {
    if (table_ != nullptr) {
        CheckEqualKeys(ReachableRows(), table_->Column(kManufacturerID));
    }
}

void IdentificationCheck::CheckNetworks() {
    const std::vector<const CatalogueRow*> rows = ReachableRows();
    CheckEqualKeys(rows, -1);
    for (const CatalogueRow* row : rows) {
        const std::string key = row->Cell(response_);
        if (key.size() > vel::kImsiDigits &&
            key.find_first_not_of("0123456789") == std::string::npos) {
            AddError(findings_, "long-network-key", table_->At(*row),
                     "the key has " + std::to_string(key.size()) +
                         " digits; the library looks up at most five of a subscriber's number: use"
                         " the first five");
        }
    }
}

}  // namespace

void CheckIdentification(const Catalogue& catalogue, Findings& findings) {
    IdentificationCheck(catalogue, kManufacturerIdentification, kManufacturerResponse,
                        kManufacturerID, kManufacturerRecipe, findings)
        .CheckManufacturers();
    IdentificationCheck(catalogue, kPhoneIdentification, kPhoneResponse, kPhoneID, kPhoneRecipe,
                        findings)
        .CheckPhones();
    IdentificationCheck(catalogue, kNetworkIdentification, kNetworkResponse, kNetworkID,
                        kNetworkRecipe, findings)
        .CheckNetworks();
}

}  // namespace tool
