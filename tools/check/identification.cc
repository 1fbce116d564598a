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
    return MakeKey(recipe, key) == key || MakeKey(recipe, InSmallLetters(key)) == key;
}

// One of the identification tables.
class IdentificationCheck {
  public:
    IdentificationCheck(const Catalogue& catalogue, const char* name, const char* response,
                        const char* result, const char* recipe, Findings& findings)
        : table_(catalogue.Table(name)),
          response_(table_.Column(response)),
          result_(table_.Column(result)),
          recipeName_(recipe),
          recipe_(ReadRecipe(catalogue.Find(recipe))),
          findings_(findings) {}

    // A manufacturer's key is looked for within the answer.
    void CheckManufacturers() {
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

    void CheckPhones() { CheckEqualKeys(ReachableRows(), table_.Column(kManufacturerID)); }

    void CheckNetworks() {
        const std::vector<const CatalogueRow*> rows = ReachableRows();
        CheckEqualKeys(rows, -1);
        for (const CatalogueRow* row : rows) {
            const std::string key = row->Cell(response_);
            if (key.size() > vel::kImsiDigits && IsDigits(key)) {
                AddError(findings_, "long-network-key", table_.At(*row), "the key has ", key.size(),
                         " digits; the library looks up at most five of a subscriber's number: use"
                         " the first five");
            }
        }
    }

  private:
    // The rows whose key some answer can yield; tells of the others.
    std::vector<const CatalogueRow*> ReachableRows() {
        std::vector<const CatalogueRow*> rows;
        if (response_ < 0) {
            return rows;
        }
        for (const CatalogueRow& row : table_.rows) {
            const std::string key = row.Cell(response_);
            if (CanYield(recipe_, key)) {
                rows.push_back(&row);
            } else {
                AddError(findings_, "unmatchable-key", table_.At(row), "the recipe ", recipeName_,
                         " makes ", InQuotes(MakeKey(recipe_, key)), " of ", InQuotes(key),
                         ", so no answer ever matches the row: write the key as the recipe does");
            }
        }
        return rows;
    }

    void CheckEqualKeys(const std::vector<const CatalogueRow*>& rows, int group) {
        std::map<std::pair<std::string, std::string>, const CatalogueRow*> seen;
        for (const CatalogueRow* row : rows) {
            const auto [first, isNew] =
                seen.emplace(std::make_pair(row->Cell(group), row->Cell(response_)), row);
            if (!isNew) {
                AddHidden(*row, *first->second, " has the same key");
            }
            if (row->Cell(response_).empty()) {
                AddWarning(findings_, "empty-key", table_.At(*row),
                           "an empty key; the library takes the row for a phone that gives no"
                           " answer: remove it unless that is meant");
            }
        }
    }

    void AddHidden(const CatalogueRow& row, const CatalogueRow& first, const char* why) {
        const bool harmless = row.Cell(result_) == first.Cell(result_);
        AddFinding(findings_, "hidden-row", harmless ? Severity::kWarning : Severity::kError,
                   table_.At(row), "the row in line ", first.line, why,
                   ", so the library never takes this one: ",
                   harmless ? "remove it" : "move it before that, or remove it");
    }

    const CatalogueTable& table_;
    int response_;
    int result_;
    const char* recipeName_;
    vel::Recipe recipe_;
    Findings& findings_;
};

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
