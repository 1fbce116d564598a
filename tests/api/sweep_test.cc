// SPDX-License-Identifier: MIT
// The fault sweeps. A session calls all exported functions, and each request in it fails in turn. A
// request is an allocation or a stdio call.
#include <cstring>

#include "api/at_commands.h"
#include "session/host_text.h"
#include "storage/crypt.h"
#include "tests/support/canned_phone.h"
#include "tests/support/end_session.h"
#include "tests/support/faults.h"
#include "tests/support/session.h"

namespace {

// What a call gave the host. The calls are told smaller sizes than the texts have, so a byte behind
// shows. The struct has no padding: answers are compared as bytes.
struct Answer {
    long result, number;
    char first[24], second[20];
    Velmor_DUNSetting setting;
};

vel::String text(nullptr);  // ATCompress changes it
const vel::String kCommand("AT+CIMI\r"), kRecipe("PhoneIdentificationVariables");

// ATCompress and ATCommand. Their texts have no limit, so part of them is the answer.
long Compress(Answer& a) {
    const long result = ATCompress(text, kRecipe);
    vel::FillText(a.first, 20, text);
    return result;
}
long Command(Answer& a) {
    vel::String response(nullptr);
    const long result = ATCommand(kCommand, response, 0);
    if (result == 0) {
        vel::FillText(a.first, 20, response);
    }
    return result;
}

// The calls in their order. Each has the result that reports its failure.
#define STEP(failure, call)                                              \
    {                                                                    \
#call, failure, [](Answer & a) -> long { return (void)a, call; } \
    }
const struct {
    const char* name;
    long failure;
    long (*call)(Answer& a);
} kSteps[] = {
    STEP(-1, Velmor_Initialise("catalogue", Phone::Read, Phone::Send)),
    STEP(-1, Velmor_DetectPhoneAndNetwork(0, a.first, 4, a.second, 16)),
    STEP(-1, Velmor_GetDetectedPhone(0, a.first, 8, a.second, 4)),
    STEP(-1, Velmor_GetNrDetectedDUNSettings(0, &a.number)),
    STEP(-1, Velmor_GetDetectedDUNSettingByIndex(0, 0, &a.setting)),
    STEP(-1, Velmor_GetDUNSetting(0, 10, 1, &a.setting)),
    STEP(VELMOR_VERSION, Velmor_GetVersionLibrary()),
    STEP(-1, Velmor_GetVersionDatabase(0)),
    STEP(0, Velmor_GetNrCountries(0)),
    STEP(-1, Velmor_GetCountryByIndex(0, 1, a.first, 16)),
    STEP(0, Velmor_GetNrOfPhones(0)),
    STEP(-1, Velmor_GetPhoneByIndex(0, 1, &a.number, a.first, 20)),
    STEP(0, (OnNetworkListnetworks(), 0)),
    STEP(-1, Velmor_GetCountryNrOfBasicDUNSettings(0, 0)),
    STEP(-1, Velmor_GetCountryBasicDUNSettingByIndex(0, 0, 0, &a.setting)),
    STEP(-1, Compress(a)),
    STEP(1, Command(a)),
};
constexpr std::size_t kStepCount = std::size(kSteps), kDetection = 1;
constexpr std::size_t kAfterDetection = 5;  // the first call that asks for none of its results

template <class T>
bool Same(const T& a, const T& b) {
    static_assert(std::has_unique_object_representations_v<T>);
    return std::memcmp(&a, &b, sizeof a) == 0;
}

Answer Do(std::size_t step) {
    Answer answer;
    std::memset(&answer, 0x5A, sizeof answer);
    Velmor::getVelmor()->countrySettings.Reset();  // a cached country needs no memory
    Velmor::getVelmor()->countrySettingsId.Clear();
    Phone::phone = Phone::Acme(step == kDetection);
    answer.result = kSteps[step].call(answer);
    return answer;
}

// The answers to all steps. The session stays open.
struct Session {
    Session() {
        text = "acme-x";
        for (std::size_t i = 0; i < kStepCount; ++i) {
            answers[i] = Do(i);
        }
    }
    Answer answers[kStepCount];
};

void EndAll() {
    EndSession();
    text = vel::String(nullptr);
}

// Judges the answers of a session in which requests fail.
//
// Two answers of each call are known beforehand: the usual one, and the one without a session.
// - A call gives the usual answer. A call that lacks memory may report failure instead; each of its
//   outputs then holds what it holds in one of the two answers.
// - After a failed start, the answers without a session are the usual ones. After a failed
//   detection, this holds for the calls that ask for its results.
// - A call does not fail when a stdio call in it fails. What cannot be written is lost. What cannot
//   be read ends the file, so the usual answers are those with the first part of the catalogue.
class Judge {
  public:
    // Memory is short in the first call that is judged. If lasting, it is short in all later ones.
    Judge(const Session& usual, const Session& without, bool isShort, bool lasting)
        : usual_(usual), without_(without), isShort_(isShort), lasting_(lasting) {}

