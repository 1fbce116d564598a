// SPDX-License-Identifier: MIT
// The fault sweeps: a whole session over the exported functions, in which each allocation and each
// stdio call fails in turn.
#include <cstring>

#include "detection/at_command.h"
#include "detection/at_compress.h"
#include "session/host_text.h"
#include "storage/crypt.h"
#include "tests/support/end_session.h"
#include "tests/support/faults.h"
#include "tests/support/session.h"

namespace {

// A phone that needs no memory itself.
const char* canned = "";

long Send(const char* command, long length) {
    const std::string_view sent(command, static_cast<std::size_t>(length));
    canned = sent == "AT+CGMI\r"   ? "AT+CGMI\r\r\nAcme\r\n\r\nOK\r\n"
             : sent == "AT+GMM\r"  ? "AT+GMM\r\r\nACME X100\r\n\r\nOK\r\n"
             : sent == "AT+CIMI\r" ? "AT+CIMI\r\r\n999011234\r\n\r\nOK\r\n"
                                   : "\r\nERROR\r\n";
    return length;
}

long Read(char* buffer, long, long) {
    *buffer = *canned;
    return *canned++ == '\0' ? 0 : 1;
}

// What a call gave the host. The texts are told to be shorter than they are.
struct Answer {
    long result, number;
    char first[24], second[24];
    Velmor_DUNSetting setting;
};

vel::String text(nullptr);  // goes into ATCompress and comes out
const vel::String kCommand("AT+CIMI\r"), kRecipe("PhoneIdentificationVariables");

// ATCompress and ATCommand, whose texts have no bounds.
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

// The calls in their order, each with its result in case of failure.
#define STEP(failure, call)                                              \
    {                                                                    \
#call, failure, [](Answer & a) -> long { return (void)a, call; } \
    }
const struct {
    const char* name;
    long failure;
    long (*call)(Answer& a);
} kSteps[] = {
    STEP(-1, Velmor_Initialise("catalogue", Read, Send)),
    STEP(-1, Velmor_DetectPhoneAndNetwork(0, a.first, 4, a.second, 16)),
    STEP(-1, Velmor_GetDetectedPhone(0, a.first, 8, a.second, 4)),
    STEP(-1, Velmor_GetNrDetectedDUNSettings(0, &a.number)),
    STEP(-1, Velmor_GetDetectedDUNSettingByIndex(0, 0, &a.setting)),
    STEP(-1, Velmor_GetDUNSetting(0, 10, 1, &a.setting)),
    STEP(150, Velmor_GetVersionLibrary()),
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

bool operator==(const Answer& a, const Answer& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

Answer Do(std::size_t step) {
    Answer answer;
    std::memset(&answer, 0x5A, sizeof answer);
    Velmor::getVelmor()->countrySettings.Reset();  // no call finds anything cached
    Velmor::getVelmor()->countrySettingsId.Clear();
    answer.result = kSteps[step].call(answer);
    return answer;
}

// The answers to all steps of a session, which then is open.
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

// Whether a call that ran out of memory did as it did before, or told a failure. What it then gave
// the host is what it gave before, or what it gives without a session.
bool Allowed(std::size_t step, const Answer& got, const Answer& whole, const Answer& refused) {
    const auto either = [&](auto field) {
        const auto is = [&](const Answer& other) {
            return std::memcmp(&(got.*field), &(other.*field), sizeof(got.*field)) == 0;
        };
        return is(whole) || is(refused);
    };
    const bool failed = got.result == kSteps[step].failure || got.result == refused.result;
    return got == whole || (failed && either(&Answer::number) && either(&Answer::first) &&
                            either(&Answer::second) && either(&Answer::setting));
}

// A catalogue, and what a session over it is to say.
class FaultSweep : public SessionTest {
  protected:
    // A plain catalogue that has calls traced, or a stored one, longer than what is read at once.
    // Both hold a table that is refused and taken apart.
    void Use(bool traced) {
        SampleSource source;
        source.Replace("E#$_TABLE_BEGIN_$#Networks#",
                       "E#$_TABLE_BEGIN_$#Phones#A#\nE#1#\nE#$_TABLE_END_$#\n"
                       "E#$_TABLE_BEGIN_$#Networks#");
        WriteFile("catalogue", source.text());
        vel::ArrayCrypter().CryptFile("catalogue", "in place");
        bytes_ = std::string(1500, '-') + '\n' + ReadFile("catalogue");
        if (traced) {  // with fewer settings: a call costs a hundred times as much
            const std::regex settings("E#[2-4]#[0-9]+#.*\n");
            bytes_ = std::regex_replace(source.Traced().text(), settings, "");
        }
        refused_ = OfTheFirst(0);
        whole_ = OfTheFirst(bytes_.size());
        const std::size_t before = stdio::Count();
        Velmor::getVelmor()->Init("catalogue");
        loading_ = stdio::Count() - before;
        EndAll();
    }

    // Lets every call of one kind fail, in one step after the other.
    template <class Kind>
    void Sweep(const std::string& name, typename Kind::Fail how, std::size_t every) {
        EndAll();
        const std::ptrdiff_t live = allocation::Live();
        std::size_t points = 0;
        for (std::size_t step = 0; step < kStepCount; ++step) {
            { const Session opened; }
            bool failed = true;
            for (std::size_t n = 1; failed; ++n) {
                if (step == 0) {
                    EndAll();
                    ASSERT_EQ(allocation::Live(), live) << name << ", " << n;
                }
                Fault<Kind>(step, n, how, n % every == 0, failed);
                ASSERT_FALSE(HasFailure()) << name << ", " << kSteps[step].name << ", " << n;
                points += failed ? 1 : 0;
            }
            EndAll();
            ASSERT_EQ(allocation::Live(), live) << name << ", " << kSteps[step].name;
        }
        std::cout << name << ": " << points << " failure points\n";
        EXPECT_GT(points, 8U);
    }

    // One step with a fault at its n-th call. Where it is to go on, the session does so under the
    // same fault, and then without it.
    template <class Kind>
    void Fault(std::size_t step, std::size_t n, typename Kind::Fail how, bool goOn, bool& failed) {
        constexpr bool kFiles = std::is_same_v<Kind, stdio>;
        std::filesystem::remove(vel::kTraceLogPath);
        std::size_t read = bytes_.size();
        if constexpr (kFiles) {
            read = step == 0 ? ReadUntil(n, how) : read;
        }
        const Session expected = read == bytes_.size() ? whole_ : OfTheFirst(read);
        // What cannot be written is lost, and what cannot be read ends the file. Where memory was
        // short only once, only the end of a session or of a detection is felt later; nothing is
        // told of a detection that failed.
        bool detected = true;
        const auto right = [&](std::size_t i, const Answer& answer, bool harmed) {
            const bool untold = !detected && i <= kDetection + 3;
            const Session& whole = untold ? refused_ : whole_;
            return kFiles || !harmed ? answer == expected.answers[i]
                                     : Allowed(i, answer, whole.answers[i], refused_.answers[i]);
        };
        text = "acme-x";
        Kind::FailAfter(n, how);
        const Answer first = Do(step);
        bool good = right(step, first, true);
        detected = step > kDetection || first.result == 0;
        const bool harmed = how == Kind::Fail::kFromThereOn ||
                            (step <= kDetection && !(first == whole_.answers[step]));
        goOn = Kind::HasFailed() && (goOn || read != bytes_.size());
        for (std::size_t i = step + 1; goOn && i < kStepCount; ++i) {
            good = right(i, Do(i), harmed) && good;
        }
        failed = Kind::FailAfter(0);
        EXPECT_TRUE(good);
        EXPECT_EQ(Velmor::getVelmor()->traceDepth, 0);
        EXPECT_EQ(stdio::Live(), 0);
        text = "acme-x";
        for (std::size_t i = step == 0 ? 0 : 1; goOn && i < kStepCount; ++i) {
            EXPECT_TRUE(Do(i) == whole_.answers[i]) << "afterwards " << kSteps[i].name;
        }
    }

    // The answers when only the first bytes of the catalogue can be read.
    Session OfTheFirst(std::size_t size) const {
        WriteFile("catalogue", bytes_.substr(0, size));
        const Session session;
        EndAll();
        WriteFile("catalogue", bytes_);
        return session;
    }

    // How much of the catalogue is read when the n-th stdio call of the start fails. At the end of
    // loading it is opened, read in blocks and closed; before that, its copy is written.
    std::size_t ReadUntil(std::size_t n, stdio::Fail how) const {
        const std::size_t opened = loading_ - 1 - (bytes_.size() + 4095) / 4096;
        const bool isShort = how == stdio::Fail::kShort;
        const std::size_t first = how == stdio::Fail::kFromThereOn ? 0 : opened - (isShort ? 1 : 0);
        if (n < first || n >= loading_) {
            return bytes_.size();
        }
        const std::size_t start = n <= opened ? 0 : 4096 * (n - opened - 1);
        return start + (isShort ? std::min<std::size_t>(4096, bytes_.size() - start) / 2 : 0);
    }

    std::string bytes_;  // of the catalogue
    Session whole_, refused_;
    std::size_t loading_ = 0;  // the stdio calls that loading it takes
};

TEST_F(FaultSweep, EveryCallOfASession) {
    for (const bool traced : {false, true}) {
        Use(traced);
        const std::string with = traced ? " with trace, " : ", ";
        const std::size_t every = traced ? 100 : 1;
        Sweep<allocation>("allocations" + with + "once", allocation::Fail::kOnce, every);
        Sweep<allocation>("allocations" + with + "from there on", allocation::Fail::kFromThereOn,
                          every);
        Sweep<stdio>("stdio" + with + "once", stdio::Fail::kOnce, every);
        Sweep<stdio>("stdio" + with + "from there on", stdio::Fail::kFromThereOn, every);
        Sweep<stdio>("stdio" + with + "short", stdio::Fail::kShort, every);
    }
}

}  // namespace
