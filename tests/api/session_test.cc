// SPDX-License-Identifier: MIT
#include <random>

#include "api/setting.h"
#include "database/database.h"
#include "support/faults.h"
#include "support/session.h"
#include "support/texts.h"

namespace {

long Read(char*, long, long) {
    return 0;
}
long Send(const char*, long) {
    return 0;
}

bool IsEmpty() {
    const Velmor& session = *Velmor::getVelmor();
    return !session.database && !session.phones && !session.basicDUNSettings &&
           !session.countries && !session.manufacturers && !session.phoneIdentification &&
           !session.networkIdentification && !session.basicDUNForPhone &&
           !session.countrySettings && !session.detectedSettings;
}

class Session : public SessionTest {};

TEST_F(Session, StartsAndEnds) {
    EXPECT_EQ(Velmor_GetVersionDatabase(0), -1);
    EXPECT_EQ(Velmor_Initialise(VELMOR_SAMPLE_CATALOGUE, Read, Send), 0);
    const Velmor& session = *Velmor::getVelmor();
    EXPECT_TRUE(session.IsComplete() && session.networks && session.basicDUNForPhone);
    EXPECT_EQ(session.readFunction, Read);
    EXPECT_EQ(Velmor_GetVersionDatabase(0), 7);
    Velmor_DeInitialise();
    EXPECT_TRUE(IsEmpty());
    EXPECT_EQ(session.sendFunction, Send);
    EXPECT_EQ(Velmor_GetVersionDatabase(0), -1);
    EXPECT_EQ(Velmor_Initialise(VELMOR_SAMPLE_CATALOGUE, Read, Send), 0);
}

TEST_F(Session, AnotherCatalogueReplacesTheFirst) {
    ASSERT_EQ(Initialise(SampleSource().text(), Read, Send), 0);
    Velmor::getVelmor()->detectedPhoneId = "kept";
    const struct {
        const char* version;
        long number;
    } rows[] = {{"12", 12},
                {" -3x", -3},
                {"99999999999", INT32_MAX},
                {"v1", 0},
                {"-99999999999", INT32_MIN},
                {"007", 7}};
    for (const auto& row : rows) {
        const std::string begin = "_BEGIN_$#Sample#";
        ASSERT_EQ(Initialise(SampleSource().Replace(begin + "7", begin + row.version).text()), 0);
        EXPECT_EQ(Velmor_GetVersionDatabase(0), row.number) << row.version;
    }
    EXPECT_EQ(Velmor::getVelmor()->detectedPhoneId, vel::String("kept"));
    EXPECT_EQ(Velmor::getVelmor()->readFunction, nullptr);
}

TEST_F(Session, RequiredTables) {
    for (const char* table :
         {"Countries", "Phones", "Manufacturers", "BasicDUNSettings", "ManufacturerIdentification",
          "PhoneIdentification", "NetworkIdentification"}) {
        ASSERT_EQ(Initialise(SampleSource().text(), Read, Send), 0);
        EXPECT_EQ(Initialise(SampleSource().Without(table).text()), -1) << table;
        EXPECT_TRUE(IsEmpty()) << table;
        EXPECT_EQ(Velmor::getVelmor()->readFunction, Read);
    }
    for (const char* table : {"BasicDUNForPhone", "Networks", "GeneralVariables"}) {
        EXPECT_EQ(Initialise(SampleSource().Without(table).text()), 0) << table;
    }
}

TEST_F(Session, UnreadableCatalogues) {
    EXPECT_EQ(Velmor_Initialise(nullptr, Read, Send), -1);
    EXPECT_EQ(Velmor_Initialise("missing", Read, Send), -1);
    EXPECT_EQ(Velmor_Initialise(".", Read, Send), -1);
    EXPECT_EQ(Initialise(""), -1);
    std::mt19937 random(1);
    for (int i = 0; i < 200; ++i) {
        std::string bytes;
        for (int k = 0; k < 500; ++k) {
            bytes += "#D\n\\?$"[random() % 6];
            bytes += static_cast<char>(random());
        }
        EXPECT_EQ(Initialise(bytes), -1);
    }
    EXPECT_TRUE(IsEmpty());
}

// Cut off anywhere or with any byte spoilt, the catalogue loads or not, and the same way each time.
TEST_F(Session, DamagedCatalogues) {
    const std::string stored = ReadFile(VELMOR_SAMPLE_CATALOGUE);
    int loaded = 0;
    for (std::size_t n = 0; n < stored.size(); ++n) {
        const long result = Initialise(stored.substr(0, n));
        loaded += result == 0;
        ASSERT_TRUE(result == 0 || IsEmpty()) << n;
        if (n % 7 == 0) {
            std::string spoilt = stored;
            spoilt[n] = static_cast<char>(spoilt[n] ^ (1 << n % 8));
            const long first = Initialise(spoilt);
            ASSERT_EQ(Initialise(spoilt), first) << n;
        }
    }
    EXPECT_GT(loaded, 100);  // all that is cut is part of the last table
    EXPECT_LT(loaded, static_cast<int>(stored.size()) / 2);
}

TEST_F(Session, NothingIsLeftBehind) {
    const std::string twice = SampleSource().text() + "x";
    const std::string duplicate =
        SampleSource()
            .Replace(
                "E#$_TABLE_BEGIN_$#Countries",
                "E#$_TABLE_BEGIN_$#Phones#A#\nE#1#\nE#$_TABLE_END_$#\nE#$_TABLE_BEGIN_$#Countries")
            .text();
    const std::string several = SampleSource().Replace("#$_DATABASE_END_$#", "").text() + duplicate;
    ASSERT_EQ(Initialise(SampleSource().text()), 0);
    Velmor_DeInitialise();
    const std::ptrdiff_t before = allocation::Live();
    for (const std::string* bytes : {&twice, &duplicate, &several}) {
        Initialise(*bytes);
        Velmor_DeInitialise();
        EXPECT_EQ(allocation::Live(), before);
    }
}

TEST_F(Session, TraceBeginsWithItsOwnStart) {
    ASSERT_EQ(Initialise(SampleSource().Traced().text()), 0);
    EXPECT_EQ(Velmor_GetVersionDatabase(5), 7);
    Velmor_DeInitialise();
    EXPECT_EQ(Initialise(SampleSource().Replace("#TRACE#N#", "#TRACE# Y#").text()), 0);
    EXPECT_EQ(Log(),
              "Enter: Velmor_Initialise\r\n"
              "   aDatabaseFile <=    catalogue   \r\n"
              "   (long)aReadFunction <=    0   \r\n"
              "   (long)aSendFunction <=    0   \r\n"
              "Exit: Velmor_Initialise\r\n"
              "Result := 0\r\n"
              "Enter: Velmor_GetVersionDatabase\r\n"
              "   aHandle <=    5   \r\n"
              "Exit: Velmor_GetVersionDatabase\r\n"
              "Result := 7\r\n"
              "Enter: Velmor_DeInitialise\r\n"
              "Exit: Velmor_DeInitialise\r\n");
}

TEST(Setting, FirstRowOfTheNameCounts) {
    vel::Pointer<vel::IDatabase> database;
    vel::Database::Create("", "", *&database);
    vel::Pointer<vel::ITable> table;
    database->CreateTable("T", Texts({"Value", "Variable"}), *&table);
    for (const auto& row :
         {Lines{"y", "trace"}, {"first", "TRACE"}, {"second", "TRACE"}, {"", "AT-RETRY"}}) {
        vel::Pointer<vel::IRow> made;
        table->CreateRow(Texts(row), *&made);
    }
    const vel::Setting setting(table.get());
    EXPECT_EQ(setting.get_Setting("TRACE"), vel::String("first"));
    EXPECT_EQ(setting.get_Setting("AT-RETRY"), vel::String());
    EXPECT_EQ(setting.get_Setting("AT-TIME-OUT"), vel::String());
    EXPECT_EQ(vel::Setting(nullptr).get_Setting("TRACE"), vel::String());
    database->CreateTable("Without a Value", Texts({"Variable"}), *&table);
    vel::Pointer<vel::IRow> made;
    table->CreateRow(Texts({"TRACE"}), *&made);
    EXPECT_EQ(vel::Setting(table.get()).get_Setting("TRACE"), vel::String());
}

}  // namespace