    // Judges the calls one by one, in their order.
    bool Accepts(std::size_t step, const Answer& got) {
        const bool isUsual = Same(got, (step < usualFrom_ ? without_ : usual_).answers[step]);
        const bool accepted = isUsual || (isShort_ && ReportsFailure(step, got));
        if (!isUsual && step <= kDetection) {
            usualFrom_ = step == kDetection ? kAfterDetection : kStepCount;
        }
        isShort_ = isShort_ && lasting_;
        return accepted;
    }

  private:
    bool ReportsFailure(std::size_t step, const Answer& got) const {
        const Answer &usual = usual_.answers[step], &without = without_.answers[step];
        const auto known = [&](auto output) {
            return Same(got.*output, usual.*output) || Same(got.*output, without.*output);
        };
        return (got.result == kSteps[step].failure || got.result == without.result) &&
               known(&Answer::number) && known(&Answer::first) && known(&Answer::second) &&
               known(&Answer::setting);
    }

    const Session &usual_, &without_;
    bool isShort_;
    const bool lasting_;
    std::size_t usualFrom_ = 0;  // the calls before this one answer as without a session
};

// A sweep: which requests fail, and how. Each is a test of its own, so that they run side by side.
struct Kind {
    const char* name;
    bool ofFiles, traced;  // stdio calls or allocations; with trace
    Fail how;
    std::size_t least;  // four fifths of the failure points that the sweep has now
};

// A catalogue, and what a session with it answers.
class FaultSweep : public SessionTest, public testing::WithParamInterface<Kind> {
  protected:
    // Takes a plain catalogue with tracing and its copy, or a stored one that is longer than a
    // block of reading and a copy of something else. Both have two tables of one name, so the
    // library refuses one and takes it apart.
    void Use(bool traced) {
        SampleSource source;
        const std::string next = "E#$_TABLE_BEGIN_$#Networks#";
        source.Replace(next, "E#$_TABLE_BEGIN_$#Phones#A#\nE#1#\nE#$_TABLE_END_$#\n" + next);
        WriteFile("catalogue", source.text());
        vel::ArrayCrypter().CryptFile("catalogue", "in place");
        bytes_ = std::string(kBlock, '-') + '\n' + ReadFile("catalogue");
        if (traced) {  // fewer settings: a traced call costs a hundred times as much
            const std::string settings = "E#[2-4]#[0-9]+#.*\n";
            bytes_ = Replaced(source.Traced().text(), settings, "");
        }
        without_ = OfTheFirst(0);
        usual_ = OfTheFirst(bytes_.size());
        copy_ = traced ? ReadFile("catalogue.encode") : "other";
        WriteFile("catalogue.encode", copy_);
    }

