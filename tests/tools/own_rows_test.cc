// SPDX-License-Identifier: MIT
#include "session/schema.h"
#include "tests/support/files.h"
#include "tests/support/import.h"
#include "tests/support/patterns.h"

using namespace tool;

namespace {

// Two operators with a key each and a common one, and two with numbers of six digits.
const char kOperators[] =
    "<serviceproviders><country code='gr'><provider><name>A</name><gsm>"
    "<network-id mcc='202' mnc='01'/><network-id mcc='202' mnc='02'/><apn value='a'/><apn "
    "value='b'/>"
    "</gsm></provider><provider><name>B</name><gsm><network-id mcc='202' mnc='02'/>"
    "<network-id mcc='202' mnc='03'/><apn value='c'/></gsm></provider>"
    "<provider><name>C</name><gsm><network-id mcc='202' mnc='040'/><apn "
    "value='d'/></gsm></provider>"
    "<provider><name>D</name><gsm><network-id mcc='202' mnc='041'/><apn "
    "value='e'/></gsm></provider>"
    "<provider><name>E</name><gsm><network-id mcc='202' mnc='07'/><network-id mcc='202' mnc='08'/>"
    "<apn value='f'/></gsm></provider></country></serviceproviders>";

// A source of its own: each table's rows, with "/" for their separators and blanks between rows.
std::string Source(const std::string& tables) {
    const char* const columns[] = {"Countries#ID#Name", "Networks#ID#Name",
                                   "NetworkIdentification#Response(AT+COPS)#NetworkID",
                                   "BasicDUNSettings#ID#NetworkID#APN#Name#CountryID#Default"};
    std::string text;
    std::size_t index = 0;
    for (const std::string& rows : Split(tables, ';')) {
        text += Concat("E#$_TABLE_BEGIN_$#", columns[index++], "#\n");
        std::istringstream words(rows);
        for (std::string word; words >> word;) {
            std::replace(word.begin(), word.end(), '/', '#');
            text += "E#" + word + "#\n";
        }
        text += "E#$_TABLE_END_$#\n";
    }
    return text;
}

// What the catalogue offers for a key: the access points, a star for the default one, and numbers.
std::string Offers(const Catalogue& catalogue, const std::string& key) {
    using namespace vel::schema;
    const CatalogueTable& settings = catalogue.Table(kBasicDUNSettings);
    std::string text, network;
    for (const CatalogueRow& row : catalogue.Table(kNetworkIdentification).rows) {
        network = row.cells[0] == key ? row.cells[1] : network;
    }
    for (const CatalogueRow& row : settings.rows) {
        if (settings.Cell(row, kNetworkID) == network) {
            text += Concat(text.empty() ? "" : ", ", settings.Cell(row, kAPN),
                           settings.Cell(row, kDefault) == "Y" ? "* " : " ",
                           settings.Cell(row, kNumbers));
        }
    }
    return text;
}

TEST(OwnRows, WinOverTheLists) {
    const struct {
        std::string own;
        std::vector<std::pair<const char*, const char*>> offers;  // by key
    } cases[] = {
        // A key of its own, and one that an operator has alone. Its name means both.
        {";7/O;20209/7 20203/7 o-t/7;1/7/o/O/gr/",
         {{"20209", "o* 20209"},
          {"20203", "o* 20203 20209, c 20203"},
          {"OT", "o* 20203 20209, c 20203"}}},
        // Keys of two networks.
        {";7/O;20203/7 20202/7;1/7/o/O/gr/N 1/7/p/O/gr/Y",
         {{"20202", "o* 20202, p 20202, a 20202, b 20202, c 20202"},
          {"20201", "a* 20201, b 20201"}}},
        // Names of the lists stay.
        {";7/O;20208/7;1/7/o/O/gr/", {{"20208", "o* 20208, f 20208"}, {"E", "f* 20207"}}},
        // Five digits mean the longer numbers too, unless the keeper has them elsewhere.
        {";7/O;20204/7;1/7/o/O/gr/",
         {{"202040", "o* 20204 202040 202041, d 202040, e 202041"},
          {"C", "o* 20204 202040 202041, d 202040, e 202041"}}},
        {";7/O;202040/7;1/7/o/O/gr/", {{"20204", "o* 202040, d 202040, e 202041"}}},
        {";7/O 8/P;202040/7 202041/8 20204/8;1/7/o/O/gr/ 2/8/p/P/gr/",
         {{"202041", "p* 20204 202041, o 202040, d 202040, e 202041"}}},
        // A name, an exact repeat, and countries.
        {"x/Xland gr/Hellas;7/O;c/7;1/7/d/C/gr/ 1/7/e/E/x/", {{"C", "d* 202040, e , e 202041"}}},
        // No settings of its own.
        {";7/O;20203/7 o-t/7", {{"OT", "c* 20203"}}},
    };
    WriteFile("operators.xml", kOperators);
    for (const auto& [own, offers] : cases) {
        WriteFile("own.source", Source(own));
        Import("operators.xml --add own.source -o out.source");
        Findings findings;
        const Catalogue catalogue = ReadCatalogue(ReadFile("out.source"), findings);
        for (const auto& [key, expected] : offers) {
            EXPECT_EQ(Offers(catalogue, key), expected) << key << " of " << own;
        }
    }
}

// A list in Android's form adds rows to numbers that are known, and none of its names is a key.
TEST(OwnRows, CanBeAList) {
    WriteFile("operators.xml", kOperators);
    WriteFile("own.XML",
              "<apns><apn carrier='C' mcc='202' mnc='02' apn='x'/>"
              "<apn carrier='Two' mcc='202' mnc='02' apn='y' mvno_type='gid' mvno_match_data='5A'/>"
              "<apn carrier='F' mcc='542' mnc='01' apn='z' protocol='IPV6'/><apn mcc='x'/></apns>");
    const std::string report = Import("operators.xml --add own.XML -o out.source");
    EXPECT_NE(report.find("     2  own keys\n"), std::string::npos);
    EXPECT_NE(report.find("own.XML:1: "), std::string::npos);
    Findings findings;
    const Catalogue catalogue = ReadCatalogue(ReadFile("out.source"), findings);
    EXPECT_EQ(Offers(catalogue, "20202"), "x* 20202, y 20202, a 20202, b 20202, c 20202");
    EXPECT_EQ(Offers(catalogue, "C"), "d* 202040, e 202041");
    EXPECT_NE(ReadFile("out.source").find("E#fj#Fiji#\n"), std::string::npos);
    EXPECT_NE(ReadFile("out.source").find("#IPV6#"), std::string::npos);
}

TEST(OwnRows, NameTheLineOfAFault) {
    const std::pair<const char*, const char*> cases[] = {
        {";7/O 7/P;;", "own.source:5: a second network \"7\""},
        {";7/O 8/P;20201/7 20201/8;", "own.source:9: the key 20201 is another network's too"},
        {";7/O;.-/7;", "own.source:7: nothing is left of the key"},
        {";7/O;20201/8;", "own.source:7: NetworkID \"8\" is no identifier here"},
        {";7/O;;1/7/o/O/no/", "own.source:9: CountryID \"no\" is no identifier here"},
        {"", "own.source: has no table Networks"}};
    WriteFile("operators.xml", kOperators);
    for (const auto& [own, fault] : cases) {
        WriteFile("own.source", Source(own));
        const std::string found = Fault("operators.xml --add own.source -o out.source");
        EXPECT_EQ(found.substr(0, found.find(": add")).find(fault), 0U) << found;
    }
    // Nothing of a row is lost silently.
    WriteFile("own.source", Replaced(Source(";7/O;;1/7/o/O/gr/1 2/7/o/O/gr/2"), "Default", "Mine"));
    EXPECT_NE(Import("operators.xml --add own.source -o out.source")
                  .find("own.source:10: left out: repeats"),
              std::string::npos);
    EXPECT_NE(ReadFile("out.source").find("#Mine#\n"), std::string::npos);
    EXPECT_NE(ReadFile("out.source").find("####1#\n"), std::string::npos);
    WriteFile("own.source", Source(";7/O;;") + Replaced(ReadFile(kTestPhones), "#[$]_DATA.*", ""));
    EXPECT_NE(Import("--add own.source -o out.source").find(": the table Phones is not read"),
              std::string::npos);
}

}  // namespace
