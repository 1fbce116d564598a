// SPDX-License-Identifier: MIT
#include <iterator>
#include <pugixml.hpp>
#include <set>
#include <sstream>

#include "commands/command.h"
#include "support/error.h"
#include "tests/support/scripted_phone.h"

using namespace tool;

namespace {

const std::string kRealFile = "/usr/share/mobile-broadband-provider-info/serviceproviders.xml";
const std::string kHere = VELMOR_TESTS_DIR "/tools/";
const std::string kPhones = kHere + "phones.source";

// Runs the command, which writes "out.source".
void Import(const std::string& providers, const std::string& phones, const std::string& more) {
    std::istringstream words("import " + providers + " --phones " + phones + " -o out.source" +
                             more);
    CommandLine line("");
    AddImport(line);
    line.Run({std::istream_iterator<std::string>(words), {}});
}

TEST(Import, DecidesWhatTheDataLeaveOpen) {
    testing::internal::CaptureStdout();
    Import(kHere + "operators.xml", kPhones, " --iso " + kHere + "countries.json");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), ReadFile(kHere + "operators.report"));
    EXPECT_EQ(ReadFile("out.source"), ReadFile(kHere + "operators.source"));
    EXPECT_THROW(Import(kRealFile, kPhones, ""), ToolError) << "the source exists";
    EXPECT_THROW(Import(kHere + "countries.json", kPhones, " --force"), ToolError);
    EXPECT_EQ(ReadFile("out.source"), ReadFile(kHere + "operators.source"));
}

// An operator in the real file, read without the code of the import.
struct Owner {
    std::string name;
    bool primary = false;
    std::set<std::string> numbers;
    std::vector<std::string> offers;
};

std::string Text(const pugi::xml_node& node, const std::string& path) {
    return pugi::xpath_query(("normalize-space(" + path + ")").c_str()).evaluate_string(node);
}

Owner ReadOwner(const pugi::xml_node& node) {
    Owner owner;
    owner.name = Text(node, "name[not(@xml:lang)]");
    owner.primary = Text(node, "@primary") == "true";
    for (const auto& id : node.select_nodes("gsm/network-id")) {
        owner.numbers.insert(Text(id.node(), "@mcc") + Text(id.node(), "@mnc"));
    }
    const char* const uses = "gsm/apn[not(usage) or contains(usage/@type, 'internet')]";
    for (const auto& use : node.select_nodes(uses)) {
        const pugi::xml_node apn = use.node();
        std::string offer = owner.name;
        offer += apn.child("name") ? ": " + Text(apn, "name[not(@xml:lang)]") : "";
        for (const char* path : {"@value", "username", "password", "dns[1]", "dns[2]", "gateway"}) {
            offer += "|" + Text(apn, path);
        }
        owner.offers.push_back(offer);
    }
    return owner;
}

// What the owners of a key offer: first the primary one, then those with exactly that number.
std::vector<std::string> Expected(const std::vector<Owner>& owners, const std::string& key) {
    std::vector<std::string> expected;
    for (const int rank : {0, 1, 2, 3}) {
        for (const Owner& owner : owners) {
            const auto number = owner.numbers.lower_bound(key);
            if (number != owner.numbers.end() && number->compare(0, 5, key) == 0 &&
                rank == (owner.primary ? 0 : 2) + (*number == key ? 0 : 1)) {
                expected.insert(expected.end(), owner.offers.begin(), owner.offers.end());
            }
        }
    }
    return expected;
}

std::vector<std::string> Detected() {
    std::vector<std::string> offers;
    Velmor_DUNSetting setting;
    Velmor_DetectPhoneAndNetwork(0, nullptr, 0, nullptr, 0);
    for (long i = 0; Velmor_GetDetectedDUNSettingByIndex(0, i, &setting) == 0; ++i) {
        offers.emplace_back(setting.DisplayName);
        for (const char* text : {setting.APN, setting.DefaultUser, setting.DefaultPassword,
                                 setting.Dns1, setting.Dns2, setting.GatewayIP}) {
            offers.back() += "|" + std::string(text);
        }
    }
    return offers;
}

const std::string kPhone = "AT+CGMI: Cinterion\nAT+CGMM: MC55i\n";

class ImportedCatalogue : public SessionTest {};

TEST_F(ImportedCatalogue, OffersWhatTheOwnersOfANumberOrNameHave) {
    pugi::xml_document document;
    if (!document.load_file(kRealFile.c_str())) {
        GTEST_SKIP() << "mobile-broadband-provider-info is not installed";
    }
    std::vector<Owner> owners;
    std::set<std::string> numbers;
    for (const auto& provider : document.select_nodes("//provider[gsm]")) {
        owners.push_back(ReadOwner(provider.node()));
        numbers.insert(owners.back().numbers.begin(), owners.back().numbers.end());
    }
    Import(kRealFile, VELMOR_DATA_DIR "/phones.source", " --force");
    ASSERT_EQ(Velmor_Initialise("out.source", ScriptedPhone::Read, ScriptedPhone::Send), 0);
    for (const std::string& number : numbers) {
        ScriptedPhone::Play((kPhone + "AT+CIMI: ").append(number).append("000000000\n"));
        EXPECT_EQ(Detected(), Expected(owners, number.substr(0, 5))) << number;
    }
    EXPECT_GE(numbers.size(), 800U);
    std::set<std::string> names;
    for (const Owner& owner : owners) {
        ScriptedPhone::Play(kPhone + "AT+COPS?: +COPS: 0,0,\"" + owner.name + "\"\n");
        const std::vector<std::string> offers = Detected();
        if (!offers.empty()) {  // then all operators of that name offer the same
            names.insert(owner.name);
            EXPECT_FALSE(owner.numbers.empty()) << owner.name;
            for (const std::string& number : owner.numbers) {
                EXPECT_EQ(offers, Expected(owners, number.substr(0, 5))) << owner.name;
            }
        }
    }
    EXPECT_GE(names.size(), 300U);
}

}  // namespace
