// SPDX-License-Identifier: MIT
#pragma once

#include <set>

#include "catalogue/records.h"
#include "detection/recipe.h"

namespace tool {

// The variable of GeneralVariables with the identifier of the fallback phone: an unknown phone is
// dialled with its rows. It is for hosts: the library does not read it.
constexpr char kUnknownPhone[] = "UNKNOWN-PHONE";

// The type of networks for CDMA, where phones have no PDP contexts.
constexpr char kCdmaType[] = "CDMA";

// The column of BasicDUNSettings with the network numbers (MCC and MNC, five or six digits) of the
// subscribers that a setting serves: ascending, separated by single blanks, empty when not known.
// It is for hosts: the library does not read it.
constexpr char kNumbers[] = "Numbers";

// The column of BasicDUNSettings with the SIM cards that a setting is for, where a network serves
// cards of several brands: alternatives with "|" between them, empty for a card of the operator
// itself. "spn=NAME": the service provider's name, without regard to case; "gid=DIGITS": group
// identifier 1 (GID1) begins with these hexadecimal digits; "imsi=PATTERN": the IMSI begins so, "x"
// for any digit; "iccid=DIGITS": the ICCID begins so. It is for hosts: the library does not read
// it.
constexpr char kCards[] = "Cards";

// The column of BasicDUNSettings with the authentication that the network wants from PPP: "pap",
// "chap", "either" or "none", empty when not known. It is for hosts: the library does not read it.
constexpr char kAuthentication[] = "Authentication";

// The table of further rows with which phones dial; its columns are those of BasicDUNForPhone,
// where the library takes only one row for a phone and a type of network. It is for hosts: the
// library does not read it.
constexpr char kFurtherDialRows[] = "FurtherDUNForPhone";

// The table of forms that the names of models have, and the makers who give such names; the first
// form that a model's key has counts. In a form "n" stands for a digit, "a" for a letter, and "*"
// at the end for any text. It is for the command: the library does not read it.
constexpr char kModelPatterns[] = "ManufacturerFromModel";
constexpr char kModelPattern[] = "Pattern";

// A table, and its first and last line in the file.
struct CatalogueTable {
    std::string name;
    int line = 0;
    int endLine = 0;
    std::vector<std::string> columns;
    std::vector<CatalogueRow> rows;

    // Index of the first column of that name, or -1.
    int Column(const std::string& column) const;
    // The cell of a row in the column of that name; empty without such a column.
    std::string Cell(const CatalogueRow& row, const std::string& column) const {
        return row.Cell(Column(column));
    }
    // The cell in a column of the first row with the identifier; empty when there is no such row.
    std::string LookUp(const std::string& id, const std::string& column) const;
    // The texts in a column; -1: the empty text if there are rows.
    std::set<std::string> Texts(int column) const;
    // The place of a finding about a row.
    Place At(const CatalogueRow& row) const { return {name, row.line}; }
};

// The tables that the library would hold, with the lines they come from. A fault can make the
// library lose the rest of the file; this goes on as if such a fault were corrected.
struct Catalogue {
    std::string name;     // from the database marker; may be empty
    std::string version;  // the same
    std::vector<CatalogueTable> tables;

    // The table of that name, or null.
    const CatalogueTable* Find(const std::string& table) const;
    // The table of that name; a table without columns and rows when it is missing.
    const CatalogueTable& Table(const std::string& table) const;
    // The values of a variable of GeneralVariables, and their places. The library uses the first.
    std::vector<std::pair<std::string, Place>> Values(const std::string& variable) const;
    // The number that the library reads from a variable; -1 when there is none.
    int Number(const std::string& variable) const;
};

// Reads the bytes of a catalogue in any form: source, stored or plain. Adds the findings about its
// lines and their order.
Catalogue ReadCatalogue(const std::string& bytes, Findings& findings);

// Reads the recipe in a table of a catalogue as the library does. Without a table it has no steps.
vel::Recipe ReadRecipe(const CatalogueTable* table);

// Whether a dial or initialisation string takes the type of the PDP context from VAR1. Without one
// it would have an empty type, which phones refuse; elsewhere VAR1 can be empty.
inline bool NeedsContextType(const std::string& text) {
    return text.find("\"%VAR1%\"") != std::string::npos;
}

// The key that the recipe makes from an answer.
std::string MakeKey(const vel::Recipe& recipe, const std::string& answer);

}  // namespace tool
