// SPDX-License-Identifier: MIT
// The subcommands and their arguments.
#include "catalogue/conversion.h"
#include "commands/arguments.h"
#include "commands/usage.h"
#include "support/utf8.h"

namespace tool {
namespace {

constexpr char kUsualCatalogue[] = "default: " VELMOR_CATALOGUE;

void AddConversion(CommandLine& line, const char* name, const char* help, const char* from,
                   const char* to, std::string (*convert)(const std::string& path),
                   const char* example) {
    const auto [app, options] =
        AddSubcommand(line, name, help, RunConvert,
                      "Line ends become line feeds. Everything else comes back byte for byte.\n" +
                          std::string(example));
    options->convert = convert;
    AddFile(app, from, options->input)->required();
    Add(app, "-o,--output", options->output, to, "file to write")->required();
    app->add_flag("--force", options->force, "replace an existing file");
}

void AddConnect(CommandLine& line) {
    const auto [app, options] = AddSubcommand(
        line, "connect", "Brings the device online through its phone, and keeps it online.",
        RunConnect,
        "Needs pppd, and root. Exit status: 2 trouble, 3 no phone, 4 SIM card, 5 no registration, "
        "6\n"
        "no setting, 7 refused, 8 credentials refused, 9 link lost (--once); 128 and its number\n"
        "after a signal.\n"
        "Example: velmor connect --pin-file /etc/velmor/pin\n");
    AddFile(app, "CATALOGUE", options->catalogue, kUsualCatalogue);
    AddLink(app, options->link, options->search);
    AddDetection(app, options->timeout, options->like);
    CLI::Option* const apn =
        Add(app, "--apn", options->own.name, "NAME", "try this access point first");
    apn->each([own = &options->own](const std::string&) { own->given = true; });
    Add(app, "--user", options->own.user, "NAME", "user for --apn")->needs(apn);
    Add(app, "--password", options->own.password, "TEXT", "password for --apn")->needs(apn);
    AddPinFile(app, options->pinFile);
    Add(app, "--registration", options->registration, "SECONDS",
        "wait so long until the phone is registered; default 120")
        ->check(CLI::Range(0.0, 86400.0));
    app->add_flag("--no-roaming", options->noRoaming, "stay in the operator's own network");
    CLI::Option* const none =
        app->add_flag("--no-default-route", options->noRoute, "leave the default route as it is");
    app->add_flag("--replace-default-route", options->replaceRoute,
                  "take the default route even where there is one")
        ->excludes(none);
    app->add_flag("--once", options->once, "end when the link ends, or cannot be established");
    Add(app, "--tries", options->tries, "N", "end after so many failures in a row; default 3")
        ->check(CLI::Range(1L, kHighestId));
    Add(app, "--state", options->state, "FOLDER",
        "where to remember what worked; default $STATE_DIRECTORY, else /var/lib/velmor");
    AddVerbose(app, options->verbose);
    app->add_flag("--json", options->json, "print an object for each step");
}

void AddDial(CommandLine& line) {
    const auto [app, options] = AddSubcommand(
        line, "dial", "Dials for pppd: its option connect starts this command.", RunDial,
        "The line is standard input and output. SCRIPT holds AT commands, a line each; a command\n"
        "that dials ends an attempt, and what follows is the next one. Exit statuses are those of\n"
        "velmor connect.\n"
        "Example: pppd /dev/ttyACM0 connect 'exec velmor dial /etc/ppp/peers/velmor.dial'\n");
    AddFile(app, "SCRIPT", options->script, "AT commands")->required();
    Add(app, "--undo", options->undo, "SCRIPT", "commands that follow a failure");
    Add(app, "--registration", options->registration, "SECONDS",
        "wait so long until the phone is registered; default 60")
        ->check(CLI::Range(0.0, 86400.0));
    AddPinFile(app, options->pinFile);
    AddVerbose(app, options->verbose);
}

void AddDetect(CommandLine& line) {
    const auto [app, options] = AddSubcommand(
        line, "detect", "Detects the phone on a serial device and shows the settings that fit.",
        RunDetect,
        "An unknown phone is dialled with the rows of the fallback phone that the catalogue "
        "names.\n"
        "Exit status 1 when no setting is ready to dial.\n"
        "Example: velmor detect my.catalogue --device /dev/rfcomm0\n",
        {"--setting"});
    AddFile(app, "CATALOGUE", options->catalogue, kUsualCatalogue);
    CLI::App* const source = AddLink(app, options->link, options->search);
    Add(source, "--phone", options->profile, "PROFILE",
        "play this profile instead of a real phone");
    AddDetection(app, options->timeout, options->like);
    Add(app, "--probe", options->probe, "SECONDS",
        "wait so long for any answer before the detection; default 0.9; 0: do not ask")
        ->check(CLI::Range(0.0, 3600.0));
    Add(app, "--record", options->record, "PROFILE",
        "write the dialogue as a profile that --phone plays");
    Add(app, "--setting", options->setting, "SETTING-ID",
        "for a dialler: use this setting, not the first one")
        ->check(CLI::Range(1L, long{INT32_MAX}));
    Add(app, "--apn", options->choice.apn, "NAME", "only settings with this access point");
    Add(app, "--contract", options->choice.contract, "KIND",
        "only settings for this contract: prepaid or postpaid")
        ->check(CLI::IsMember({"prepaid", "postpaid"}));
    CLI::Option* const pin = AddPinFile(app, options->pinFile);
    app->add_flag("--with-pin", options->withPin, "with --format networkmanager: write the PIN too")
        ->needs(pin);
    app->add_flag("--show-numbers", options->showNumbers,
                  "with --json: IMSI, ICCID and serial numbers too");
    AddVerbose(app, options->verbose);
    AddFormat(app, options->format);
}

void AddDevices(CommandLine& line) {
    const auto [app, options] = AddSubcommand(
        line, "devices", "Lists the serial devices that may be a phone, and asks each.", RunDevices,
        "The usual names are those in /dev/serial/by-id, ttyACM*, ttyUSB* and rfcomm*.\n"
        "Exit status 1 when no device answers.\n"
        "Example: velmor devices --search 'ttyS*'\n");
    Add(app, "--search", options->search.pattern, "PATTERN",
        "look for these devices, not for those with the usual names");
    Add(app, "--baud", options->search.baud, "N", "speed of the devices; default 115200");
    AddJson(app, options->json);
}

void AddDiff(CommandLine& line) {
    const auto [app, options] = AddSubcommand(
        line, "diff",
        "Tells what the change from one catalogue to another means for phones and networks.",
        RunDiff,
        "Exit status: 0 when both say the same, 1 when they differ, also in identifiers alone, 2\n"
        "when a file cannot be read or is damaged.\n"
        "Example: velmor diff old.catalogue new.source\n");
    AddFile(app, "OLD", options->before, "catalogue or source before the change")->required();
    AddFile(app, "NEW", options->after, "catalogue or source after it")->required();
    AddJson(app, options->json);
}

void AddImport(CommandLine& line) {
    const auto [app, options] = AddSubcommand(
        line, "import",
        "Makes a catalogue source from mobile operators' data and a source of phones.", RunImport,
        "Reports what was imported and how often each rule was used.\n"
        "Example: velmor import serviceproviders.xml --phones phones.source -o operators.source");
    AddFile(app, "SERVICEPROVIDERS.XML", options->providers,
            "the operators' data of mobile-broadband-provider-info");
    Add(app, "--android", options->android, "PATH",
        "Android's list of access points, or a folder of lists; several, newest first")
        ->allow_extra_args(false);
    Add(app, "--add", options->own, "SOURCE",
        "own networks and settings, before those of the lists; can be given several times")
        ->allow_extra_args(false);
    Add(app, "--phones", options->phones, "SOURCE",
        "source with manufacturers, phones, their answers and the recipes")
        ->required();
    Add(app, "--previous", options->previous, "CATALOGUE",
        "the catalogue to renew: what is still there keeps its identifiers");
    Add(app, "--version", options->version, "N",
        "version of the catalogue; default: one more than that of --previous")
        ->check(CLI::Range(1L, kHighestId));
    Add(app, "-o,--output", options->output, "SOURCE", "file to write")->required();
    Add(app, "--iso", options->iso, "JSON", "English names of countries, from iso-codes")
        ->capture_default_str();
    app->add_flag("--force", options->force, "replace an existing file");
}

void AddPhone(CommandLine& line) {
    const auto [app, options] = AddSubcommand(
        line, "phone", "Plays a simulated phone on a pseudo-terminal.", RunPhone,
        "Prints the path of the device and plays until Control-C or until the phone disconnects.\n"
        "Example: velmor phone data/profiles/nokia-6300.profile\n");
    AddFile(app, "PROFILE", options->profile, "how the phone answers")->required();
    Add(app, "--network", options->network, "COMMAND",
        "carry calls with this program, which takes the options of pppd");
    AddVerbose(app, options->verbose);
}

void AddSetting(CommandLine& line) {
    const auto [app, options] =
        AddSubcommand(line, "setting", "Shows one dial-up setting for one phone.", RunSetting,
                      "Exit status 1 when the catalogue does not say how the phone dials.\n"
                      "Example: velmor setting my.catalogue --phone 10 --setting 1 --format ppp\n",
                      {"--device", "--baud"});
    AddCatalogue(app, options->catalogue);
    Add(app, "--phone", options->phone, "PHONE-ID", "identifier as velmor phones prints it")
        ->required();
    Add(app, "--setting", options->setting, "SETTING-ID", "identifier as velmor settings prints it")
        ->required();
    Add(app, "--device", options->link.device, "PATH", "for a dialler: serial device of the phone");
    Add(app, "--baud", options->link.baud, "N", "speed of the device; default 115200");
    AddFormat(app, options->format);
}

void AddShow(CommandLine& line) {
    const auto [app, options] =
        AddSubcommand(line, "show", "Shows the tables of a catalogue, or the rows of one.", RunShow,
                      "Exit status 1 when --where finds no row.\n"
                      "Example: velmor show my.catalogue Phones --where ManufacturerID=1\n");
    AddCatalogue(app, options->catalogue);
    CLI::Option* const table = AddFile(app, "TABLE", options->table, "table to show");
    Add(app, "--where", options->where, "COLUMN=VALUE", "only the rows that hold this value")
        ->needs(table);
    AddColumns(app, *options)->needs(table);
    AddJson(app, options->json);
}

void AddTrace(CommandLine& line) {
    const auto [app, options] = AddSubcommand(
        line, "trace", "Shows the calls in a trace log, or makes a profile of a detection.",
        RunTrace,
        "User names, passwords, subscriber numbers and serial numbers are not shown.\n"
        "Exit status 1 when a part of the log could not be read.\n"
        "Example: velmor trace phonelinkcatalog.log --profile customer.profile\n");
    AddFile(app, "LOG", options->log)->required();
    CLI::Option* const profile = Add(app, "--profile", options->profile, "PROFILE",
                                     "write the dialogue of the last detection as a profile");
    Add(app, "--detection", options->detection, "N",
        "with --profile: the detection with this number")
        ->needs(profile)
        ->check(CLI::Range(1L, 1000000L));
    app->add_flag("--force", options->force, "replace an existing profile")->needs(profile);
    AddJson(app, options->json);
}

// The commands with few arguments, and the others, in the order of the help.
void AddSubcommands(CommandLine& line) {
    const auto [check, checked] = AddSubcommand(
        line, "check", "Reports what is wrong with a catalogue, in its source or stored form.",
        RunCheck,
        "Exit status: 0 without errors (warnings do not count), 1 with errors, 2 when the file"
        " cannot be read.\nExample: velmor check my.source\n");
    AddCatalogue(check, checked->catalogue);
    AddJson(check, checked->json);
    AddList(line, "countries", "Lists the countries as a host sees them.", RunCountries,
            "Example: velmor countries my.catalogue\n");
    AddConnect(line);
    AddConversion(line, "decode", "Makes the source from a catalogue.", "CATALOGUE", "SOURCE",
                  DecodeCatalogue, "Example: velmor decode my.catalogue -o my.source\n");
    AddDetect(line);
    AddDevices(line);
    AddDial(line);
    AddDiff(line);
    AddConversion(line, "encode", "Makes a catalogue from its source.", "SOURCE", "CATALOGUE",
                  EncodeSource, "Example: velmor encode my.source -o my.catalogue\n");
    AddImport(line);
    AddPhone(line);
    AddList(line, "phones", "Lists the phones as a host sees them.", RunPhones,
            "Example: velmor phones my.catalogue\n");
    AddSetting(line);
    const auto [settings, offered] =
        AddList(line, "settings",
                "Lists the dial-up settings of a country, or for a number, as a host sees them.",
                RunSettings,
                "Exit status 1 when there are no settings.\n"
                "Example: velmor settings my.catalogue --country Norland\n");
    CLI::App* const whose = settings->add_option_group("whose")->require_option(1);
    Add(whose, "--country", offered->country, "NAME", "name of the country");
    Add(whose, "--number", offered->number, "DIGITS",
        "first 5 to 15 digits of a subscriber's number (IMSI)")
        ->check([](const std::string& text) {
            const bool fits = IsDigits(text) && text.size() >= 5 && text.size() <= 15;
            return fits ? std::string() : text + " has not 5 to 15 digits";
        });
    AddShow(line);
    AddTrace(line);
}

bool IsOption(const std::string& word) {
    return word.size() > 1 && word[0] == '-';
}

std::string ExplainSubcommand(const CLI::App& app, const std::vector<std::string>& words) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands({})) {
        names.push_back(command->get_name());
    }
    const std::string help = " (see velmor --help)";
    if (words.empty()) {
        return "a subcommand is missing" + help;
    }
    return words[0] + (IsOption(words[0]) ? ": is no option of velmor" : ": is no subcommand") +
           Suggestion(words[0], names) + help;
}

