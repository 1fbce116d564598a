// SPDX-License-Identifier: MIT
// What each subcommand is asked, and the function that runs it and returns the exit status.
#pragma once

#include <string>
#include <vector>

#include "device/port_search.h"
#include "diagnosis/detection.h"
#include "dialer/candidates.h"
#include "dialer/dialer_files.h"

namespace tool {

// The exit statuses of all commands: success, findings or nothing found, failure. Those behind them
// are of connect and dial. A signal gives 128 and its number.
enum ExitStatus {
    kExitOk = 0,
    kExitFindings = 1,
    kExitTrouble = 2,
    kExitNoPhone = 3,       // no phone is attached, or it does not answer
    kExitCard = 4,          // the SIM card is missing, locked or broken
    kExitRegistration = 5,  // not registered with a network, or not with an allowed one
    kExitNoSetting = 6,     // no setting for the network, or no dial row for the phone
    kExitRefused = 7,       // the phone or the network takes no setting
    kExitCredentials = 8,   // the network refuses user or password
    kExitLost = 9,          // the link was up and has ended
};

// velmor check, countries and phones
struct ReadOptions {
    std::string catalogue;
    std::string columns;  // with commas between them; empty: all
    bool json = false;
};

int RunCheck(const ReadOptions& options);
int RunCountries(const ReadOptions& options);
int RunPhones(const ReadOptions& options);

// velmor settings
struct SettingsOptions : ReadOptions {
    std::string country;
    std::string number;  // or the beginning of a subscriber's number (IMSI)
};

int RunSettings(const SettingsOptions& options);

// velmor show
struct ShowOptions : ReadOptions {
    std::string table;
    std::string where;
};

int RunShow(const ShowOptions& options);

// velmor encode and decode
struct ConvertOptions {
    std::string (*convert)(const std::string& path) = nullptr;  // the bytes of the output
    std::string input;
    std::string output;
    bool force = false;
};

int RunConvert(const ConvertOptions& options);

// velmor diff
struct DiffOptions {
    std::string before;
    std::string after;
    bool json = false;
};

int RunDiff(const DiffOptions& options);

// velmor import
struct ImportOptions {
    std::string providers;
    std::vector<std::string> android;  // the newest first
    std::vector<std::string> own;
    std::string phones;
    std::string previous;
    long version = 0;  // 0: none is given
    std::string output;
    std::string iso = "/usr/share/iso-codes/json/iso_3166-1.json";
    bool force = false;
};

int RunImport(const ImportOptions& options);

// velmor devices
struct DevicesOptions {
    PortSearch search;
    bool json = false;
};

int RunDevices(const DevicesOptions& options);

// velmor setting
struct SettingOptions {
    std::string catalogue;
    long phone = 0;
    long setting = 0;
    DialerLink link;
    OutputFormat format;
};

int RunSetting(const SettingOptions& options);

// velmor detect
struct DetectOptions {
    std::string catalogue = VELMOR_CATALOGUE;
    DialerLink link;
    std::string profile;
    std::string search;
    std::string record;
    double timeout = 10;
    double probe = 0.9;
    long setting = 0;  // 0: the first that is ready to dial
    long like = 0;     // 0: the fallback phone that the catalogue names
    Choice choice;
    std::string pinFile;
    bool withPin = false;      // NetworkManager gets the PIN
    bool showNumbers = false;  // of card and device
    bool verbose = false;
    OutputFormat format;
};

int RunDetect(const DetectOptions& options);

// velmor connect
struct ConnectOptions {
    std::string catalogue = VELMOR_CATALOGUE;
    DialerLink link;
    std::string search;
    double timeout = 10;
    double registration = 120;  // seconds to wait for it
    long like = 0;              // as in DetectOptions
    OwnAccessPoint own;
    std::string pinFile;
    std::string state;  // a folder; empty: the usual one
    bool noRoaming = false;
    bool noRoute = false;
    bool replaceRoute = false;
    bool once = false;
    unsigned tries = 3;
    bool verbose = false;
    bool json = false;
};

int RunConnect(const ConnectOptions& options);

// velmor dial
struct DialOptions {
    std::string script;
    std::string undo;
    double registration = 60;
    std::string pinFile;
    bool verbose = false;
};

int RunDial(const DialOptions& options);

// velmor phone
struct PhoneOptions {
    std::string profile;
    std::string network;  // the command that carries calls
    bool verbose = false;
};

int RunPhone(const PhoneOptions& options);

// velmor trace
struct TraceOptions {
    std::string log;
    std::string profile;
    unsigned detection = 0;  // 0: the last
    bool force = false;
    bool json = false;
};

int RunTrace(const TraceOptions& options);

// Runs the subcommand that the words choose. Prints help, what --version asks, and what is wrong
// with the words. Returns the exit status.
int RunCommandLine(const std::string& version, std::vector<std::string> words);

}  // namespace tool
