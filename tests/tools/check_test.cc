// SPDX-License-Identifier: MIT
#include "check.h"

#include <gtest/gtest.h>

#include <set>

#include "storage/db_reader.h"
#include "support/session.h"
#include "support/texts.h"

namespace {

using namespace std::string_literals;

// The tables and rows as the check sees them, in the form of Dump.
Lines View(const std::string& bytes) {
    Findings ignored;
    Lines lines;
    for (const CatalogueTable& table : ReadCatalogue(bytes, ignored).tables) {
        lines.push_back(table.name + ":");
        for (const std::string& column : table.columns) {
            lines.back() += " " + column;
        }
        for (const CatalogueRow& row : table.rows) {
            lines.push_back("  ");
            for (const std::string& column : table.columns) {
                lines.back() += "[" + row.Cell(table.Column(column)) + "]";
            }
        }
    }
    return lines;
}

// As the library sees them. Leaves the stored form of a source in "catalogue.encode".
Lines LibraryView(const std::string& bytes) {
    WriteFile("catalogue", bytes);
    Lines lines = Dump(*vel::DBReader("catalogue", '#').get_DB());
    lines.erase(lines.begin());
    return lines;
}

std::string Show(const Findings& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        text += (finding.severity == Severity::kError ? "error " : "warning ") + finding.id + " " +
                finding.place.table + ":" + std::to_string(finding.place.line) + "\n";
    }
    return text;
}

std::set<std::string> DocumentedFindings() {
    std::set<std::string> ids;
    const std::string page = ReadFile(VELMOR_MAN_PAGE);
    const std::size_t start = page.find("\n.SH FINDINGS");
    const std::string section = page.substr(start, page.find("\n.SH ", start + 1) - start);
    const std::regex entry("\n([a-z-]+)\t(error|warning|either)\t");
    for (std::sregex_iterator at(section.begin(), section.end(), entry), end; at != end; ++at) {
        ids.insert((*at)[1]);
    }
    return ids;
}

const std::string kBegin = "#$_DATABASE_BEGIN_$#Sample#7#";
const std::string kEnd = "#$_DATABASE_END_$#\n";
const std::string kComment = "Recipes: how an answer of the phone becomes a key.";
SampleSource Edit(const std::string& what, const std::string& with) {
    return SampleSource().Replace(what, with);
}
SampleSource Row(const std::string& table, const std::string& row) {
    return SampleSource().AddRow(table, row);
}

// How far a fault looks the same in the stored form, and to the library.
enum class Seen { kAlike, kDifferentlyByLibrary, kInSourceOnly };

