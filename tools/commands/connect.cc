// SPDX-License-Identifier: MIT
// velmor connect: from a plugged-in phone to a link, and back to it when the link drops.
//
// What a person would do: find the phone, end what is left of a call, look at card and
// registration, then dial with one setting after another until the network takes one. It stops
// early where another try makes things worse: a PIN is never guessed, and credentials are refused
// only twice.
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>

#include "commands/connect_checks.h"
#include "commands/connect_report.h"
#include "commands/devices.h"
#include "commands/options.h"
#include "diagnosis/phone_state.h"
#include "diagnosis/sim_card.h"
#include "dialer/candidates.h"
#include "dialer/pppd.h"
#include "host/session.h"
#include "support/error.h"
#include "support/interruption.h"
#include "support/utf8.h"

namespace tool {
namespace {

// How often credentials may be refused: some networks lock a card that guesses.
constexpr int kMostCredentials = 2;
// The seconds before another try, doubled with each.
constexpr int kFirstPause = 2;
constexpr int kLongestPause = 60;
// A link that is up for so many seconds ends a row of failures: a network that drops each call at
// once is not dialled for ever.
constexpr int kStable = 60;
// The first exit status of pppd(8) that says something about the setting. Those below it are about
// its options, its rights, its kernel and the device.
constexpr int kConnectFailed = 8;
constexpr int kLockFailed = 6;
constexpr int kOpenFailed = 7;
constexpr int kNotStarted = 127;  // there is no pppd

// All that belongs to the phone, over several links.
class Connection {
  public:
    explicit Connection(const ConnectOptions& options)
        : options_(options),
          connect_(Pppd::ConnectCommand(options.verbose)),
          report_(options.json),
          session_(options.catalogue, Dialogue::Read, Dialogue::Send),
          memory_(StateFolder(options.state)) {
        SerialLine::Speed(options.link.baud);  // throws for a wrong speed
        Findings ignored;
        catalogue_ = ReadCatalogue(session_.bytes(), ignored);
        if (!options.pinFile.empty()) {
            pin_.emplace(options.pinFile);
        }
        if (!memory_.Problem().empty()) {
            report_.Tell("state", memory_.Problem());
        }
    }
    // Puts the phone back as it was.
    ~Connection() {
        if (leftContexts_) {
            undo_.insert(undo_.begin(), contexts_.begin(), contexts_.end());
        }
        if (!undo_.empty()) {
            Restore();
        }
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    const ConnectReport& report() const { return report_; }

    // Establishes a link and waits until it ends. Throws NoLink with the reason. Returns when a
    // signal came.
    void Run();
    // Whether there has been a link since the last call that was up for long.
    bool WasStable() {
        return std::exchange(online_, std::nullopt).value_or(Clock::now()) +
                   std::chrono::seconds(kStable) <
               Clock::now();
    }

  private:
    Detection AskPhone();
    // Dials with the candidate. Throws NoLink when a link came up and has ended. Returns whether a
    // signal came.
    bool Try(const Candidate& candidate, const Detection& found);
    // Throws NoLink when another candidate is of no use.
    void TellRefusal(const Candidate& candidate, const LinkState& state, int status);
    void TellOnline(const Candidate& candidate, const Detection& found, const LinkState& link);
    void Restore();

    using Clock = std::chrono::steady_clock;

    const ConnectOptions& options_;
    const std::string connect_;
    ConnectReport report_;
    LibrarySession session_;
    Catalogue catalogue_;
    std::optional<PinFile> pin_;
    CardMemory memory_;
    std::string imsi_;
    std::string device_;
    std::string phone_;          // the device and the card
    Commands undo_;              // of what prepared the phone
    Commands contexts_;          // as they were
    bool leftContexts_ = false;  // pppd did not put them back
    std::vector<Candidate> candidates_;
    int refusedCredentials_ = 0;
    std::optional<Clock::time_point> online_;  // since when there was a link
};

Detection Connection::AskPhone() {
    std::optional<SerialLine> line;
    try {
        line.emplace(device_, options_.link.baud);
    } catch (const ToolError& error) {  // unplugged, or in use for a moment
        throw NoLink(kExitNoPhone, error.what(), true);
    }
    Dialogue dialogue(*line, LibraryPatience(catalogue_), options_.timeout,
                      !options_.verbose && isatty(STDERR_FILENO) == 0);
    if (!dialogue.Reach()) {
        throw NoLink(kExitNoPhone, device_ + ": the phone does not answer", true);
    }
    const Commands undo = PreparePhone(dialogue);
    undo_ = undo_.empty() ? undo : undo_;  // a later try finds what this one changed
    AwaitSimCard(dialogue);
    const DetectionPlan plan = {catalogue_, options_.like, pin_ ? &*pin_ : nullptr};
    Detection found;
    try {
        found = Detect(dialogue, plan);
    } catch (const ToolError& error) {  // no answer to the PIN
        throw NoLink(kExitCard, error.what(), false);
    }
    if (dialogue.IsOpen()) {
        CheckCard(found);
        CheckRegistration(dialogue, options_, report_);
    }
    candidates_ = Candidates(found, plan, options_.own);
    std::set<std::string> defined;
    for (const Candidate& candidate : candidates_) {
        for (const std::string& command : candidate.script) {
            defined.insert(DefinedContext(command));
        }
    }
    defined.erase("");
    // A later try would read what an earlier one left.
    imsi_ = Imsi(found.dialogue);
    const std::string phone = device_ + " " + imsi_;
    if (phone_ != phone) {
        undo_ = phone_.empty() ? undo_ : undo;  // another phone
        phone_ = phone;
        contexts_ = ReadContexts(dialogue, defined);
        leftContexts_ = false;
    }
    if (dialogue.State() == DialogueState::kAbandoned) {
        throw ToolError(options_.catalogue,
                        ": the library repeats failed reads too often; velmor check tells why");
    }
    if (dialogue.State() == DialogueState::kDeviceGone) {
        throw NoLink(kExitNoPhone, device_ + ": the device is gone", true);
    }
    return found;
}

void Connection::Run() {
    device_ = options_.link.device.empty() ? FindDevice(options_.search, options_.link.baud)
                                           : options_.link.device;
    if (device_.empty()) {
        throw NoLink(kExitNoPhone, "no phone is attached, or none answers", true);
    }
    const Detection found = AskPhone();
    if (Interruption::Signal() != 0) {
        return;
    }
    if (const auto last = memory_.Find(imsi_)) {
        PutRememberedFirst(candidates_, *last, options_.own.given);
    }
    report_.Tell(
        "phone", Concat(found.PhoneName(), " at ", device_),
        {{"manufacturer", found.manufacturer}, {"phone", found.phone}, {"device", device_}});
    if (candidates_.empty()) {
        throw NoLink(kExitNoSetting, "the catalogue does not say how this phone dials", false);
    }
    for (const Candidate& candidate : candidates_) {
        if (Interruption::Signal() != 0) {
            return;
        }
        if (Try(candidate, found)) {
            return;
        }
    }
    if (found.settings.empty() && !options_.own.given) {
        throw NoLink(kExitNoSetting,
                     "the catalogue has no setting for this network, number " +
                         found.identification.digits +
                         "; --apn names the access point, which its operator tells",
                     found.identification.digits.empty());
    }
    throw NoLink(kExitRefused, "the network refuses every setting", true);
}

bool Connection::Try(const Candidate& candidate, const Detection& found) {
    const std::string name = HostText(candidate.setting.APN);
    const PppKind kind = {ContextTypes(candidate.script), candidate.authentication};
    const char* const words =
        name.empty() ? "dials with the empty access point" : "dials with the access point ";
    report_.Tell(
        "dialling",
        Concat(found.networkType == kCdmaType ? "dials as in CDMA" : words, name,
               candidate.insteadOfIpv6 ? ", with IPv4 alone" : "",
               candidate.reason.empty() ? "" : " (for this card: " + candidate.reason + ")"),
        {{"access-point", name},
         {"setting", candidate.setting.aBasicDUNSettingId},
         {"types", kind.types},
         {"match", candidate.reason}});
    const std::string routes = options_.replaceRoute ? "replacedefaultroute\n" : "";
    std::string pppdOptions;
    try {
        pppdOptions =
            PppdOptions(candidate.setting, kind, {device_, options_.link.baud}, connect_) +
            (options_.noRoute ? "nodefaultroute\n" : routes);
        WriteDialScript("", candidate.script);
    } catch (const ToolError& error) {  // a value of the catalogue: another setting may do
        report_.Tell("refused", error.what());
        return false;
    }
    Pppd pppd(pppdOptions, candidate.script, contexts_, options_.verbose);
    const bool online = pppd.AwaitLink(kind.HasIpv4());
    if (online) {
        online_ = Clock::now();
        refusedCredentials_ = 0;
        TellOnline(candidate, found, pppd.state());
        pppd.AwaitEnd();
    }
    const bool interrupted = Interruption::Signal() != 0;
    const int status = pppd.End();
    leftContexts_ = leftContexts_ || pppd.LeftContexts();
    if (online && !interrupted) {
        throw NoLink(kExitLost, "the link is lost", true);
    }
    if (!interrupted) {
        TellRefusal(candidate, pppd.state(), status);
    }
    return interrupted;
}

void Connection::TellRefusal(const Candidate& candidate, const LinkState& state, int status) {
    if (status == kOpenFailed || status == kLockFailed) {
        throw NoLink(kExitNoPhone, device_ + ": " + state.problem, true);
    }
    if (status < kConnectFailed || status == kNotStarted) {
        throw ToolError("pppd ended with status ", status, ": ", state.problem);
    }
    if (state.dialStatus >= kExitNoPhone && state.dialStatus <= kExitRegistration) {
        throw NoLink(state.dialStatus, state.problem, state.dialStatus != kExitCard);
    }
    if (!state.refusedCredentials) {
        report_.Tell("refused", state.dialled.empty()
                                    ? state.problem
                                    : Concat("the call began, but no link came up (pppd ended with"
                                             " status ",
                                             status, ")"));
        return;
    }
    report_.Tell("refused", HostText(candidate.setting.DefaultUser).empty()
                                ? "the network wants a user and a password; --apn with --user and"
                                  " --password gives them"
                                : "the network refuses user or password");
    if (++refusedCredentials_ >= kMostCredentials) {
        throw NoLink(kExitCredentials,
                     "the network refused user or password twice; more tries could lock the card",
                     false);
    }
}

void Connection::TellOnline(const Candidate& candidate, const Detection& found,
                            const LinkState& link) {
    const std::string apn = HostText(candidate.setting.APN);
    const std::string own = NameServers(candidate.setting);
    const std::string servers = link.nameServers.empty() ? own : Join(link.nameServers, " ");
    const Identification& said = found.identification;
    const std::string network =
        said.operatorName.empty() ? said.digits : said.operatorName + " (" + said.digits + ")";
    report_.TellOnline({{"Phone", found.PhoneName()},
                        {"Network", network},
                        {"Access point", apn.empty() ? "(empty)" : apn},
                        {"Interface", link.interface},
                        {"Address", link.address},
                        {"Name servers", servers.empty() ? "none" : servers}},
                       {{"phone", found.phone},
                        {"network", network},
                        {"access-point", apn},
                        {"interface", link.interface},
                        {"address", link.address},
                        {"peer", link.peer},
                        {"name-servers", servers}});
    try {
        CardMemory memory(StateFolder(options_.state));  // another device may have changed it
        memory.Remember(imsi_, {apn, HostText(candidate.setting.DefaultUser), link.dialled,
                                Join(ContextTypes(candidate.script), " ")});
    } catch (const ToolError& error) {
        report_.Tell("state", error.what());
    }
}

void Connection::Restore() {
    Interruption::Ignore();
    try {
        SerialLine line(device_, options_.link.baud);
        Dialogue dialogue(line, 0, options_.timeout, !options_.verbose);
        if (dialogue.Reach()) {
            RunDialScript(dialogue, undo_);
        }
    } catch (const ToolError& error) {
        report_.Tell("state", error.what());
    }
}

}  // namespace

int RunConnect(const ConnectOptions& options) {
    // Without a reader of the output the phone must be put back all the same.
    std::signal(SIGPIPE, SIG_IGN);
    const Interruption interruption;
    Connection connection(options);
    int pause = kFirstPause;
    for (unsigned failed = 0; true;) {
        try {
            connection.Run();
        } catch (const NoLink& reason) {
            const bool stable = connection.WasStable();
            failed = stable ? 1 : failed + 1;
            pause = stable ? kFirstPause : std::min(2 * pause, kLongestPause);
            const bool ends = options.once || !reason.again() || failed >= options.tries;
            connection.report().Tell(ends ? "ended" : "waiting", reason.what(),
                                     {{"status", reason.status()}});
            if (ends) {
                return reason.status();
            }
        }
        Interruption::Wait(nullptr, 0, pause * 1000);
        if (const int signal = Interruption::Signal(); signal != 0) {
            connection.report().Tell("ended", "interrupted", {{"status", 128 + signal}});
            return 128 + signal;  // as shells report a signal
        }
    }
}

}  // namespace tool
