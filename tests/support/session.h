// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "session/trace.h"
#include "tests/support/end_session.h"
#include "tests/support/files.h"
#include "tests/support/patterns.h"

// The source of the sample catalogue, with changes. The library reads a source as it is: it ignores
// the marker of hidden lines.
class SampleSource {
  public:
    SampleSource& Replace(const std::string& what, const std::string& with) {
        text_.replace(At(what), what.size(), with);
        return *this;
    }
    // Adds a row as the first of a table.
    SampleSource& AddRow(const std::string& table, const std::string& row) {
        const std::size_t at = At("E#$_TABLE_BEGIN_$#" + table + "#");
        text_.insert(text_.find('\n', at) + 1, "E" + row + "\n");
        return *this;
    }
    // With more time for an answer, which a loaded machine needs: four reads of 250 milliseconds.
    SampleSource& Patient() { return Replace("#AT-TIME-OUT#100#", "#AT-TIME-OUT#250#"); }
    SampleSource& Traced() { return Replace("#TRACE#N#", "#TRACE#Yes#"); }
    const std::string& text() const { return text_; }

  private:
    std::size_t At(const std::string& what) const {
        const std::size_t at = text_.find(what);
        EXPECT_NE(at, std::string::npos) << what;
        return at;
    }

    std::string text_ = ReadFile(VELMOR_DATA_DIR "/sample.source");
};

// The source of a catalogue with all phones and networks of data/profiles.
inline std::string AllPhones() {
    return "#$_DATABASE_BEGIN_$#Phones#1#\n" + ReadFile(VELMOR_DATA_DIR "/phones.source") +
           ReadFile(VELMOR_TESTS_DIR "/detection/networks.source");
}

// Leaves the library as in a new process after a test, and no log.
class SessionTest : public testing::Test {
  protected:
    ~SessionTest() override {
        EndSession();
        EXPECT_EQ(Velmor::getVelmor()->traceDepth, 0);
        std::filesystem::remove_all(vel::kTraceLogPath);
    }
    static long Initialise(const std::string& bytes, Velmor_ReadFunction read = nullptr,
                           Velmor_SendFunction send = nullptr) {
        WriteFile("catalogue", bytes);
        return Velmor_Initialise("catalogue", read, send);
    }
    // The trace log without what differs between builds.
    static std::string Log() {
        const std::string address = "(\\(long\\)[a-zA-Z_]+ <= +)-?[1-9][0-9]*";
        const std::string version = "(Exit: Velmor_GetVersionLibrary\r\nResult := )[0-9]+";
        const std::string log = Replaced(ReadFile(vel::kTraceLogPath), address, "$1ADDRESS");
        return Replaced(log, version, "$1VERSION");
    }
    // Compares the log with a file of the tree. With VELMOR_RENEW_LOGS set, replaces the file.
    static void ExpectLog(const std::string& name) {
        const std::string path = VELMOR_TESTS_DIR "/" + name;
        if (std::getenv("VELMOR_RENEW_LOGS") != nullptr) {
            WriteFile(path, Log());
        }
        EXPECT_EQ(Log(), ReadFile(path));
    }
};