const struct {
    const char* finding;  // the first one: severity, identifier and table
    SampleSource source;
    std::string at;  // what its line begins with, empty for the file as a whole
    Seen seen = Seen::kAlike;
} kCases[] = {
    {"error no-database ", Edit(kBegin, ""), "E#$_TABLE_BEGIN_$#Gen", Seen::kDifferentlyByLibrary},
    {"error table-before-database ",
     Edit(kBegin, "#$_TABLE_BEGIN_$#X#\n#$_TABLE_END_$#\n" + kBegin), "#$_TABLE_BEGIN_$#X",
     Seen::kDifferentlyByLibrary},
    {"error several-databases ", Edit(kBegin, "#$_DATABASE_BEGIN_$#\n" + kBegin), kBegin},
    {"error cut-off-table BasicDUNSettings", Edit("E#$_TABLE_END_$#\n" + kEnd, ""),
     "E#$_TABLE_BEGIN_$#BasicDUNSettings"},
    {"warning no-database-end ", Edit(kEnd, ""), ""},
    {"error after-end ", Edit(kEnd, kEnd + "x\n#late#\n"), "#late#"},
    {"error marker-in-table Countries", Edit("nd#\nE#$_TABLE_END_$#\n\nE", "nd#\nE"),
     "E#$_TABLE_BEGIN_$#Manufacturers#", Seen::kDifferentlyByLibrary},
    {"error lone-separator ", Edit(kComment, "Recipe #1"), "Recipe", Seen::kDifferentlyByLibrary},
    {"warning lone-separator ", Edit(kEnd, "#\n" + kEnd), "#\n" + kEnd},
    {"warning empty-record Countries", Row("Countries", "#"), "E#\n"},
    {"warning stray-record ", Edit(kComment, "#x#"), "#x#"},
    {"error row-width Countries", Edit("#Leerland#", "#Leer#land#"), "E#le#"},
    {"warning unnamed-table <TABLE>14", Edit(kEnd, "#$_TABLE_BEGIN_$#\n#$_TABLE_END_$#\n" + kEnd),
     "#$_TABLE_BEGIN_$#\n"},
    {"error repeated-table Phones",
     Edit(kEnd, "#$_TABLE_BEGIN_$#Phones#A#\n#1#\n#$_TABLE_END_$#\n" + kEnd),
     "#$_TABLE_BEGIN_$#Phones#A#"},
    {"warning skipped-line ", Edit(kComment, "Recipes? #1#"), "Recipes?"},
    {"warning skipped-line ", Edit(kComment, "Each recipe"), "Each"},
    {"warning text-before-record ", Edit("E#le#", "Ex#le#"), "Ex#le#"},
    {"warning text-after-record ", Edit("#Leerland#", "#Leerland#\\#"), "E#le#"},
    {"error not-enciphered ", Edit(kComment, "Dial strings"), "Dial", Seen::kInSourceOnly},
    {"warning mixed-forms ", Edit(kComment, "D"), "E#$_TABLE_BEGIN_$#Man", Seen::kInSourceOnly},
    {"error nul-byte ", Edit(kComment, "x\0"s), "x", Seen::kInSourceOnly},
    {"error missing-table Countries", SampleSource().Without("Countries"), ""},
    {"warning missing-table Networks", SampleSource().Without("Networks"), ""},
    {"error missing-column Networks", Edit("#NetworkType#\n", "#Type#\n"),
     "E#$_TABLE_BEGIN_$#Networks"},
    {"warning missing-column BasicDUNSettings", Edit("#Password#", "#Secret#"),
     "E#$_TABLE_BEGIN_$#BasicDUNSettings"},
    {"warning repeated-column Networks", Edit("#Networks#ID#Name#", "#Networks#ID#ID#"),
     "E#$_TABLE_BEGIN_$#Networks"},
    {"error key-column Phones",
     Edit("Phones#ID", "Phones#Key#ID")
         .Replace("E#10#X100", "E#10#10#X100")
         .Replace("E#11#X200", "E#11#11#X200")
         .Replace("E#20#Swift", "E#20#20#Swift"),
     "E#$_TABLE_BEGIN_$#Phones"},
    {"error repeated-key Countries", Row("Countries", "#le#X#"), "E#le#Leerland#"},
    {"error repeated-key GeneralVariables", Row("GeneralVariables", "#AT-RETRY#1#"),
     "E#AT-RETRY#3"},
    {"error dangling-key Phones", Edit("#Swift 5#2#", "#Swift 5#3#"), "E#20#Sw"},
    {"error dangling-key BasicDUNSettings", Edit("#su###N#", "####N#"), "E#4#200#"},
    {"error dangling-key PhoneIdentification", Row("PhoneIdentification", "#1#X#12#"), "E#1#X#"},
    {"warning unused-network-type BasicDUNForPhone", Edit("E#20#GPRS#", "E#20#EDGE#"), "E#20#E"},
    {"error bad-identifier Phones", Row("Phones", "#007#Spy#1#"), "E#007#"},
    {"error bad-identifier BasicDUNSettings", Edit("E#4#200#", "E#2147483648#200#"),
     "E#2147483648"},
    {"error unmatchable-key ManufacturerIdentification",
     Row("ManufacturerIdentification", "#Brontel#2#"), "E#Brontel"},
    {"error unmatchable-key PhoneIdentification", Row("PhoneIdentification", "#1#X  1#10#"),
     "E#1#X  1"},
    {"error unmatchable-key NetworkIdentification", Row("NetworkIdentification", "#N.T#100#"),
     "E#N.T"},
    {"error long-network-key NetworkIdentification", Row("NetworkIdentification", "#999011#100#"),
     "E#999011"},
    {"error hidden-row ManufacturerIdentification", Row("ManufacturerIdentification", "#CM#2#"),
     "E#ACME#1#"},
    {"warning hidden-row NetworkIdentification", Row("NetworkIdentification", "#FJORDNET#101#"),
     "E#FJORDNET#101#\nE#SUD"},
    {"warning empty-key NetworkIdentification", Row("NetworkIdentification", "##100#"), "E##100"},
    {"error ambiguous-phone-row BasicDUNForPhone", Row("BasicDUNForPhone", "#10#GPRS#D##"),
     "E#10#GPRS#ATD"},
    {"error long-value Countries", Edit("Leerland", std::string(256, 'x')), "E#le#"},
    {"warning long-value BasicDUNForPhone", Edit("sud.example", std::string(250, 'x')),
     "E#10#UMTS#"},
    {"warning unknown-placeholder BasicDUNForPhone", Edit("%VAR1%", "%VAR2%"), "E#10#UMTS#"},
    {"warning empty-placeholder BasicDUNForPhone", Edit(",,0,0", ""), "E#10#UMTS#"},
};

