// SPDX-License-Identifier: MIT
#include <map>

#include "check/check.h"
#include "detection/questions.h"
#include "session/schema.h"

namespace tool {
namespace {

using namespace vel::schema;

// Whether an answer can become the key. Small letters are tried too: a recipe can remove a capital
// letter and then make capitals of small ones.
bool CanYield(const vel::Recipe& recipe, const std::string& key) {
    return MakeKey(recipe, key) == key || MakeKey(recipe, InSmallLetters(key)) == key;
}

// Whether a key of digits can be the number of an operator, which a phone may give instead of its
// name (3GPP TS 27.007, AT+COPS): five or six digits, alone or after the digits of the IMSI.
bool CanHoldOperator(const std::string& key) {
    const std::size_t digits = key.size();
    return digits == 6 || digits == vel::kImsiDigits + 5 || digits == vel::kImsiDigits + 6;
}

// The check of one identification table.
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

    // The library looks for the key inside the answer, so a short key hides longer keys after it.
    void CheckManufacturers() {
        const std::vector<const CatalogueRow*> rows = ReachableRows();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            for (std::size_t k = 0; k < i; ++k) {
                if (rows[i]->Cell(response_).find(rows[k]->Cell(response_)) != std::string::npos) {
                    AddHidden(*rows[i], *rows[k], " matches every answer that holds this key");
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
            if (key.size() > vel::kImsiDigits && IsDigits(key) && !CanHoldOperator(key)) {
                AddError(findings_, "long-network-key", table_.At(*row), "the key has ", key.size(),
                         " digits; the library looks up only the first five digits of a"
                         " subscriber's number, or the five or six digits of an operator's number:"
                         " use such a key");
            }
        }
    }

  private:
    // The rows whose key an answer can become. Adds a finding for every other row.
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
                         " changes the key ", InQuotes(key), " to ",
                         InQuotes(MakeKey(recipe_, key)),
                         "; no answer ever matches the row: write the key as the recipe makes it");
            }
        }
        return rows;
    }

    // Compares the keys of rows that have the same value in the column `group`; -1: of all rows.
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
                           "an empty key; the library uses the row for a phone that gives no"
                           " answer: remove the row, or allow this warning");
            }
        }
    }

    void AddHidden(const CatalogueRow& row, const CatalogueRow& first, const char* why) {
        const bool harmless = row.Cell(result_) == first.Cell(result_);
        AddFinding(findings_, "hidden-row", harmless ? Severity::kWarning : Severity::kError,
                   table_.At(row), "the row in line ", first.line, why,
                   "; the library never uses this row: ",
                   harmless ? "remove it" : "move it before that row, or remove it");
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