    // Lets each request of one kind fail in turn, step by step. The session goes on after each
    // failure whose number is a multiple of `every`.
    template <class Requests>
    void Sweep(Fail how, std::size_t every) {
        EndAll();
        const std::ptrdiff_t live = allocation::Live();
        for (std::size_t step = 0; step < kStepCount; ++step) {
            { const Session opened; }
            bool failed = true;
            for (std::size_t n = 1; failed; ++n) {
                if (step == 0) {
                    EndAll();
                    ASSERT_EQ(allocation::Live(), live) << n;
                }
                Fault<Requests>(step, n, how, n % every == 0, failed);
                ASSERT_FALSE(HasFailure()) << kSteps[step].name << ", " << n;
                points_ += failed ? 1 : 0;
            }
            EndAll();
            ASSERT_EQ(allocation::Live(), live) << kSteps[step].name;
        }
    }

    // Does a step in which the n-th request fails. To go on, the session does all later steps while
    // requests still fail, and then all steps without failures.
    template <class Requests>
    void Fault(std::size_t step, std::size_t n, Fail how, bool goOn, bool& failed) {
        constexpr bool kFiles = std::is_same_v<Requests, stdio>;
        std::filesystem::remove(vel::kTraceLogPath);
        text = "acme-x";
        if (step == 0) {
            WriteFile("catalogue.encode", copy_);
        }
        Answer got[kStepCount];
        Requests::FailAfter(n, how);
        got[step] = Do(step);
        const bool isWhole = !kFiles || step > 0 || !readFailed;
        const std::size_t read = bytesRead;
        goOn = Requests::HasFailed() && (goOn || !isWhole);
        const std::size_t end = goOn ? kStepCount : step + 1;
        for (std::size_t i = step + 1; i < end; ++i) {
            got[i] = Do(i);
        }
        failed = Requests::FailAfter(0);
        EXPECT_EQ(Velmor::getVelmor()->traceDepth, 0);
        EXPECT_EQ(stdio::Live(), 0);
        const Session usual = isWhole ? usual_ : OfTheFirst(read);
        Judge judge(usual, without_, !kFiles, how == Fail::kFromThereOn);
        for (std::size_t i = step; i < end; ++i) {
            EXPECT_TRUE(judge.Accepts(i, got[i])) << kSteps[i].name;
        }
        text = "acme-x";
        for (std::size_t i = step == 0 ? 0 : 1; goOn && i < kStepCount; ++i) {
            EXPECT_TRUE(Same(Do(i), usual_.answers[i])) << "afterwards " << kSteps[i].name;
        }
    }

    // The answers of a session that can read only the first bytes of the catalogue.
    Session OfTheFirst(std::size_t size) const {
        WriteFile("catalogue", bytes_.substr(0, size));
        const Session session;
        EndAll();
        WriteFile("catalogue", bytes_);
        return session;
    }

    static constexpr std::size_t kBlock = 65536;
    std::string bytes_;  // of the catalogue
    std::string copy_;   // the file beside it at each start
    Session usual_, without_;
    std::size_t points_ = 0;  // the failures so far
};

constexpr Kind kKinds[] = {
    {"AllocationsOnce", false, false, Fail::kOnce, 1050},
    {"AllocationsOnceTraced", false, true, Fail::kOnce, 3350},
    {"AllocationsFromThereOn", false, false, Fail::kFromThereOn, 1050},
    {"AllocationsFromThereOnTraced", false, true, Fail::kFromThereOn, 3350},
    {"StdioOnce", true, false, Fail::kOnce, 15},
    {"StdioOnceTraced", true, true, Fail::kOnce, 1800},
    {"StdioFromThereOn", true, false, Fail::kFromThereOn, 15},
    {"StdioFromThereOnTraced", true, true, Fail::kFromThereOn, 1800},
    {"StdioShort", true, false, Fail::kShort, 15},
    {"StdioShortTraced", true, true, Fail::kShort, 1800},
};

TEST_P(FaultSweep, EveryCallOfASession) {
    const Kind& kind = GetParam();
    Use(kind.traced);
    const std::size_t every = kind.traced ? 100 : 1;
    kind.ofFiles ? Sweep<stdio>(kind.how, every) : Sweep<allocation>(kind.how, every);
    std::cout << kind.name << ": " << points_ << " failure points\n";
    EXPECT_GE(points_, kind.least);
}

INSTANTIATE_TEST_SUITE_P(, FaultSweep, testing::ValuesIn(kKinds),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