TEST(Check, EveryFindingAlone) {
    std::set<std::string> ids;
    for (const auto& fault : kCases) {
        const std::string& text = fault.source.text();
        SCOPED_TRACE(fault.finding + (" at " + fault.at));
        const auto start = text.begin();
        const std::size_t at = fault.at.empty() ? 0 : text.find("\n" + fault.at) + 1;
        const auto line =
            fault.at.empty() ? 0 : std::count(start, start + static_cast<long>(at), '\n') + 1;
        const Findings findings = CheckCatalogue(text);
        EXPECT_EQ(Show(findings), fault.finding + (":" + std::to_string(line) + "\n"));
        if (fault.seen == Seen::kAlike) {
            EXPECT_EQ(View(text), LibraryView(text));
        }
        if (fault.seen != Seen::kInSourceOnly) {
            WriteFile("catalogue", text);
            vel::ArrayCrypter().CryptFile("catalogue", "");
            EXPECT_EQ(Show(CheckCatalogue(ReadFile("catalogue.encode"))), Show(findings));
        }
        ids.insert(findings.empty() ? "" : findings[0].id);
    }
    EXPECT_EQ(ids, DocumentedFindings());
}

TEST(Check, NothingAgainstTheSample) {
    const SampleSource sources[] = {
        SampleSource(),
        Edit("Leerland", std::string(255, 'x')),
        Row("PhoneIdentification", "##SOLO#10#"),                // of a manufacturer not recognised
        Edit("E#BRONTEL#2#", "E#BRONTEL#2#\nE##1#"),             // any other manufacturer
        Row("NetworkIdentification", "#99903NET1#100#"),         // digits, then a name
        Edit("#RemoveCharacters#-\"#", "#RemoveCharacters#-X#")  // takes only the capital X
            .Replace("#Compress# #", "#Compress##"),
        Edit("#MakeUpperCase#Y#\nE#RemoveCharacters# -.,\"#\nE#Compress##",
             "#MakeUpperCase##\nE#RemoveCharacters##\nE#Compress#C#")
            .Replace("E#ACME#", "E#ACCME#"),  // nothing is compressed without upper case
    };
    for (const SampleSource& source : sources) {
        EXPECT_EQ(Show(CheckCatalogue(source.text())), "");
        EXPECT_EQ(View(source.text()), LibraryView(source.text()));
        EXPECT_EQ(Show(CheckCatalogue(ReadFile("catalogue.encode"))), "");
    }
}

}  // namespace
