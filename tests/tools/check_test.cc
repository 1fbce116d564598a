// SPDX-License-Identifier: MIT
#include "check/check.h"

#include "catalogue/conversion.h"
#include "storage/db_reader.h"
#include "tests/support/dump.h"
#include "tests/support/session.h"
#include "tests/support/shell.h"

using namespace tool;

namespace {

using namespace std::string_literals;

// Whether the library reads the same tables and rows as the check.
void ExpectSeenByLibrary(const std::string& bytes) {
    Findings ignored;
    const Catalogue catalogue = ReadCatalogue(bytes, ignored);
    Lines lines{catalogue.name + " " + catalogue.version};
    for (const CatalogueTable& table : catalogue.tables) {
        lines.push_back(table.name + ":");
        for (const std::string& column : table.columns) {
            lines.back() += " " + column;
        }
        for (const CatalogueRow& row : table.rows) {
            lines.emplace_back("  ");
            for (const std::string& column : table.columns) {
                lines.back() += "[" + row.Cell(table.Column(column)) + "]";
            }
        }
    }
    WriteFile("catalogue", bytes);
    EXPECT_EQ(Dump(*vel::DBReader("catalogue", '#').get_DB()), lines);
}

std::string Show(const Findings& findings) {
    std::string text;
    for (const auto& [id, severity, place, message] : findings) {
        text += Concat(severity == Severity::kError ? "E " : "W ", id, " ", place.table, ":",
                       place.line, "\n");
    }
    return text;
}

const std::string kBegin = "#$_DATABASE_BEGIN_$#Sample#7#";
const std::string kEnd = "#$_DATABASE_END_$#\n";
const std::string kTable = "E#$_TABLE_BEGIN_$#";
const std::string kTableEnd = "E#$_TABLE_END_$#\n";
const std::string kComment = "Recipes: how an answer of the phone becomes a key.";

// The settings from the name of a column to its value in the third, and the same with another name
// and value, the only one.
const std::string kSettings = [] {
    const std::string text = SampleSource().text();
    const std::size_t begin = text.find("#SubnetMask#");
    return text.substr(begin, text.find("  #198", begin) + 2 - begin);
}();

std::string Settings(const char* column, const char* value) {
    return Replaced(Replaced(Replaced(kSettings, "SubnetMask", column), "255[.0-9]*", ""), "  $",
                    value);
}

// Where a fault is found like in the source: in the stored form and in what the library reads, only
// in the stored form, or in neither. The library does not read on after some faults.
enum Alike { kEverywhere, kNotToLibrary, kNowhere };

const struct {
    const char* finding;  // its severity, identifier and table; empty for none at all
    std::string text;     // this text of the sample
    std::string edited;   // becomes this one
    std::string at;       // what its line begins with, empty for the file as a whole
    Alike alike = kEverywhere;
} kCases[] = {
    {"E no-database GeneralVariables", kBegin, "", kTable + "Gen", kNotToLibrary},
    {"E table-before-database X", kBegin, kTable + "X#\n" + kTableEnd + kBegin, kTable + "X",
     kNotToLibrary},
    {"E several-databases ", kBegin, "#$_DATABASE_BEGIN_$#\n" + kBegin, kBegin},
    {"E cut-off-table BasicDUNSettings", kTableEnd + kEnd, "", kTable + "BasicDUNSettings"},
    {"W no-database-end ", kEnd, "", ""},
    {"E after-end ", kEnd, kEnd + "x\n#late#\n", "#late#"},
    {"E marker-in-table Manufacturers", "nd#\n" + kTableEnd + "\nE", "nd#\nE",
     kTable + "Manufacturers#", kNotToLibrary},
    {"E lone-separator ", kComment, "Recipe #1", "Recipe", kNotToLibrary},
    {"W lone-separator ", kEnd, "#\n" + kEnd, "#\n" + kEnd},
    {"W empty-record Countries", "E#no#", "E#\nE#no#", "E#\n"},
    {"W stray-record ", kComment, "#x#", "#x#"},
    {"E row-width Countries", "#Leerland#", "#Leer#land#", "E#le#"},
    {"W unnamed-table <TABLE>14", kEnd, kTable + "\n" + kTableEnd + kEnd, kTable + "\n"},
    {"E repeated-table Phones", kEnd, kTable + "Phones#A#\nE#1#\n" + kTableEnd + kEnd,
     kTable + "Phones#A#"},
    {"W skipped-line ", kComment, "Recipes? #1#", "Recipes?"},
    {"W skipped-line ", kComment, "Each recipe", "Each"},
    {"W text-before-record Countries", "E#le#", "Ex#le#", "Ex#le#"},
    {"W text-after-record Countries", "#Leerland#", "#Leerland#\\#", "E#le#"},
    {"E not-enciphered ", kComment, "Dial strings", "Dial", kNowhere},
    {"W mixed-forms ManufacturerIdentificationVariables", kComment, "D", kTable + "Man", kNowhere},
    {"E nul-byte ", kComment, "x\0"s, "x", kNowhere},
    {"E missing-table Countries", "#Countries#", "#Lands#", ""},
    {"W missing-table Networks", "#Networks#", "#Nets#", ""},
    {"E missing-column Networks", "#NetworkType#\n", "#Type#\n", kTable + "Networks"},
    {"W missing-column BasicDUNSettings", "#Password#", "#X#", kTable + "BasicDUNSettings"},
    {"W repeated-column Networks", "#Networks#ID#Name", "#Networks#ID#ID", kTable + "Networks"},
    {"E key-column BasicDUNSettings", "ID#NetworkID#APN#NUM", "NUM#NetworkID#APN#ID",
     kTable + "BasicDUNS"},
    {"E repeated-key Countries", "#le#L", "#no#L", "E#no#Leer"},
    {"E repeated-key GeneralVariables", "AT-RETRY", "TRACE", "E#TRACE#3"},
    {"E dangling-key Phones", "#Swift 5#2#", "#Swift 5#3#", "E#20#Sw"},
    {"E dangling-key BasicDUNSettings", "#su###N#", "####N#", "E#4#200#"},
    {"W unused-network-type BasicDUNForPhone", "E#20#GPRS#", "E#20#EDGE#", "E#20#E"},
    {"E bad-identifier BasicDUNSettings", "E#4#200#", "E#2147483648#200#", "E#2147"},
    {"E unmatchable-key ManufacturerIdentification", "BRONTEL", "Brontel", "E#Brontel"},
    {"E unmatchable-key PhoneIdentification", "#ACME X1", "#ACME  X1", "E#1#ACME  X1"},
    {"E unmatchable-key NetworkIdentification", "#NORTHTEL", "#NORTH.TEL", "E#NORTH.TEL"},
    {"E long-network-key NetworkIdentification", "E#99901", "E#9990100", "E#9990100"},
    {"E hidden-row ManufacturerIdentification", "ACME#1", "BRON#1", "E#BRONTEL"},
    {"W hidden-row NetworkIdentification", "NORTHTEL", "99901", "E#99901#100#\nE#FJ"},
    {"W empty-key NetworkIdentification", "FJORDNET#1", "#1", "E##101"},
    {"E ambiguous-phone-row BasicDUNForPhone", "E#11#GPRS#A", "E#10#GPRS#B", "E#10#GPRS#B"},
    {"E long-value Countries", "Leerland", std::string(256, 'x'), "E#le#"},
    {"W long-value BasicDUNForPhone", "sud.example", std::string(250, 'x'), "E#10#UMTS#"},
    {"W unknown-placeholder BasicDUNForPhone", "%VAR1%", "%VAR2%", "E#10#UMTS#"},
    {"E endless-value BasicDUNSettings", "sud.example#3#,,0,0#",
     Replaced(std::string(50, 'x'), "x", "%NUM%") + "#" +
         Replaced(std::string(42, 'x'), "x", "%VAR1%") + "#" + std::string(40, 'x') + "#",
     "E#4#"},
    {"W many-retries GeneralVariables", "RETRY#3#", "RETRY#1001#", "E#AT-RETRY#"},
    {"E unknown-phone GeneralVariables", "TRACE#N#", "UNKNOWN-PHONE#12#", "E#UNKNOWN"},
    {"W empty-placeholder BasicDUNForPhone", ",,0,0", "", "E#10#UMTS#"},
    {"E no-context-type BasicDUNSettings", "#2#IPV4V6#", "#2##", "E#3#101#"},
    {"W bad-cards BasicDUNSettings", kSettings, Settings("Cards", "spn=N|gid=5x"), "E#3#101#fj"},
    {"W bad-cards BasicDUNSettings", kSettings, Settings("Cards", "imsi=9990A"), "E#3#101#fj"},
    {"W bad-cards BasicDUNSettings", kSettings, Settings("Cards", "iccid=89x"), "E#3#101#fj"},
    {"W bad-cards BasicDUNSettings", kSettings, Settings("Cards", "spn=|gid=1"), "E#3#101#fj"},
    {"W bad-cards BasicDUNSettings", kSettings, Settings("Cards", "name=N"), "E#3#101#fj"},
    {"", kSettings, Settings("Cards", "spn=a b=c|gid=5aF|imsi=99901xX3|iccid=8947"), ""},
    {"W bad-authentication BasicDUNSettings", kSettings, Settings("Authentication", "PAP"),
     "E#3#101#fj"},
    {"", kSettings, Settings("Authentication", "either"), ""},
    {"W wrong-encoding Countries", "Leerland", "L\xE4nd", "E#le#"},
    {"W unused-allowance GeneralVariables", "TRACE#N#", "ALLOWED-WARNINGS#Networks:empty-key#",
     "E#ALLOWED"},
    {"", "", "", ""},
    {"W skipped-line ", kComment, "E\x01\t ?\\D\x7f\x80\xff", "E\x01"},
    {"", "Leerland", std::string(255, 'x'), ""},
    {"", "RETRY#3#", "RETRY#1000#", ""},
    {"", "E#99901", "E#999010", ""},
    {"", "TRACE#N#", "UNKNOWN-PHONE#20#", ""},
    {"", "#1#ACME X100#", "##SOLO#", ""},                 // the manufacturer is not recognised
    {"", "BRONTEL#2#", "BRONTEL#2#\nE##1#", ""},          // any other manufacturer
    {"", "FJORDNET#1", "99903NET#1", ""},                 // digits, then a name
    {"", "-\"#\nE#Compress# #", "X#\nE#Compress##", ""},  // takes only the capital X
    {"", "Y#\nE#RemoveCharacters# -.#", "N#\nE#Compress#9#", ""},  // which compresses nothing
};

TEST(Check, EveryFindingAlone) {
    Names ids;
    for (const auto& [finding, was, is, at, alike] : kCases) {
        SCOPED_TRACE(std::string(finding) + " at " + at);
        const std::string text = SampleSource().Replace(was, is).text();
        const std::string before = at.empty() ? "" : text.substr(0, text.find("\n" + at) + 1);
        const auto line = at.empty() ? 0 : 1 + std::count(before.begin(), before.end(), '\n');
        std::string expected;
        if (*finding != '\0') {
            expected = finding + (":" + std::to_string(line) + "\n");
            ids.insert(expected.substr(2, expected.find(' ', 2) - 2));
        }
        EXPECT_EQ(Show(CheckCatalogue(text).findings), expected);
        if (alike == kEverywhere) {
            ExpectSeenByLibrary(text);
        }
        if (alike != kNowhere) {
            WriteFile("catalogue", text);
            vel::ArrayCrypter().CryptFile("catalogue", "");
            const std::string stored = ReadFile("catalogue.encode");
            EXPECT_EQ(Show(CheckCatalogue(stored).findings), expected);
            WriteFile("catalogue", Replaced(text, "\n", "\r\n"));
            EXPECT_EQ(EncodeSource("catalogue"), stored);
            EXPECT_EQ(DecodeCatalogue("catalogue.encode"), text);
        }
    }
    const std::string page = ReadFile(VELMOR_SOURCE_DIR "/docs/velmor.1");
    const Names inPage = Matches(page, "\n([a-z-]+)\t(?:error|warning|either)\t");
    EXPECT_EQ(MissingAndNew(inPage, ids), "");
}

// The findings of a line are in the order of the manual page.
TEST(Check, CauseComesFirst) {
    const std::string page = ReadFile(VELMOR_SOURCE_DIR "/docs/velmor.1");
    for (const std::string row : {"Ex#1#\\#", "E#010#a#9#\\#"}) {
        std::vector<std::size_t> places;
        const std::string text = SampleSource().Replace("E#20#Swift", row + "\nE#20#Swift").text();
        for (const Finding& finding : CheckCatalogue(text).findings) {
            places.push_back(page.find("\n" + finding.id + "\t"));
        }
        EXPECT_EQ(places.size(), 3U) << row;
        EXPECT_TRUE(std::is_sorted(places.begin(), places.end())) << row;
    }
}

TEST(Check, AllowsWarningsOnly) {
    const CheckResult result = CheckCatalogue(
        SampleSource()
            .Replace("E#TRACE#N#", "E#ALLOWED-WARNINGS#Countries:empty-record Phones:dangling-key#")
            .Replace("E#no#", "E#\nE#no#")
            .Replace("#Swift 5#2#", "#Swift 5#3#")
            .text());
    EXPECT_EQ(Show(result.findings),
              "W unused-allowance GeneralVariables:8\nE dangling-key Phones:49\n");
    EXPECT_EQ(Show(result.allowed), "W empty-record Countries:30\n");
}

// Two parts of a catalogue give a whole one; the second has only the columns that a test needs.
TEST(Check, FindsNothingInTheDataOfTheTree) {
    const std::string allowed = "E#ALLOWED-WARNINGS#";
    const std::string phones =
        Replaced(AllPhones() + kEnd, allowed,
                 allowed + "BasicDUNSettings:missing-column BasicDUNForPhone:unused-network-type ");
    for (const std::string& source :
         {phones, SampleSource().text(), ReadFile(VELMOR_DATA_DIR "/operators.source")}) {
        EXPECT_EQ(Show(CheckCatalogue(source).findings), "");
    }
}

}  // namespace