std::string ExplainExtra(const CLI::App& command, const std::string& word) {
    const std::string option = word.substr(0, word.find('='));
    if (!IsOption(option)) {
        return word + ": is one argument too many";
    }
    std::vector<std::string> names;
    for (const CLI::Option* known : command.get_options()) {
        for (const std::string& name : known->get_lnames()) {
            names.push_back("--" + name);
        }
    }
    return option + ": is no such option" + Suggestion(option, names);
}

// One line that says what is wrong with the command line, and what to do.
std::string ExplainUsage(const CLI::App& app, const CLI::Error& error,
                         const std::vector<std::string>& words) {
    const std::vector<CLI::App*> chosen = app.get_subcommands();
    if (chosen.empty()) {
        return ExplainSubcommand(app, words);
    }
    const std::vector<std::string> extra = chosen[0]->remaining();
    const std::string& name = chosen[0]->get_name();
    return name + ": " + (extra.empty() ? error.what() : ExplainExtra(*chosen[0], extra[0])) +
           " (see velmor " + name + " --help)";
}

}  // namespace

int RunCommandLine(const std::string& version, std::vector<std::string> words) {
    CommandLine line;
    line.app.set_version_flag("--version", version);
    line.app.require_subcommand(1);
    AddSubcommands(line);
    line.app.failure_message([words](const CLI::App* app, const CLI::Error& error) {
        return "velmor: " + Visible(ExplainUsage(*app, error, words)) + "\n";
    });
    std::reverse(words.begin(), words.end());  // as CLI11 takes them
    try {
        line.app.parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        return line.app.exit(error) == 0 ? kExitOk : kExitTrouble;
    }
    return line.status;
}

}  // namespace tool
