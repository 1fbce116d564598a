// SPDX-License-Identifier: MIT
// velmor import: makes a catalogue source from operators' data and a source of phones.
#include <filesystem>
#include <iostream>
#include <optional>

#include "catalogue/source_writer.h"
#include "commands/options.h"
#include "import/android.h"
#include "import/country_names.h"
#include "import/identifiers.h"
#include "import/own_rows.h"
#include "import/report.h"
#include "import/source.h"
#include "session/schema.h"
#include "support/error.h"
#include "support/output_file.h"
#include "support/texts.h"
#include "support/utf8.h"

namespace tool {
namespace {

// A country gets its name from the list, else its name in the data, else its code. Not all names in
// the data are English.
void NameCountries(std::vector<Country>& countries, const std::string& iso, ImportReport& report) {
    std::map<std::string, std::string> names;
    try {
        names = ReadCountryNames(iso);
    } catch (const ToolError& error) {
        std::cerr << "velmor: " << Visible(error.what())
                  << "; countries keep their names in the data\n";
    }
    for (Country& country : countries) {
        const auto found = names.find(country.code);
        if (found != names.end()) {
            country.name = found->second;
            continue;
        }
        ++report[ReportLine::kCountriesNotInIso];
        if (country.name.empty()) {
            country.name = country.code;
        }
    }
}

// A keeper's own source. A list in Android's form counts as it would alone, but no name that it
// gives is a key: the names of few rows cannot show what else a name means.
Providers ReadOwn(const std::string& path, const ImportOptions& options, const vel::Recipe& recipe,
                  const Providers& lists, ImportReport& report) {
    const std::string name = InSmallLetters(path);
    const bool isXml = name.size() > 4 && name.compare(name.size() - 4, 4, ".xml") == 0;
    if (!isXml && !std::filesystem::is_directory(path)) {
        return ReadOwnRows(InputCatalogue(path), recipe, lists, report);
    }
    ImportReport counts;
    Providers own;
    AddAndroidList(path, own, counts);
    NameCountries(own.countries, options.iso, counts);
    report.remarks.insert(report.remarks.end(), counts.remarks.begin(), counts.remarks.end());
    return own;
}

}  // namespace

int RunImport(const ImportOptions& options) {
    if (options.providers.empty() && options.android.empty() && options.own.empty()) {
        throw ToolError(
            "no operators' data: name a SERVICEPROVIDERS.XML, or a list with --android");
    }
    RequireOther(options.output,
                 {options.providers, options.phones, options.iso, options.previous});
    RequireOther(options.output, options.android);
    RequireOther(options.output, options.own);
    OutputFile output(options.output, options.force);  // before the work: it may refuse
    ImportReport report;
    const InputCatalogue phones(options.phones);
    const vel::Recipe recipe = ReadRecipe(&phones.GetVariables(vel::schema::kNetworkRecipe));
    Providers providers;
    if (!options.providers.empty()) {
        providers = ReadProviders(options.providers, report);
    }
    for (const std::string& list : options.android) {
        report.parts.insert(ReportPart::kAndroid);
        AddAndroidList(list, providers, report);
    }
    NameCountries(providers.countries, options.iso, report);
    // The first source wins, so it is added last.
    for (auto own = options.own.rbegin(); own != options.own.rend(); ++own) {
        report.parts.insert(ReportPart::kOwn);
        AddOwn(ReadOwn(*own, options, recipe, providers, report), providers, report);
    }
    const Networks networks = DecideNetworks(providers, recipe, report);
    Catalogue catalogue = MakeCatalogue(phones, providers, networks, report);
    std::optional<InputCatalogue> previous;
    if (!options.previous.empty()) {
        previous.emplace(options.previous);
        report.parts.insert(ReportPart::kPrevious);
    }
    const InputCatalogue* const before = previous ? &*previous : nullptr;
    catalogue.version = NextVersion(before, options.version, catalogue.version);
    GiveIdentifiers(before, options.phones, catalogue, report);
    output.Write(WriteSource(options.output, catalogue));
    PrintReport(report);
    return kExitOk;
}

}  // namespace tool
